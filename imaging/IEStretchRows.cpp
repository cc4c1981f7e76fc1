#include "imaging/IEStretchRows.h"

#include <algorithm>
#include <cstring>

#include "imaging/IEVectorLoops.h"

namespace qpt {

TIEStretchColumns IEStretchColumns(const std::vector<int64_t>& xs, int width, bool linear) {
    TIEStretchColumns c;
    c.x0.resize(xs.size());
    c.x1.resize(xs.size());
    c.fx.resize(xs.size());
    for (size_t i = 0; i < xs.size(); ++i) {
        c.x0[i] = std::clamp(int(xs[i] >> 16), 0, width - 1);
        c.x1[i] = linear ? std::min(c.x0[i] + 1, width - 1) : c.x0[i];
        c.fx[i] = linear ? uint32_t(xs[i] & 0xFFFF) >> 8 : 0;
    }
    return c;
}

namespace stretch_detail {

// r0 (256 - f) + r1 f per byte, 0..65280.
QPT_CLONED_LOOP void BlendBytes(const uint8_t* r0, const uint8_t* r1, uint32_t f, uint16_t* out,
                                int n) {
    const uint16_t w1 = uint16_t(f), w0 = uint16_t(256 - f);
    for (int b = 0; b < n; ++b)
        out[b] = uint16_t(r0[b] * w0 + r1[b] * w1);
}

// The second pass over values that already carry one weight of 256.
QPT_CLONED_LOOP void BlendWeighted(const uint16_t* h0, const uint16_t* h1, uint32_t f, uint8_t* out,
                                   int n) {
    const uint32_t w1 = f, w0 = 256 - f;
    for (int b = 0; b < n; ++b)
        out[b] = uint8_t((h0[b] * w0 + h1[b] * w1 + 32768) >> 16);
}

}  // namespace stretch_detail

namespace {

// B, G, R in three 16-bit lanes of one word: a weighted pixel is then one
// multiply-add, as no lane can reach 65536.
inline uint64_t Lanes(const uint8_t* p) {
    return uint64_t(p[0]) | uint64_t(p[1]) << 16 | uint64_t(p[2]) << 32;
}

void StretchRow3(const uint8_t* row, const TIEStretchColumns& c, uint16_t* out) {
    for (size_t i = 0; i < c.Count(); ++i) {
        const uint64_t f = c.fx[i];
        const uint64_t v = Lanes(row + 3 * c.x0[i]) * (256 - f) + Lanes(row + 3 * c.x1[i]) * f;
        // Four lanes stored, the fourth overwritten by the next pixel; the
        // buffer has one lane to spare at its end.
        std::memcpy(out + 3 * i, &v, sizeof v);
    }
}

void StretchRow1(const uint8_t* row, const TIEStretchColumns& c, uint16_t* out) {
    for (size_t i = 0; i < c.Count(); ++i)
        out[i] = uint16_t(row[c.x0[i]] * (256 - c.fx[i]) + row[c.x1[i]] * c.fx[i]);
}

}  // namespace

TIEStretchRows::TIEStretchRows(const TIEStretchColumns& columns, int channels, bool enlarging)
    : c_(columns), channels_(channels), enlarging_(enlarging) {
    for (auto& row : rows_)
        row.resize(c_.Count() * size_t(channels_) + 1);
}

const uint16_t* TIEStretchRows::Stretched(const uint8_t* row, int y) {
    for (int k = 0; k < 2; ++k)
        if (rowY_[k] == y) return rows_[k].data();
    const int k = next_;
    next_ ^= 1;
    rowY_[k] = y;
    if (channels_ == 3)
        StretchRow3(row, c_, rows_[k].data());
    else
        StretchRow1(row, c_, rows_[k].data());
    return rows_[k].data();
}

void TIEStretchRows::Sample(const uint8_t* r0, int y0, const uint8_t* r1, int y1, uint32_t fy,
                            uint8_t* out) {
    if (!enlarging_) return BlendThenStretch(r0, r1, fy, out);
    const uint16_t* h0 = Stretched(r0, y0);
    // Keep the first row's buffer from being reused by the second.
    next_ = rowY_[0] == y0 ? 1 : 0;
    const uint16_t* h1 = Stretched(r1, y1);
    stretch_detail::BlendWeighted(h0, h1, fy, out, int(c_.Count()) * channels_);
}

void TIEStretchRows::BlendThenStretch(const uint8_t* r0, const uint8_t* r1, uint32_t fy,
                                      uint8_t* out) {
    const int ch = channels_;
    const int first = c_.x0.front() * ch, last = (c_.x1.back() + 1) * ch;
    mixed_.resize(size_t(last - first));
    stretch_detail::BlendBytes(r0 + first, r1 + first, fy, mixed_.data(), last - first);
    const uint16_t* m = mixed_.data() - first;
    for (size_t i = 0; i < c_.Count(); ++i) {
        const uint32_t fx = c_.fx[i];
        const uint16_t* a = m + ch * c_.x0[i];
        const uint16_t* b = m + ch * c_.x1[i];
        for (int k = 0; k < ch; ++k)
            out[size_t(ch) * i + size_t(k)] =
                uint8_t((a[k] * (256 - fx) + b[k] * fx + 32768) >> 16);
    }
}

}  // namespace qpt
