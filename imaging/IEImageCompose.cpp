#include "imaging/IEImageCompose.h"

#include <algorithm>
#include <cmath>

#include "imaging/IEBlend.h"
#include "imaging/IEImageLayer.h"

namespace qpt {

int IELayerOpacity(double opacity, int transparency) {
    const double k = std::clamp(opacity, 0.0, 1.0) * std::clamp(transparency, 0, 255);
    return int(std::lround(k));
}

TIESampleTable IESampleTable(int first, int count, int srcLength, int destLength) {
    TIESampleTable table(size_t(std::max(count, 0)));
    if (destLength <= 0) return table;
    const int64_t step = (int64_t(srcLength) << 16) / destLength;
    for (int i = 0; i < count; ++i)
        table[size_t(i)] = int64_t(first + i) * step;
    return table;
}

namespace compose_detail {

// Weighted sum of two rows, 0..65280 per byte. Cloned for AVX2, where the
// compiler widens it to 16 lanes; the default clone is plain x86-64.
void MixRows(const uint8_t* r0, const uint8_t* r1, uint32_t fy, uint16_t* out, int n);

// GCC vectorises at -O2 only when asked; clang does it anyway and rejects the
// request as an unknown attribute.
#if defined(__clang__)
#define QPT_CLONED_LOOP __attribute__((target_clones("avx2", "default")))
#else
#define QPT_CLONED_LOOP \
    __attribute__((target_clones("avx2", "default"), optimize("tree-vectorize")))
#endif

QPT_CLONED_LOOP void MixRows(const uint8_t* r0, const uint8_t* r1, uint32_t fy, uint16_t* out,
                             int n) {
    const uint16_t wy = uint16_t(fy), wx = uint16_t(256 - fy);
    for (int b = 0; b < n; ++b)
        out[b] = uint16_t(r0[b] * wx + r1[b] * wy);
}

}  // namespace compose_detail

namespace {

bool IsIdentity(const TIESampleTable& t) {
    for (size_t i = 1; i < t.size(); ++i)
        if (t[i] - t[i - 1] != 65536) return false;
    return t.empty() || (t[0] & 0xFFFF) == 0;
}

// Where each destination column samples: the two neighbouring source
// columns and the weight of the right one, 0..256. Worked out once per call.
struct Columns {
    std::vector<int> x0, x1;
    std::vector<uint32_t> fx;
};

Columns ColumnsFor(const TIESampleTable& xs, int width, bool linear) {
    Columns c;
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

// One destination row of a plane with `channels` bytes per pixel: rows
// blended first over the columns in use (a loop the compiler vectorises),
// then the columns. The integer sum equals the direct bilinear one.
template <int channels>
void SampleRow(const uint8_t* r0, const uint8_t* r1, uint32_t fy, const Columns& c, uint8_t* out,
               std::vector<uint16_t>& mixed) {
    const size_t n = c.x0.size();
    const int first = c.x0.front() * channels, last = (c.x1.back() + 1) * channels;
    mixed.resize(size_t(last - first));
    uint16_t* m = mixed.data() - first;
    for (int b = first; b < last; ++b)
        m[b] = uint16_t(r0[b] * (256 - fy) + r1[b] * fy);
    for (size_t i = 0; i < n; ++i) {
        const uint32_t fx = c.fx[i];
        const uint16_t* a = m + channels * c.x0[i];
        const uint16_t* b = m + channels * c.x1[i];
        for (int ch = 0; ch < channels; ++ch)
            out[channels * i + size_t(ch)] =
                uint8_t((a[ch] * (256 - fx) + b[ch] * fx + 32768) >> 16);
    }
}

void UniteAlpha(uint8_t* dst, const uint8_t* a, int n, int k) {
    for (int i = 0; i < n; ++i) {
        const uint32_t s = a ? IEDiv255(uint32_t(a[i]) * uint32_t(k)) : uint32_t(k);
        dst[i] = uint8_t(dst[i] + IEDiv255(s * (255 - dst[i])));
    }
}

}  // namespace

void IEComposeImage(const TIEBitmap& src, TIEBitmap& dst, int destX, int destY,
                    const TIESampleTable& xs, const TIESampleTable& ys, int k, bool linear) {
    if (src.Width() < 1 || src.Height() < 1 || src.PixelFormat() != ie24RGB ||
        dst.PixelFormat() != ie24RGB || xs.empty())
        return;
    const TIEBitmap* alpha = src.AlphaChannelIfAny();
    if (alpha && alpha->Full()) alpha = nullptr;
    TIEBitmap* dstAlpha =
        dst.HasAlphaChannel() && !dst.AlphaChannelIfAny()->Full() ? dst.AlphaChannel() : nullptr;
    const int n = int(xs.size());
    const bool direct =
        !linear && IsIdentity(xs) && xs[0] >= 0 && int(xs.back() >> 16) < src.Width();
    std::vector<uint8_t> rgb(direct ? 0 : size_t(n) * 3), a(direct || !alpha ? 0 : size_t(n));
    const Columns columns = direct ? Columns{} : ColumnsFor(xs, src.Width(), linear);
    std::vector<uint16_t> mixed;
    for (size_t j = 0; j < ys.size(); ++j) {
        const int y = destY + int(j);
        const int y0 = std::clamp(int(ys[j] >> 16), 0, src.Height() - 1);
        const int y1 = linear ? std::min(y0 + 1, src.Height() - 1) : y0;
        const uint32_t fy = linear ? uint32_t(ys[j] & 0xFFFF) >> 8 : 0;
        const uint8_t* srow;
        const uint8_t* arow = nullptr;
        if (direct) {
            const int sx = int(xs[0] >> 16);
            srow = src.Scanline(y0) + 3 * sx;
            if (alpha) arow = alpha->Scanline(y0) + sx;
        } else {
            SampleRow<3>(src.Scanline(y0), src.Scanline(y1), fy, columns, rgb.data(), mixed);
            srow = rgb.data();
            if (alpha) {
                SampleRow<1>(alpha->Scanline(y0), alpha->Scanline(y1), fy, columns, a.data(),
                             mixed);
                arow = a.data();
            }
        }
        IEBlendAlphaRow(dst.Scanline(y) + 3 * destX, srow, arow, n, k);
        if (dstAlpha) UniteAlpha(dstAlpha->Scanline(y) + destX, arow, n, k);
    }
}

void IEPremulToImage(const TIEBitmap& premul, TIEBitmap& dest) {
    const int w = premul.Width(), h = premul.Height();
    if (!dest.Allocate(w, h, ie24RGB)) return;
    TIEBitmap& alpha = *dest.AlphaChannel();
    for (int y = 0; y < h; ++y) {
        const uint8_t* s = premul.Scanline(y);
        uint8_t* d = dest.Scanline(y);
        uint8_t* a = alpha.Scanline(y);
        for (int x = 0; x < w; ++x, s += 4, d += 3) {
            const uint32_t al = s[3];
            a[x] = uint8_t(al);
            for (int ch = 0; ch < 3; ++ch)
                d[ch] = al ? uint8_t(std::min<uint32_t>(255, (s[ch] * 255 + al / 2) / al)) : 255;
        }
    }
    alpha.SetFull(false);
    alpha.SyncFull();
}

void IEMergeImageLayer(TIEImageLayer& upper, TIEImageLayer& lower) {
    TIEBitmap& dst = *lower.Bitmap();
    const TIEBitmap& src = upper.Picture();
    if (dst.Width() < 1 || src.Width() < 1 || lower.Width <= 0 || lower.Height <= 0) return;
    const double sx = dst.Width() / lower.Width, sy = dst.Height() / lower.Height;
    const int x0 = int(std::lround((upper.PosX - lower.PosX) * sx));
    const int y0 = int(std::lround((upper.PosY - lower.PosY) * sy));
    const int dw = int(std::lround(upper.Width * sx)), dh = int(std::lround(upper.Height * sy));
    const QRect clip = QRect(x0, y0, dw, dh) & QRect(0, 0, dst.Width(), dst.Height());
    if (clip.isEmpty()) return;
    const auto xs = IESampleTable(clip.x() - x0, clip.width(), src.Width(), dw);
    const auto ys = IESampleTable(clip.y() - y0, clip.height(), src.Height(), dh);
    IEComposeImage(src, dst, clip.x(), clip.y(), xs, ys,
                   IELayerOpacity(upper.Opacity, upper.Transparency), false);
}

}  // namespace qpt
