#include "skin/RdComboBoxPanel.h"

#include "skin/SkinQColor.h"

namespace qpt {

TRdComboBoxPanel::TRdComboBoxPanel(QWidget* parent) : TRdPanel(parent) {}

void TRdComboBoxPanel::SetBorderColor(quint32 value) {
    if (value == borderColor_) return;
    borderColor_ = value;
    update();
}

void TRdComboBoxPanel::paintEvent(QPaintEvent* event) {
    TRdPanel::paintEvent(event);
    if (borderColor_ == clNone) return;
    QPainter painter(this);
    painter.setOpacity(DrawAlpha() / 255.0);
    painter.setPen(SkinQColor(borderColor_));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace qpt
