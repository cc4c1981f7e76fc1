#include "imaging/IERetouchStroke.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace qpt {

void TIERetouchStroke::Clear() {
    bitmap_.Free();
    rect_ = QRect();
}

QRect TIERetouchStroke::BrushBox(QPoint at, QSize brush) {
    return QRect(at.x() - brush.width() / 2, at.y() - brush.height() / 2, brush.width(),
                 brush.height());
}

void TIERetouchStroke::Stamp(const TIEBitmap& picture, QPoint at, QSize brush,
                             TIECursorShape shape) {
    const QRect box = BrushBox(at, brush);
    const QRect cut = box & QRect(0, 0, picture.Width(), picture.Height());
    if (cut.isEmpty() || brush.isEmpty() || picture.PixelFormat() != ie24RGB) return;
    // Without memory for the buffer the stroke just leaves this stamp out.
    if (!Cover(picture, cut)) return;
    Footprint(brush, shape);
    DrawFootprint(box, cut);
}

void TIERetouchStroke::StampLine(const TIEBitmap& picture, QPoint from, QPoint to, QSize brush,
                                 TIECursorShape shape) {
    // Growing once for the whole segment keeps a fast move from copying the
    // buffer once per stamp.
    const QRect all = (BrushBox(from, brush) | BrushBox(to, brush)) &
                      QRect(0, 0, picture.Width(), picture.Height());
    if (all.isEmpty() || picture.PixelFormat() != ie24RGB) return;
    if (!Cover(picture, all)) return;
    const int dx = to.x() - from.x(), dy = to.y() - from.y();
    const int n = std::max(std::abs(dx), std::abs(dy));
    for (int i = 0; i <= n; ++i) {
        const QPoint at = n == 0 ? from
                                 : from + QPoint(int(std::lround(double(dx) * i / n)),
                                                 int(std::lround(double(dy) * i / n)));
        Stamp(picture, at, brush, shape);
    }
}

bool TIERetouchStroke::Cover(const TIEBitmap& picture, const QRect& rect) {
    if (!Empty() && rect_.contains(rect)) return true;
    const QRect grown = Empty() ? rect : (rect_ | rect);
    TIEBitmap next;
    if (!next.Allocate(grown.width(), grown.height(), ie24RGB)) return false;
    TIEBitmap* alpha = next.AlphaChannel();
    alpha->Fill(0);
    alpha->SetFull(false);
    // The picture does not change during a stroke, so the whole box comes
    // from it; only the footprint drawn so far has to move over.
    for (int y = 0; y < grown.height(); ++y)
        std::memcpy(next.Scanline(y), picture.Scanline(grown.y() + y) + int64_t(grown.x()) * 3,
                    size_t(grown.width()) * 3);
    if (!Empty()) {
        const TIEBitmap& oldAlpha = *bitmap_.AlphaChannelIfAny();
        const int ox = rect_.x() - grown.x(), oy = rect_.y() - grown.y();
        for (int y = 0; y < rect_.height(); ++y)
            std::memcpy(alpha->Scanline(oy + y) + ox, oldAlpha.Scanline(y), size_t(rect_.width()));
    }
    bitmap_ = std::move(next);
    rect_ = grown;
    return true;
}

const std::vector<uint8_t>& TIERetouchStroke::Footprint(QSize brush, TIECursorShape shape) {
    const bool round = shape == iecsCircle;
    const TIECursorShape kind = round ? iecsCircle : iecsRectangle;
    if (brush == footprintSize_ && kind == footprintShape_) return footprint_;
    footprintSize_ = brush;
    footprintShape_ = kind;
    const int w = brush.width(), h = brush.height();
    footprint_.assign(size_t(w) * size_t(h), round ? 0 : 255);
    if (round) {
        // Pixel centres inside the ellipse inscribed in the box.
        const double rx = w / 2.0, ry = h / 2.0;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const double u = (x + 0.5 - rx) / rx, v = (y + 0.5 - ry) / ry;
                if (u * u + v * v <= 1.0) footprint_[size_t(y) * size_t(w) + size_t(x)] = 255;
            }
    }
    return footprint_;
}

void TIERetouchStroke::DrawFootprint(const QRect& box, const QRect& cut) {
    TIEBitmap* alpha = bitmap_.AlphaChannel();
    for (int y = cut.top(); y <= cut.bottom(); ++y) {
        const uint8_t* fp = &footprint_[size_t(y - box.y()) * size_t(box.width())];
        uint8_t* row = alpha->Scanline(y - rect_.y());
        for (int x = cut.left(); x <= cut.right(); ++x)
            row[x - rect_.x()] |= fp[x - box.x()];
    }
    alpha->SetFull(false);
}

}  // namespace qpt
