#include "skin/RdBitmap.h"

#include <QPainter>

namespace qpt {

namespace {

constexpr QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

}  // namespace

void TRdBitmap::SetSize(int width, int height) {
    if (width < 1 || height < 1) {
        image_ = QImage();
        return;
    }
    image_ = QImage(width, height, kFormat);
    image_.fill(Qt::transparent);
}

void TRdBitmap::Assign(const QImage& source) {
    image_ = source.isNull() ? QImage() : source.convertToFormat(kFormat);
}

QRgb TRdBitmap::Pixel(int x, int y) const {
    if (!image_.valid(x, y)) return 0;
    return image_.pixelColor(x, y).rgba();
}

void TRdBitmap::Draw(QPainter& painter, QPoint at, int alpha) const {
    if (Empty() || alpha <= 0) return;
    const qreal before = painter.opacity();
    painter.setOpacity(before * qMin(alpha, 255) / 255.0);
    painter.drawImage(at, image_);
    painter.setOpacity(before);
}

}  // namespace qpt
