// The two compositing primitives that the drawing and retouch code build on.
#include <algorithm>
#include <cstring>
#include <vector>

#include "imaging/IEBitmap.h"

namespace qpt {

namespace {

struct TSpan {
    int s, d, n;  // source start, destination start, length
};

// Clips one axis of a copy to both extents.
TSpan Clip(int s, int d, int n, int sourceExtent, int destExtent) {
    if (s < 0) d -= s, n += s, s = 0;
    if (d < 0) s -= d, n += d, d = 0;
    n = std::min({n, sourceExtent - s, destExtent - d});
    return {s, d, std::max(n, 0)};
}

}  // namespace

void TIEBitmap::CopyRect(const TIEBitmap& source, int sx, int sy, int width, int height,
                         TIEBitmap& dest, int dx, int dy) {
    if (source.format_ != dest.format_ || source.bitCount_ < 8 || !source.IsAllocated() ||
        !dest.IsAllocated() || &source == &dest)
        return;
    const TSpan h = Clip(sx, dx, width, source.width_, dest.width_);
    const TSpan v = Clip(sy, dy, height, source.height_, dest.height_);
    if (h.n == 0 || v.n == 0) return;
    const int bpp = source.bitCount_ / 8;
    for (int y = 0; y < v.n; ++y) {
        const uint8_t* s = source.Scanline(v.s + y) + int64_t(h.s) * bpp;
        std::memcpy(dest.Scanline(v.d + y) + int64_t(h.d) * bpp, s, size_t(h.n) * bpp);
    }
    if (source.alpha_ && dest.alpha_) {
        CopyRect(*source.alpha_, sx, sy, width, height, *dest.alpha_, dx, dy);
        dest.alpha_->full_ = dest.alpha_->full_ && source.alpha_->full_;
    }
}

void TIEBitmap::MergeAlpha(const TIEBitmap& source, int sx, int sy, int sw, int sh, TIEBitmap& dest,
                           int dx, int dy, int dw, int dh, int opacity) {
    if (source.format_ != ie24RGB || dest.format_ != ie24RGB || sw < 1 || sh < 1 || dw < 1 ||
        dh < 1 || &source == &dest)
        return;
    opacity = std::clamp(opacity, 0, 255);
    const TIEBitmap* srcAlpha =
        source.alpha_ && !source.alpha_->full_ ? source.alpha_.get() : nullptr;
    TIEBitmap* dstAlpha = dest.alpha_.get();
    const int x0 = std::max(dx, 0), x1 = std::min(dx + dw, dest.width_);
    const int y0 = std::max(dy, 0), y1 = std::min(dy + dh, dest.height_);
    if (x0 >= x1 || y0 >= y1 || opacity == 0) return;
    // Nearest sample; a source column outside the source reads as absent.
    std::vector<int> column(size_t(x1 - x0));
    for (int x = x0; x < x1; ++x)
        column[size_t(x - x0)] = sx + int(int64_t(x - dx) * sw / dw);
    std::vector<uint8_t> srcRow(size_t(source.rowLen_)), alphaRow(size_t(source.width_), 255);
    for (int y = y0; y < y1; ++y) {
        const int ys = sy + int(int64_t(y - dy) * sh / dh);
        if (ys < 0 || ys >= source.height_) continue;
        // Copies of the source rows keep file-backed windows of both
        // bitmaps from pushing each other out.
        std::memcpy(srcRow.data(), source.Scanline(ys), srcRow.size());
        if (srcAlpha) std::memcpy(alphaRow.data(), srcAlpha->Scanline(ys), alphaRow.size());
        uint8_t* d = dest.Scanline(y);
        uint8_t* da = dstAlpha ? dstAlpha->Scanline(y) : nullptr;
        for (int x = x0; x < x1; ++x) {
            const int xs = column[size_t(x - x0)];
            if (xs < 0 || xs >= source.width_) continue;
            const int a = (alphaRow[size_t(xs)] * opacity + 127) / 255;
            const uint8_t* s = srcRow.data() + int64_t(xs) * 3;
            uint8_t* p = d + int64_t(x) * 3;
            for (int c = 0; c < 3; ++c)
                p[c] = uint8_t((s[c] * a + p[c] * (255 - a) + 127) / 255);
            if (da) da[x] = uint8_t(a + (da[x] * (255 - a) + 127) / 255);
        }
    }
}

}  // namespace qpt
