// The bridge between TIEBitmap and QImage, the platform bitmap of the engine.
#include <cstring>

#include "imaging/IEBitmap.h"

namespace qpt {

namespace {

QImage::Format DefaultQtFormat(TIEPixelFormat format) {
    switch (format) {
        case ie1g:
            return QImage::Format_Mono;
        case ie8p:
            return QImage::Format_Indexed8;
        case ie8g:
            return QImage::Format_Grayscale8;
        case ie24RGB:
            return QImage::Format_BGR888;
        case ie32RGB:
            return QImage::Format_ARGB32_Premultiplied;
        default:
            return QImage::Format_Invalid;
    }
}

TIEPixelFormat FormatOfQt(QImage::Format format) {
    switch (format) {
        case QImage::Format_Mono:
            return ie1g;
        case QImage::Format_Indexed8:
            return ie8p;
        case QImage::Format_Grayscale8:
            return ie8g;
        case QImage::Format_BGR888:
            return ie24RGB;
        case QImage::Format_RGB32:
        case QImage::Format_ARGB32:
        case QImage::Format_ARGB32_Premultiplied:
            return ie32RGB;
        default:
            return ieNull;
    }
}

QList<QRgb> ColorTableOf(const std::vector<TRGB>& palette) {
    QList<QRgb> table;
    table.reserve(qsizetype(palette.size()));
    for (const TRGB& c : palette)
        table.append(qRgb(c.r, c.g, c.b));
    return table;
}

}  // namespace

QImage TIEBitmap::WrapQImage(QImage::Format format) {
    if (!IsAllocated() || origin_ == 1 || !segments_.empty()) return {};
    const QImage::Format natural = DefaultQtFormat(format_);
    if (natural == QImage::Format_Invalid) return {};
    if (format == QImage::Format_Invalid) format = natural;
    if (QImage::toPixelFormat(format).bitsPerPixel() != uint(bitCount_)) return {};
    uint8_t* bits = location_ == ieFile ? tempStore_.MapAll() : base_;
    if (!bits) return {};
    QImage image(bits, width_, height_, qsizetype(rowLen_), format);
    if (format == QImage::Format_Mono) image.setColorTable({0xFF000000u, 0xFFFFFFFFu});
    if (format == QImage::Format_Indexed8) image.setColorTable(ColorTableOf(palette_));
    return image;
}

void TIEBitmap::EncapsulateTBitmap(QImage* image) {
    FreeStore();
    auto plane = std::move(alpha_);
    ResetFields();
    if (!image || image->isNull()) return;
    if (FormatOfQt(image->format()) == ieNull)
        *image = image->convertToFormat(
            image->hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_BGR888);
    borrowedImage_ = image;
    location_ = ieTBitmap;
    origin_ = 0;
    SetFormatFields(FormatOfQt(image->format()));
    width_ = image->width();
    height_ = image->height();
    base_ = image->bits();
    rowLen_ = image->bytesPerLine();
    needAlloc_ = false;
    if (format_ == ie8p)
        for (int i = 0; i < std::min<int>(256, int(image->colorCount())); ++i) {
            const QRgb c = image->color(i);
            palette_[size_t(i)] = {uint8_t(qBlue(c)), uint8_t(qGreen(c)), uint8_t(qRed(c))};
        }
    if (plane && plane->width_ == width_ && plane->height_ == height_) alpha_ = std::move(plane);
}

void TIEBitmap::Assign(const QImage& source) {
    if (source.isNull()) {
        Free();
        return;
    }
    TIEPixelFormat format = FormatOfQt(source.format());
    QImage image = source;
    if (format == ie32RGB || format == ieNull) {
        format = ie24RGB;
        image = source.convertToFormat(QImage::Format_BGR888);
    } else if (source.format() == QImage::Format_Mono && source.colorCount() == 2 &&
               qGray(source.color(0)) > qGray(source.color(1))) {
        image.invertPixels();  // keep bit 1 white whatever the table says
    }
    if (!Allocate(source.width(), source.height(), format)) return;
    const int64_t bytes = std::min<int64_t>(rowLen_, image.bytesPerLine());
    for (int y = 0; y < height_; ++y)
        std::memcpy(Scanline(y), image.constScanLine(y), bytes);
    if (format == ie8p)
        for (int i = 0; i < std::min<int>(256, int(image.colorCount())); ++i) {
            const QRgb c = image.color(i);
            palette_[size_t(i)] = {uint8_t(qBlue(c)), uint8_t(qGreen(c)), uint8_t(qRed(c))};
        }
    if (!source.hasAlphaChannel() || IsAlpha()) {
        RemoveAlphaChannel();
        return;
    }
    const QImage alpha = source.convertToFormat(QImage::Format_Alpha8);
    TIEBitmap* plane = AlphaChannel();
    for (int y = 0; y < height_; ++y)
        std::memcpy(plane->Scanline(y), alpha.constScanLine(y), width_);
    plane->SyncFull();
}

}  // namespace qpt
