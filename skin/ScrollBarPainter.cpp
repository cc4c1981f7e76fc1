#include "skin/ScrollBarPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "skin/RdGraphic.h"
#include "skin/RdScrollBarImages.h"
#include "skin/SkinDraw.h"

namespace qpt {

namespace {

using P = TRdScrollBarImages::TPicture;

// The built-in look before any picture: the colours of the default thumb.
constexpr QRgb kPlainThumb = 0xFF5E6471;
constexpr QRgb kPlainThumbHot = 0xFF7F8797;

TRdGraphic* Usable(const TRdPictureProperty* picture) {
    return picture && !picture->Empty() ? picture->Graphic() : nullptr;
}

int Along(const TRdGraphic* graphic, bool vertical) {
    if (!graphic) return 0;
    return vertical ? graphic->Height() : graphic->Width();
}

QRect Piece(const QRect& r, bool vertical, int start, int length) {
    return vertical ? QRect(r.x(), r.y() + start, r.width(), length)
                    : QRect(r.x() + start, r.y(), length, r.height());
}

// The ends at their own length (halved when the rectangle is short), the
// middle between them; a lone middle covers everything.
void DrawPieces(QPainter& painter, const QRect& r, bool vertical, TRdGraphic* low,
                TRdGraphic* middle, TRdGraphic* high, const TDesignRect& slicing) {
    const int length = vertical ? r.height() : r.width();
    const int lowLength = std::min(Along(low, vertical), length / 2);
    const int highLength = std::min(Along(high, vertical), length - lowLength);
    SkinDraw(painter, Piece(r, vertical, 0, lowLength), low, nullptr);
    SkinDraw(painter, Piece(r, vertical, lowLength, length - lowLength - highLength), middle,
             &slicing);
    SkinDraw(painter, Piece(r, vertical, length - highLength, highLength), high, nullptr);
}

void PlainThumb(QPainter& painter, const QRect& r, bool hot) {
    const qreal radius = std::min(r.width(), r.height()) / 4.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, radius >= 1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(hot ? kPlainThumbHot : kPlainThumb));
    painter.drawRoundedRect(r, radius, radius);
    painter.restore();
}

// A small triangle pointing away from the track.
void PlainArrow(QPainter& painter, const QRect& r, bool vertical, bool low, bool hot) {
    const QPointF c = QRectF(r).center();
    const qreal s = std::min(r.width(), r.height()) / 4.0;
    const qreal d = low ? -s : s;
    QPainterPath path;
    if (vertical) {
        path.moveTo(c.x() - s, c.y() - d / 2);
        path.lineTo(c.x() + s, c.y() - d / 2);
        path.lineTo(c.x(), c.y() + d / 2);
    } else {
        path.moveTo(c.x() - d / 2, c.y() - s);
        path.lineTo(c.x() - d / 2, c.y() + s);
        path.lineTo(c.x() + d / 2, c.y());
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, QColor::fromRgba(hot ? kPlainThumbHot : kPlainThumb));
    painter.restore();
}

void DrawArrow(QPainter& painter, const QRect& r, const TRdScrollBarImages& images, bool vertical,
               bool low, bool hot) {
    if (r.isEmpty()) return;
    TRdGraphic* picture = low ? Usable(images.Picture(P::ipBtnLeft, P::ipBtnLeftHot, hot))
                              : Usable(images.Picture(P::ipBtnRight, P::ipBtnRightHot, hot));
    if (picture)
        SkinDraw(painter, r, picture, nullptr);
    else
        PlainArrow(painter, r, vertical, low, hot);
}

void DrawThumb(QPainter& painter, const TScrollBarLayout& layout, const TRdScrollBarImages& images,
               bool hot) {
    const QRect r = ThumbDrawRect(layout, images);
    if (r.isEmpty()) return;
    TRdGraphic* low = Usable(images.Picture(P::ipTrackTop, P::ipTrackTopHot, hot));
    TRdGraphic* middle = Usable(images.Picture(P::ipTrackCenter, P::ipTrackCenterHot, hot));
    TRdGraphic* high = Usable(images.Picture(P::ipTrackBottom, P::ipTrackBottomHot, hot));
    if (!low && !middle && !high)
        PlainThumb(painter, r, hot);
    else
        DrawPieces(painter, r, layout.vertical, low, middle, high, images.Track_Option()->Rect());
}

}  // namespace

void PaintScrollBar(QPainter& painter, const TScrollBarLayout& layout,
                    const TRdScrollBarImages& images, TScrollBarPart hot) {
    const bool v = layout.vertical;
    DrawPieces(painter, layout.track, v, Usable(images.ScrollBgTop()), Usable(images.ScrollBg()),
               Usable(images.ScrollBgBottom()), images.ScrollBg_Option()->Rect());
    DrawArrow(painter, layout.arrowLow, images, v, true, hot == TScrollBarPart::spArrowLow);
    DrawArrow(painter, layout.arrowHigh, images, v, false, hot == TScrollBarPart::spArrowHigh);
    DrawThumb(painter, layout, images, hot == TScrollBarPart::spThumb);
}

QRect ThumbDrawRect(const TScrollBarLayout& layout, const TRdScrollBarImages& images) {
    const int across = ThumbPictureThickness(images, layout.vertical);
    if (!images.AutoCenter() || across <= 0) return layout.thumb;
    QRect r = layout.thumb;
    if (layout.vertical) {
        const int w = std::min(across, r.width());
        return QRect(r.x() + (r.width() - w) / 2, r.y(), w, r.height());
    }
    const int h = std::min(across, r.height());
    return QRect(r.x(), r.y() + (r.height() - h) / 2, r.width(), h);
}

int ThumbEndsLength(const TRdScrollBarImages& images, bool vertical) {
    return Along(Usable(images.TrackTop()), vertical) +
           Along(Usable(images.TrackBottom()), vertical);
}

int ThumbPictureThickness(const TRdScrollBarImages& images, bool vertical) {
    const TRdGraphic* picture = Usable(images.TrackCenter());
    if (!picture) return 0;
    return vertical ? picture->Width() : picture->Height();
}

}  // namespace qpt
