#include "skin/DrawImagePart.h"

#include <QPaintDevice>
#include <QPainter>

namespace qpt {

namespace {

// A view on part of the pixels, without copying them.
QImage SubImage(const QImage& pixels, const QRect& part) {
    const uchar* first = pixels.constScanLine(part.top()) + size_t(part.left()) * 4;
    return QImage(first, part.width(), part.height(), pixels.bytesPerLine(), pixels.format());
}

bool Visible(const QPainter& painter, const QRect& dest) {
    if (painter.hasClipping() && !painter.clipBoundingRect().intersects(dest)) return false;
    const QPaintDevice* device = painter.device();
    if (!device) return false;
    return painter.worldTransform().mapRect(dest).intersects(
        QRect(0, 0, device->width(), device->height()));
}

}  // namespace

QImage GrayImage(const QImage& pixels) {
    QImage gray = pixels.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    gray.detach();
    for (int y = 0; y < gray.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(gray.scanLine(y));
        for (int x = 0; x < gray.width(); ++x) {
            const QRgb c = line[x];
            const int g = (77 * qRed(c) + 151 * qGreen(c) + 28 * qBlue(c)) >> 8;
            line[x] = qRgba(g, g, g, qAlpha(c));
        }
    }
    return gray;
}

void DrawImagePart(QPainter& painter, const QImage& pixels, const QRect& dest, const QRect& source,
                   int alpha, bool gray, TPngSmoothFilter smooth) {
    const QRect part = source.intersected(pixels.rect());
    if (alpha <= 0 || dest.isEmpty() || part.isEmpty() || !Visible(painter, dest)) return;
    QImage image = SubImage(pixels, part);
    if (gray) image = GrayImage(image);
    const bool sameSize = dest.size() == part.size();
    if (sameSize && alpha >= 255) {
        painter.drawImage(dest.topLeft(), image);
        return;
    }
    if (!sameSize && smooth == TPngSmoothFilter::psfSmooth)
        image = image.scaled(dest.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const qreal opacity = painter.opacity();
    const bool wasSmooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    if (alpha < 255) painter.setOpacity(opacity * alpha / 255.0);
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          smooth == TPngSmoothFilter::psfFastSmooth);
    painter.drawImage(dest, image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, wasSmooth);
    painter.setOpacity(opacity);
}

}  // namespace qpt
