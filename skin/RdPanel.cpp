#include "skin/RdPanel.h"

#include "skin/FillSkinRect.h"

namespace qpt {

TRdPanel::TRdPanel(QWidget* parent) : TRdCustomControl(parent) {}

template <typename T>
void TRdPanel::Change(T& field, const T& value) {
    if (field == value) return;
    field = value;
    update();
}

void TRdPanel::SetCaption(const QString& value) {
    Change(caption_, value);
}
void TRdPanel::SetColor(quint32 value) {
    Change(color_, value);
}
void TRdPanel::SetColorTo(quint32 value) {
    Change(colorTo_, value);
}
void TRdPanel::SetColorToVert(bool value) {
    Change(colorToVert_, value);
}

void TRdPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(DrawAlpha() / 255.0);
    FillSkinRect(painter, rect(), color_, colorTo_,
                 colorToVert_ ? TGradientDirection::gdVertical : TGradientDirection::gdHorizontal);
    if (!caption_.isEmpty()) {
        painter.setFont(Font()->ToQFont());
        painter.setPen(Font()->ToQColor());
        painter.drawText(rect(), Qt::AlignCenter, caption_);
    }
    if (OnPaint) OnPaint(*this, painter);
}

}  // namespace qpt
