#include "skin/RdImage.h"

#include "skin/RdGraphic.h"

namespace qpt {

TRdImage::TRdImage(QWidget* parent)
    : TRdGraphicControl(parent), picture_(new TRdPictureProperty(this)) {
    connect(picture_, &TRdPictureProperty::Changed, this, qOverload<>(&QWidget::update));
}

void TRdImage::Change(bool& field, bool value) {
    if (field == value) return;
    field = value;
    update();
}

void TRdImage::SetStretch(bool value) {
    Change(stretch_, value);
}
void TRdImage::SetCenter(bool value) {
    Change(center_, value);
}
void TRdImage::SetProportional(bool value) {
    Change(proportional_, value);
}

QRect TRdImage::DestRect() const {
    if (picture_->Empty()) return {};
    QSize size(picture_->Graphic()->Width(), picture_->Graphic()->Height());
    if (stretch_) {
        if (!proportional_) return rect();
        size.scale(this->size(), Qt::KeepAspectRatio);
    }
    if (!center_ && !stretch_) return QRect(QPoint(0, 0), size);
    return QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size);
}

void TRdImage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (OnPaint) OnPaint(*this, painter);
    const QRect dest = DestRect();
    if (!dest.isEmpty()) picture_->Graphic()->DrawAlpha(painter, dest, DrawAlpha());
    if (OnPaintEnd) OnPaintEnd(*this, painter);
}

}  // namespace qpt
