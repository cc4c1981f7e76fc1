#include "skin/DesignRect.h"

namespace qpt {

void TDesignRect::SetSizes(int32_t left, int32_t top, int32_t bottom, int32_t right) {
    int32_t newLeft = left_, newRight = right_, newTop = top_, newBottom = bottom_;
    if (right != kUnchanged) {
        newLeft = left;
        newRight = right == kSameAsOpposite ? left : right;
    }
    if (bottom != kUnchanged) {
        newTop = top;
        newBottom = bottom == kSameAsOpposite ? top : bottom;
    }
    Set(newLeft, newTop, newRight, newBottom, mode_);
}

void TDesignRect::Set(int32_t left, int32_t top, int32_t right, int32_t bottom,
                      TSuperStretchMode mode) {
    if (left == left_ && top == top_ && right == right_ && bottom == bottom_ && mode == mode_)
        return;
    left_ = left;
    top_ = top;
    right_ = right;
    bottom_ = bottom;
    mode_ = mode;
    if (OnChange) OnChange();
}

void TDesignRect::SetEmpty(bool value) {
    if (value)
        Set(0, 0, 0, 0, TSuperStretchMode::sdmDefault);
    else if (OnDefaultRequested)
        OnDefaultRequested();
}

}  // namespace qpt
