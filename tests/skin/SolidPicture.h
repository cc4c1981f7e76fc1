#pragma once

#include <QImage>
#include <QWidget>
#include <memory>

#include "skin/PngImage.h"
#include "skin/RdPictureProperty.h"
#include "tests/skin/SkinPackageBuilder.h"

namespace qpt::testing {

// Puts a picture of one colour into a picture property.
inline void SetSolidPicture(TRdPictureProperty& property, int width, int height, QRgb color) {
    auto png = std::make_unique<TPngImage>();
    png->LoadFromBytes(PngBytes(width, height, color));
    property.Picture().SetGraphic(std::move(png));
}

// What a widget paints, over nothing.
inline QImage RenderWidget(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

}  // namespace qpt::testing
