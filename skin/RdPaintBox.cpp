#include "skin/RdPaintBox.h"

namespace qpt {

TRdPaintBox::TRdPaintBox(QWidget* parent) : TRdGraphicControl(parent) {}

void TRdPaintBox::paintEvent(QPaintEvent*) {
    if (!OnPaint) return;
    QPainter painter(this);
    painter.setFont(Font()->ToQFont());
    painter.setPen(Font()->ToQColor());
    OnPaint(*this, painter);
}

}  // namespace qpt
