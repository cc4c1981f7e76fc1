#pragma once

#include <cstdint>
#include <functional>

namespace qpt {

// What happens to the parts of a sliced picture between its corners.
enum class TSuperStretchMode : uint8_t { sdmDefault = 0, sdmStretch, sdmFill, sdmFrame };

// The slicing of a picture into nine parts: widths of the left and right
// columns, heights of the top and bottom rows.
class TDesignRect {
public:
    // SetSizes: a right or bottom of kSameAsOpposite copies left or top;
    // kUnchanged leaves that pair as it is.
    static constexpr int32_t kSameAsOpposite = -1000;
    static constexpr int32_t kUnchanged = -2000;

    int32_t Left() const { return left_; }
    int32_t Top() const { return top_; }
    int32_t Right() const { return right_; }
    int32_t Bottom() const { return bottom_; }
    TSuperStretchMode StretchMode() const { return mode_; }
    void SetLeft(int32_t value) { Set(value, top_, right_, bottom_, mode_); }
    void SetTop(int32_t value) { Set(left_, value, right_, bottom_, mode_); }
    void SetRight(int32_t value) { Set(left_, top_, value, bottom_, mode_); }
    void SetBottom(int32_t value) { Set(left_, top_, right_, value, mode_); }
    void SetStretchMode(TSuperStretchMode value) { Set(left_, top_, right_, bottom_, value); }
    void SetSizes(int32_t left, int32_t top, int32_t bottom, int32_t right);
    void Set(int32_t left, int32_t top, int32_t right, int32_t bottom, TSuperStretchMode mode);

    bool Empty() const { return left_ == 0 && top_ == 0 && right_ == 0 && bottom_ == 0; }
    // True clears everything; false asks the owner for its default slicing.
    void SetEmpty(bool value);

    bool operator==(const TDesignRect& other) const {
        return left_ == other.left_ && top_ == other.top_ && right_ == other.right_ &&
               bottom_ == other.bottom_ && mode_ == other.mode_;
    }

    std::function<void()> OnChange;
    std::function<void()> OnDefaultRequested;

private:
    int32_t left_ = 0;
    int32_t top_ = 0;
    int32_t right_ = 0;
    int32_t bottom_ = 0;
    TSuperStretchMode mode_ = TSuperStretchMode::sdmDefault;
};

}  // namespace qpt
