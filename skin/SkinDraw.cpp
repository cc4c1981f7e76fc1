#include "skin/SkinDraw.h"

#include <QPainter>
#include <algorithm>

#include "skin/DesignRect.h"
#include "skin/RdGraphic.h"

namespace qpt {

namespace {

// Tiling only pays off, and only looks right, for parts of some size.
constexpr int kMinTile = 3;

struct PartPainter {
    QPainter& painter;
    TRdGraphic& graphic;
    int alpha;

    void Stretch(const QRect& dest, const QRect& source) const {
        if (dest.isEmpty() || source.isEmpty()) return;
        graphic.DrawPart(painter, dest, source, alpha, false, TPngSmoothFilter::psfDefault);
    }

    // Row by row, left to right; the last tile of a row and the last row are
    // cut to what remains.
    void Tile(const QRect& dest, const QRect& source) const {
        if (dest.isEmpty() || source.isEmpty()) return;
        for (int y = dest.top(); y <= dest.bottom(); y += source.height()) {
            const int h = std::min(source.height(), dest.bottom() + 1 - y);
            for (int x = dest.left(); x <= dest.right(); x += source.width()) {
                const int w = std::min(source.width(), dest.right() + 1 - x);
                graphic.DrawPart(painter, QRect(x, y, w, h), QRect(source.topLeft(), QSize(w, h)),
                                 alpha, false, TPngSmoothFilter::psfDefault);
            }
        }
    }

    void Edge(const QRect& dest, const QRect& source, bool fill, int thickness, int length) const {
        if (fill && thickness > kMinTile && length > kMinTile)
            Tile(dest, source);
        else
            Stretch(dest, source);
    }
};

}  // namespace

void SkinDraw(QPainter& painter, const QRect& rect, TRdGraphic* graphic,
              const TDesignRect* slicing) {
    if (!graphic || graphic->Empty() || rect.isEmpty()) return;
    const int W = graphic->Width(), H = graphic->Height();
    const PartPainter parts{painter, *graphic, graphic->DrawAlpha()};
    TSuperStretchMode mode = slicing ? slicing->StretchMode() : TSuperStretchMode::sdmStretch;
    if (!slicing || (slicing->Empty() && mode != TSuperStretchMode::sdmFill)) {
        parts.Stretch(rect, QRect(0, 0, W, H));
        return;
    }
    if (mode == TSuperStretchMode::sdmDefault) mode = TSuperStretchMode::sdmStretch;
    const bool fill = mode == TSuperStretchMode::sdmFill;
    int L = slicing->Left(), T = slicing->Top(), R = slicing->Right(), B = slicing->Bottom();
    const int w = rect.width(), h = rect.height(), x = rect.x(), y = rect.y();
    if (mode == TSuperStretchMode::sdmStretch) {
        // A picture drawn at its own size comes out whole.
        if (h == H) T = B = 0;
        if (w == W) L = R = 0;
    }
    const int sw = W - L - R, sh = H - T - B, dw = w - L - R, dh = h - T - B;
    if (mode != TSuperStretchMode::sdmFrame && sw > 0 && sh > 0 && dw > 0 && dh > 0) {
        const QRect dest(x + L, y + T, dw, dh), source(L, T, sw, sh);
        if (fill && sw > kMinTile && sh > kMinTile)
            parts.Tile(dest, source);
        else
            parts.Stretch(dest, source);
    }
    parts.Stretch(QRect(x, y, L, T), QRect(0, 0, L, T));
    parts.Edge(QRect(x + L, y, dw, T), QRect(L, 0, sw, T), fill, T, sw);
    parts.Stretch(QRect(x + w - R, y, R, T), QRect(W - R, 0, R, T));
    parts.Edge(QRect(x, y + T, L, dh), QRect(0, T, L, sh), fill, L, sh);
    parts.Edge(QRect(x + w - R, y + T, R, dh), QRect(W - R, T, R, sh), fill, R, sh);
    parts.Stretch(QRect(x, y + h - B, L, B), QRect(0, H - B, L, B));
    parts.Edge(QRect(x + L, y + h - B, dw, B), QRect(L, H - B, sw, B), fill, B, sw);
    parts.Stretch(QRect(x + w - R, y + h - B, R, B), QRect(W - R, H - B, R, B));
}

}  // namespace qpt
