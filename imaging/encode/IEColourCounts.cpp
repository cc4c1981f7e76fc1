#include "imaging/encode/IEColourCounts.h"

#include <algorithm>

namespace qpt {

namespace {
constexpr int kFirstBits = 12;
}

TIEColourCounts::TIEColourCounts()
    : keys_(size_t(1) << kFirstBits),
      counts_(keys_.size()),
      indices_(keys_.size(), kNoIndex),
      mask_(keys_.size() - 1),
      shift_(32 - kFirstBits) {}

void TIEColourCounts::Add(uint32_t rgb, uint32_t count) {
    size_t slot = Slot(rgb);
    while (keys_[slot] != 0 && keys_[slot] != rgb + 1)
        slot = (slot + 1) & mask_;
    if (keys_[slot] == 0) {
        keys_[slot] = rgb + 1;
        if (++size_ * 2 > keys_.size()) {
            counts_[slot] += count;
            Grow();
            return;
        }
    }
    counts_[slot] += count;
}

void TIEColourCounts::Grow() {
    std::vector<uint32_t> keys(keys_.size() * 2), counts(keys.size());
    mask_ = keys.size() - 1;
    --shift_;
    for (size_t i = 0; i < keys_.size(); ++i) {
        if (keys_[i] == 0) continue;
        size_t slot = Slot(keys_[i] - 1);
        while (keys[slot] != 0)
            slot = (slot + 1) & mask_;
        keys[slot] = keys_[i], counts[slot] = counts_[i];
    }
    keys_.swap(keys), counts_.swap(counts);
    indices_.assign(keys_.size(), kNoIndex);
}

std::vector<TIEColourCounts::TEntry> TIEColourCounts::ByCount() const {
    std::vector<TEntry> entries;
    entries.reserve(size_);
    for (size_t i = 0; i < keys_.size(); ++i)
        if (keys_[i] != 0) entries.push_back({keys_[i] - 1, counts_[i]});
    std::sort(entries.begin(), entries.end(), [](const TEntry& a, const TEntry& b) {
        return a.Count != b.Count ? a.Count > b.Count : a.Rgb < b.Rgb;
    });
    return entries;
}

void TIEColourCounts::SetIndex(uint32_t rgb, int16_t index) {
    size_t slot = Slot(rgb);
    while (keys_[slot] != rgb + 1)
        slot = (slot + 1) & mask_;
    indices_[slot] = index;
}

}  // namespace qpt
