#include "skin/RdScrollBarEx.h"

namespace qpt {

TRdScrollBarEx::TRdScrollBarEx(QWidget* parent) : TScrollBarControl<TRdGraphicControl>(parent) {}

void TRdScrollBarEx::SetOwnerDraw(bool value) {
    if (ownerDraw_ == value) return;
    ownerDraw_ = value;
    update();
}

void TRdScrollBarEx::PaintBar(QPainter& painter) {
    if (ownerDraw_ && OnDrawControl)
        OnDrawControl(*this, painter);
    else
        TScrollBarControl::PaintBar(painter);
    if (OnPaintEnd) {
        painter.setOpacity(1);
        OnPaintEnd(*this, painter);
    }
}

void TRdScrollBarEx::changeEvent(QEvent* event) {
    TScrollBarControl::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && OnEnabledChange) OnEnabledChange(*this);
}

}  // namespace qpt
