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

namespace {

bool IsIdentity(const TIESampleTable& t) {
    for (size_t i = 1; i < t.size(); ++i)
        if (t[i] - t[i - 1] != 65536) return false;
    return t.empty() || (t[0] & 0xFFFF) == 0;
}

// Gathers one destination row of colour and alpha from the source.
void SampleRow(const TIEBitmap& src, const TIEBitmap* alpha, int64_t sy, const TIESampleTable& xs,
               bool linear, uint8_t* rgb, uint8_t* a) {
    const int w = src.Width(), h = src.Height();
    const int y0 = std::clamp(int(sy >> 16), 0, h - 1);
    const int y1 = linear ? std::min(y0 + 1, h - 1) : y0;
    const uint32_t fy = linear ? uint32_t(sy & 0xFFFF) >> 8 : 0;
    const uint8_t* r0 = src.Scanline(y0);
    const uint8_t* r1 = src.Scanline(y1);
    const uint8_t* a0 = alpha ? alpha->Scanline(y0) : nullptr;
    const uint8_t* a1 = alpha ? alpha->Scanline(y1) : nullptr;
    for (size_t i = 0; i < xs.size(); ++i) {
        const int x0 = std::clamp(int(xs[i] >> 16), 0, w - 1);
        const int x1 = linear ? std::min(x0 + 1, w - 1) : x0;
        const uint32_t fx = linear ? uint32_t(xs[i] & 0xFFFF) >> 8 : 0;
        auto mix = [&](uint32_t p00, uint32_t p01, uint32_t p10, uint32_t p11) {
            const uint32_t top = p00 * (256 - fx) + p01 * fx;
            const uint32_t bottom = p10 * (256 - fx) + p11 * fx;
            return uint8_t((top * (256 - fy) + bottom * fy + 32768) >> 16);
        };
        for (int ch = 0; ch < 3; ++ch)
            rgb[3 * i + ch] =
                mix(r0[3 * x0 + ch], r0[3 * x1 + ch], r1[3 * x0 + ch], r1[3 * x1 + ch]);
        if (a) a[i] = alpha ? mix(a0[x0], a0[x1], a1[x0], a1[x1]) : 255;
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
    for (size_t j = 0; j < ys.size(); ++j) {
        const int y = destY + int(j);
        const uint8_t* srow;
        const uint8_t* arow;
        if (direct) {
            const int sy = std::clamp(int(ys[j] >> 16), 0, src.Height() - 1), sx = int(xs[0] >> 16);
            srow = src.Scanline(sy) + 3 * sx;
            arow = alpha ? alpha->Scanline(sy) + sx : nullptr;
        } else {
            SampleRow(src, alpha, ys[j], xs, linear, rgb.data(), a.empty() ? nullptr : a.data());
            srow = rgb.data();
            arow = a.empty() ? nullptr : a.data();
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
