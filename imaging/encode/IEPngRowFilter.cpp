#include "imaging/encode/IEPngRowFilter.h"

#include <cstdlib>
#include <cstring>

#include "imaging/IEVectorLoops.h"

namespace qpt {

namespace {

enum : uint8_t { kNone = 0, kSub = 1, kUp = 2, kAverage = 3, kPaeth = 4 };

// The loops below are written plainly over bytes, on pointers that do not
// overlap, so that the compiler turns them into vector code; they take a
// fifth of the encoder's time in plain code. The first pixel of a row has
// no left neighbour.
QPT_CLONED_LOOP void FilterSub(const uint8_t* __restrict cur, size_t n, size_t bpp,
                               uint8_t* __restrict out) {
    std::memcpy(out, cur, bpp);
    for (size_t i = bpp; i < n; ++i)
        out[i] = uint8_t(cur[i] - cur[i - bpp]);
}

QPT_CLONED_LOOP void FilterUp(const uint8_t* __restrict cur, const uint8_t* __restrict prev,
                              size_t n, uint8_t* __restrict out) {
    for (size_t i = 0; i < n; ++i)
        out[i] = uint8_t(cur[i] - prev[i]);
}

QPT_CLONED_LOOP void FilterAverage(const uint8_t* __restrict cur, const uint8_t* __restrict prev,
                                   size_t n, size_t bpp, uint8_t* __restrict out) {
    for (size_t i = 0; i < bpp; ++i)
        out[i] = uint8_t(cur[i] - (prev[i] >> 1));
    for (size_t i = bpp; i < n; ++i)
        out[i] = uint8_t(cur[i] - ((unsigned(cur[i - bpp]) + prev[i]) >> 1));
}

inline uint8_t PaethPredictor(int a, int b, int c) {
    const int pa = std::abs(b - c), pb = std::abs(a - c), pc = std::abs(a + b - 2 * c);
    return uint8_t(pa <= pb && pa <= pc ? a : pb <= pc ? b : c);
}

QPT_CLONED_LOOP void FilterPaeth(const uint8_t* __restrict cur, const uint8_t* __restrict prev,
                                 size_t n, size_t bpp, uint8_t* __restrict out) {
    for (size_t i = 0; i < bpp; ++i)
        out[i] = uint8_t(cur[i] - prev[i]);
    for (size_t i = bpp; i < n; ++i)
        out[i] = uint8_t(cur[i] - PaethPredictor(cur[i - bpp], prev[i], prev[i - bpp]));
}

// Residuals read as signed bytes: small either side of zero is cheap.
QPT_CLONED_LOOP uint64_t AbsoluteSum(const uint8_t* row, size_t n) {
    uint64_t sum = 0;
    for (size_t i = 0; i < n; ++i)
        sum += row[i] < 128 ? row[i] : 256 - row[i];
    return sum;
}

QPT_CLONED_LOOP size_t Zeros(const uint8_t* row, size_t n) {
    size_t zeros = 0;
    for (size_t i = 0; i < n; ++i)
        zeros += row[i] == 0;
    return zeros;
}

}  // namespace

TIEPngRowFilter::TIEPngRowFilter(const TIEPixelView& view, TIEAlphaOut alpha)
    : view_(view),
      alpha_(alpha),
      pixelBytes_(size_t(IEChannelsOut(alpha))),
      rowBytes_(size_t(view.Width) * pixelBytes_),
      prev_(rowBytes_),
      cur_(rowBytes_),
      trial_(rowBytes_ * 4) {}

void TIEPngRowFilter::Start(int y) {
    y_ = y;
    if (y > 0)
        IERowToRgb(view_, y - 1, alpha_, prev_.data());
    else
        std::fill(prev_.begin(), prev_.end(), 0);
}

void TIEPngRowFilter::Next(uint8_t* out) {
    IERowToRgb(view_, y_++, alpha_, cur_.data());
    const uint8_t* cur = cur_.data();
    const uint8_t* prev = prev_.data();
    const size_t n = rowBytes_, bpp = pixelBytes_;
    uint8_t* trial[kPaeth + 1] = {};
    for (int f = kSub; f <= kPaeth; ++f)
        trial[f] = trial_.data() + size_t(f - kSub) * n;
    FilterSub(cur, n, bpp, trial[kSub]);
    uint8_t best = kNone;
    if (Zeros(trial[kSub], n) * 4 < n) {
        FilterUp(cur, prev, n, trial[kUp]);
        FilterAverage(cur, prev, n, bpp, trial[kAverage]);
        FilterPaeth(cur, prev, n, bpp, trial[kPaeth]);
        uint64_t bestSum = UINT64_MAX;
        for (uint8_t f = kSub; f <= kPaeth; ++f) {
            const uint64_t sum = AbsoluteSum(trial[f], n);
            if (sum < bestSum) bestSum = sum, best = f;
        }
    }
    out[0] = best;
    std::memcpy(out + 1, best == kNone ? cur : trial[best], n);
    cur_.swap(prev_);
}

}  // namespace qpt
