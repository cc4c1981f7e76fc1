#include "skin/RdStretchImage.h"

#include "skin/SkinDraw.h"

namespace qpt {

TRdStretchImage::TRdStretchImage(QWidget* parent)
    : TRdPaintBox(parent),
      pictureBg_(new TRdPictureProperty(this)),
      picture_(new TRdPictureProperty(this)),
      stretchOption_(new TDesignRectProperty(this)) {
    const auto repaint = qOverload<>(&QWidget::update);
    connect(pictureBg_, &TRdPictureProperty::Changed, this, repaint);
    connect(picture_, &TRdPictureProperty::Changed, this, repaint);
    connect(stretchOption_, &TDesignRectProperty::Changed, this, repaint);
}

void TRdStretchImage::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setOpacity(DrawAlpha() / 255.0);
        SkinDraw(painter, rect(), pictureBg_->Graphic(), nullptr);
        SkinDraw(painter, rect(), picture_->Graphic(), &stretchOption_->Rect());
    }
    TRdPaintBox::paintEvent(event);
}

}  // namespace qpt
