#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qpt {

// Counts the distinct colours of a picture (0xRRGGBB) in an open-addressed
// table, with a palette index per colour once one is assigned.
class TIEColourCounts {
public:
    static constexpr int16_t kNoIndex = -1;

    TIEColourCounts();
    void Add(uint32_t rgb, uint32_t count);
    size_t Size() const { return size_; }

    struct TEntry {
        uint32_t Rgb;
        uint32_t Count;
    };
    // Every colour, most frequent first (ties by value, so the order is fixed).
    std::vector<TEntry> ByCount() const;

    // kNoIndex for a colour without an index or not in the table.
    int16_t IndexOf(uint32_t rgb) const {
        for (size_t slot = Slot(rgb);; slot = (slot + 1) & mask_) {
            if (keys_[slot] == 0) return kNoIndex;
            if (keys_[slot] == rgb + 1) return indices_[slot];
        }
    }
    // The colour must be in the table.
    void SetIndex(uint32_t rgb, int16_t index);

private:
    size_t Slot(uint32_t rgb) const { return (rgb * 2654435761u) >> shift_ & mask_; }
    void Grow();

    std::vector<uint32_t> keys_;  // colour + 1; 0 marks a free slot
    std::vector<uint32_t> counts_;
    std::vector<int16_t> indices_;
    size_t size_ = 0;
    size_t mask_ = 0;
    int shift_ = 0;
};

}  // namespace qpt
