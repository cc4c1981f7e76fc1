#include "tests/skin/ImageButtonStage.h"

#include "skin/PngImage.h"

namespace qpt::testing {

void SetPicture(TRdPictureProperty* property, const QImage& image) {
    auto png = std::make_unique<TPngImage>();
    png->SetPixels(image);
    property->Picture().SetGraphic(std::move(png));
}

void SetPicture(TRdPictureProperty* property, QRgb color, QSize size) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    SetPicture(property, image);
}

QImage Shot(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

ImageButtonStage::ImageButtonStage() {
    window.resize(200, 100);
    button->setGeometry(10, 10, 100, 40);
    SetPicture(button->ImageNormal(), kNormal);
    SetPicture(button->ImageOver(), kOver);
    SetPicture(button->ImageDown(), kDown);
    SetPicture(button->ImageSelected(), kSelected);
    SetPicture(button->ImageDisabled(), kDisabled);
    button->OnClick = [this](TRdImageButton&) { ++clicks; };
    button->IconOnClick = [this](TRdImageButton&) { ++iconClicks; };
}

void ImageButtonStage::AddIcon() {
    SetPicture(button->DnNormalIcon(), kIcon, QSize(10, 10));
    SetPicture(button->DnHoverIcon(), kIconHover, QSize(10, 10));
    SetPicture(button->DnDownIcon(), kIconDown, QSize(10, 10));
    button->SetIconAlign(TImageButtonTypes::taRightJustify);
}

}  // namespace qpt::testing
