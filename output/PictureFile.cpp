#include "output/PictureFile.h"

#include <QSaveFile>

#include "imaging/IEBmpWriter.h"
#include "imaging/encode/IEGifEncoder.h"
#include "imaging/encode/IEJpegEncoder.h"
#include "imaging/encode/IEPngEncoder.h"
#include "imaging/encode/IETiffEncoder.h"

namespace qpt {

namespace {

// Rows in one block at a fixed spacing, which the encoders need: plain
// memory or a QImage, not segments or a file seen through a window.
bool IsOneBlock(const TIEBitmap& picture) {
    return picture.Location() == ieTBitmap ||
           (picture.Location() == ieMemory && !picture.IsSegmented());
}

TIEPixelView PixelViewOf(const TIEBitmap& picture) {
    const ptrdiff_t stride =
        picture.Height() > 1 ? picture.Scanline(1) - picture.Scanline(0) : picture.RowLen();
    return {picture.Scanline(0), picture.Width(), picture.Height(), stride, TIEPixelLayout::Bgr24};
}

bool Encode(const TIEPixelView& view, TImageFileFormat format, int jpegQuality, int fd) {
    switch (format) {
        case TImageFileFormat::Png:
            return IEEncodePng(view, fd, {TIEAlphaOut::Opaque, 0});
        case TImageFileFormat::Jpeg:
            return IEEncodeJpeg(view, jpegQuality, fd);
        case TImageFileFormat::Tiff:
            return IEEncodeTiff(view, TIEAlphaOut::Opaque, fd);
        case TImageFileFormat::Gif:
            return IEEncodeGif(view, fd);
        case TImageFileFormat::Bmp:
        case TImageFileFormat::None:
            break;
    }
    return false;
}

}  // namespace

bool WritePictureFile(const TIEBitmap& picture, const QString& path, TImageFileFormat format,
                      int jpegQuality) {
    if (picture.PixelFormat() != ie24RGB || !picture.IsAllocated()) return false;
    if (format == TImageFileFormat::Bmp) return IEWriteBmpFile(picture, path);
    if (format == TImageFileFormat::None) return false;
    if (!IsOneBlock(picture)) {
        TIEBitmap copy;
        copy.SetLocation(ieTBitmap);
        copy.Assign(picture);
        return copy.IsAllocated() && WritePictureFile(copy, path, format, jpegQuality);
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    if (!Encode(PixelViewOf(picture), format, jpegQuality, file.handle())) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

}  // namespace qpt
