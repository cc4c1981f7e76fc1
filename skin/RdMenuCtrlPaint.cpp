// Painting of one menu level, back to front: background, icon bar and its
// edge, frame, hot entry, then each entry with its line, icon, check mark,
// arrow and caption.
#include <QPainter>
#include <QPainterPath>

#include "skin/MenuItem.h"
#include "skin/RdGraphic.h"
#include "skin/RdImageNoteList.h"
#include "skin/RdMenuCtrl.h"
#include "skin/RdPictureProperty.h"
#include "skin/SkinQColor.h"
#include "support/color/ColorNames.h"

namespace qpt {

namespace {

bool Drawn(quint32 color) {
    return color != clNone;
}

// Draws a skin picture centred in `cell`, in grey when asked; false when
// the picture is empty so the caller can draw its stand-in.
bool DrawCentred(QPainter& painter, const TRdPictureProperty* picture, const QRect& cell,
                 bool gray) {
    if (picture->Empty()) return false;
    TRdGraphic* graphic = picture->Graphic();
    const QSize size(graphic->Width(), graphic->Height());
    const QRect dest(cell.left() + (cell.width() - size.width()) / 2,
                     cell.top() + (cell.height() - size.height()) / 2, size.width(), size.height());
    graphic->DrawPart(painter, dest, QRect(QPoint(0, 0), size), graphic->DrawAlpha(), gray,
                      TPngSmoothFilter::psfDefault);
    return true;
}

void DrawBuiltInCheck(QPainter& painter, const QRect& cell, const QColor& ink, bool radio) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF c = QRectF(cell).center();
    if (radio) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(c, 3, 3);
    } else {
        painter.setPen(QPen(ink, 1.6));
        painter.drawPolyline(
            QPolygonF({c + QPointF(-4, 0), c + QPointF(-1, 3), c + QPointF(4, -3)}));
    }
    painter.restore();
}

void DrawBuiltInArrow(QPainter& painter, const QRect& cell, const QColor& ink) {
    const QPoint c = cell.center();
    QPainterPath path;
    path.addPolygon(QPolygon({c + QPoint(-2, -4), c + QPoint(2, 0), c + QPoint(-2, 4)}));
    painter.fillPath(path, ink);
}

QColor Gray(const QColor& color) {
    const int g = qGray(color.rgb());
    return QColor(g, g, g, color.alpha());
}

}  // namespace

// clBackground stands for the menu's own background, clDefault for the
// separators' colour, so a skin can tie the edge to either.
quint32 TRdMenuCtrl::VertLineColor() const {
    const quint32 color = menu_->Looks().ColorVertLine;
    if (color == clBackground) return menu_->Looks().ColorBackground;
    if (color == clDefault) return menu_->Looks().ColorSeparator;
    return color;
}

void TRdMenuCtrl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const TMenuMetrics m = Metrics();
    painter.fillRect(rect(), SkinQColor(menu_->Looks().ColorBackground));
    if (m.HasBar) PaintIconBar(painter, m);
    if (Drawn(menu_->Looks().ColorBorder) && menu_->Looks().ColorBorder != clBackground) {
        painter.setPen(SkinQColor(menu_->Looks().ColorBorder));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    PaintHot(painter);
    for (int i = 0; i < level_->Count(); ++i)
        PaintItem(painter, m, i);
}

void TRdMenuCtrl::PaintIconBar(QPainter& painter, const TMenuMetrics& m) const {
    if (Drawn(menu_->Looks().ColorIconBar))
        painter.fillRect(menulayout::IconBar(m, rect()), SkinQColor(menu_->Looks().ColorIconBar));
    const quint32 edge = VertLineColor();
    if (!Drawn(edge)) return;
    painter.setPen(SkinQColor(edge));
    painter.drawLine(menulayout::VertLine(m, rect()));
}

void TRdMenuCtrl::PaintHot(QPainter& painter) const {
    if (hot_ < 0 || (SubForm() && subIndex_ != hot_)) return;
    const QRect paint = ItemRect(hot_);
    const QColor light = SkinQColor(menu_->Looks().ColorHighLight);
    if (!menu_->Looks().LightBorder) {
        painter.fillRect(paint, light);
        return;
    }
    painter.setPen(light);
    painter.setBrush(SkinQColor(menu_->Looks().ColorBackground));
    painter.drawRoundedRect(paint.adjusted(0, 0, -1, -1), 2, 2);
    painter.fillRect(paint.adjusted(2, 2, -2, -2), light);
}

void TRdMenuCtrl::PaintItem(QPainter& painter, const TMenuMetrics& m, int index) const {
    const TMenuItem& item = *level_->Items(index);
    const QRect paint = ItemRect(index);
    if (paint.isEmpty()) return;
    if (item.IsLine()) {
        PaintSeparator(painter, m, paint);
        return;
    }
    const bool hot = index == hot_;
    const TRdFont* font = RowFont(item, hot);
    const QColor ink = font->ToQColor();
    if (item.Checked())
        PaintCheck(painter, m, item, paint, ink);
    else
        PaintIcon(painter, m, item, paint);
    if (item.Count() > 0) PaintArrow(painter, m, paint, item.Enabled() ? ink : Gray(ink));
    painter.setFont(CaptionFont(*font, item));
    painter.setPen(ink);
    painter.drawText(menulayout::TextRect(m, paint, item.Count() > 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextShowMnemonic,
                     item.Caption());
}

void TRdMenuCtrl::PaintSeparator(QPainter& painter, const TMenuMetrics& m,
                                 const QRect& paint) const {
    if (!Drawn(menu_->Looks().ColorSeparator)) return;
    painter.setPen(SkinQColor(menu_->Looks().ColorSeparator));
    painter.drawLine(
        menulayout::SeparatorLine(m, paint, rect(), Drawn(menu_->Looks().ColorVertLine)));
}

void TRdMenuCtrl::PaintIcon(QPainter& painter, const TMenuMetrics& m, const TMenuItem& item,
                            const QRect& paint) const {
    const QRect cell = menulayout::IconCell(m, paint);
    if (const TRdImageNoteList* images = menu_->Looks().Images) {
        const auto choice = menulayout::IconChoice(item.ImageIndex(), images->Count(),
                                                   level_->Count(), item.Enabled());
        if (images->Draw(painter, choice.Index, cell, choice.Gray)) return;
    }
    DrawCentred(painter, item.Bitmap(), cell, !item.Enabled());
}

void TRdMenuCtrl::PaintCheck(QPainter& painter, const TMenuMetrics& m, const TMenuItem& item,
                             const QRect& paint, const QColor& ink) const {
    const QRect cell = menulayout::IconCell(m, paint);
    const TRdPictureProperty* picture =
        item.RadioItem() ? menu_->Looks().PictureRadio : menu_->Looks().PictureCheck;
    if (!DrawCentred(painter, picture, cell, !item.Enabled()))
        DrawBuiltInCheck(painter, cell, item.Enabled() ? ink : Gray(ink), item.RadioItem());
}

void TRdMenuCtrl::PaintArrow(QPainter& painter, const TMenuMetrics& m, const QRect& paint,
                             const QColor& ink) const {
    const TRdPictureProperty* picture = menu_->Looks().PictureArrow;
    const QSize size = picture->Empty()
                           ? QSize(16, 16)
                           : QSize(picture->Graphic()->Width(), picture->Graphic()->Height());
    const QRect cell = menulayout::ArrowRect(m, paint, size);
    if (!DrawCentred(painter, picture, cell, false)) DrawBuiltInArrow(painter, cell, ink);
}

}  // namespace qpt
