#include "imaging/IEImageCompose.h"

#include <algorithm>
#include <cmath>

#include "imaging/IEBlend.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IEStretchRows.h"

namespace qpt {

void IEGrowToHold(TIEImageLayer& lower, const TIELayer& upper, TColor fill) {
    TIEBitmap& picture = *lower.Bitmap();
    if (picture.Width() < 1 || picture.Height() < 1 || lower.Width <= 0 || lower.Height <= 0)
        return;
    const double sx = picture.Width() / lower.Width, sy = picture.Height() / lower.Height;
    const int left = std::min(0, int(std::floor((upper.PosX - lower.PosX) * sx)));
    const int top = std::min(0, int(std::floor((upper.PosY - lower.PosY) * sy)));
    const int right =
        std::max(picture.Width(), int(std::ceil((upper.PosX + upper.Width - lower.PosX) * sx)));
    const int bottom =
        std::max(picture.Height(), int(std::ceil((upper.PosY + upper.Height - lower.PosY) * sy)));
    if (left == 0 && top == 0 && right == picture.Width() && bottom == picture.Height()) return;
    TIEBitmap grown;
    grown.SetLocation(picture.Location());
    // Without room for the larger picture the merge cuts to the old one.
    if (!grown.Allocate(right - left, bottom - top, picture.PixelFormat())) return;
    grown.Fill(fill);
    if (picture.HasAlphaChannel()) grown.AlphaChannel()->Fill(255);
    TIEBitmap::CopyRect(picture, 0, 0, picture.Width(), picture.Height(), grown, -left, -top);
    picture = std::move(grown);
    lower.PosX += left / sx;
    lower.PosY += top / sy;
    lower.Width = picture.Width() / sx;
    lower.Height = picture.Height() / sy;
}

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
    // An opaque picture at full opacity is sampled straight into place.
    const bool inPlace = !direct && !alpha && k == 255;
    std::vector<uint8_t> rgb(direct || inPlace ? 0 : size_t(n) * 3);
    std::vector<uint8_t> a(direct || !alpha ? 0 : size_t(n));
    const TIEStretchColumns columns =
        direct ? TIEStretchColumns{} : IEStretchColumns(xs, src.Width(), linear);
    const bool enlarging = ys.size() < 2 || ys[1] - ys[0] < 65536;
    TIEStretchRows colour(columns, 3, enlarging), opacity(columns, 1, enlarging);
    for (size_t j = 0; j < ys.size(); ++j) {
        const int y = destY + int(j);
        uint8_t* drow = dst.Scanline(y) + 3 * destX;
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
            uint8_t* out = inPlace ? drow : rgb.data();
            colour.Sample(src.Scanline(y0), y0, src.Scanline(y1), y1, fy, out);
            if (inPlace) {
                if (dstAlpha) UniteAlpha(dstAlpha->Scanline(y) + destX, nullptr, n, k);
                continue;
            }
            srow = out;
            if (alpha) {
                opacity.Sample(alpha->Scanline(y0), y0, alpha->Scanline(y1), y1, fy, a.data());
                arow = a.data();
            }
        }
        IEBlendAlphaRow(drow, srow, arow, n, k);
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
