#include "imaging/IEImageIO.h"

#include <QFileInfo>
#include <QImageReader>

#include "imaging/IEBmpReader.h"
#include "imaging/IEByteSource.h"

namespace qpt {

namespace {

// Qt's reader name of each format that goes through the platform codecs.
QByteArray QtFormatName(TIOFileType type) {
    switch (type) {
        case ioPNG:
            return "png";
        case ioJPEG:
            return "jpeg";
        case ioGIF:
            return "gif";
        case ioTIFF:
            return "tiff";
        default:
            return {};
    }
}

bool CanRead(TIOFileType type) {
    return type == ioBMP || QImageReader::supportedImageFormats().contains(QtFormatName(type));
}

bool IsUrl(const QString& name) {
    return name.startsWith("http://", Qt::CaseInsensitive) ||
           name.startsWith("https://", Qt::CaseInsensitive) ||
           name.startsWith("ftp://", Qt::CaseInsensitive);
}

}  // namespace

TIOFileType IEFileTypeOfExtension(const QString& extension) {
    static const struct {
        const char* Ext;
        TIOFileType Type;
    } kTable[] = {{"bmp", ioBMP},  {"dib", ioBMP},   {"rle", ioBMP},  {"png", ioPNG},
                  {"jpg", ioJPEG}, {"jpeg", ioJPEG}, {"jpe", ioJPEG}, {"jfif", ioJPEG},
                  {"gif", ioGIF},  {"tif", ioTIFF},  {"tiff", ioTIFF}};
    const QString ext = extension.toLower();
    for (const auto& row : kTable)
        if (ext == QLatin1String(row.Ext)) return CanRead(row.Type) ? row.Type : ioUnknown;
    return ioUnknown;
}

TIOFileType IEDetectFileType(const QByteArray& head) {
    if (head.startsWith("BM") && head.size() >= 18) return ioBMP;
    if (head.startsWith("\x89PNG\r\n\x1a\n")) return ioPNG;
    if (head.startsWith("\xFF\xD8\xFF")) return ioJPEG;
    if (head.startsWith("GIF87a") || head.startsWith("GIF89a")) return ioGIF;
    if (head.startsWith(QByteArray("II*\0", 4)) || head.startsWith(QByteArray("MM\0*", 4)))
        return ioTIFF;
    return ioUnknown;
}

bool TIEImageIO::LoadFromFile(const QString& fileName, bool checkUnknownFormats) {
    aborting_ = true;
    if (!bitmap_ || IsUrl(fileName)) return false;
    TIOFileType type = IEFileTypeOfExtension(QFileInfo(fileName).suffix());
    if (checkUnknownFormats) {
        TIEFileSource file(fileName);
        QByteArray head(32, '\0');
        head.resize(qsizetype(file.ReadAt(0, head.data(), head.size())));
        const TIOFileType found = IEDetectFileType(head);
        if (found != ioUnknown && CanRead(found)) type = found;
    }
    if (type == ioUnknown || !Decode(fileName, type)) return false;
    aborting_ = false;
    params_ = {fileName, type, bitmap_->Width(), bitmap_->Height()};
    if (OnLoaded) OnLoaded();
    return true;
}

bool TIEImageIO::Decode(const QString& fileName, TIOFileType type) {
    if (type == ioBMP) {
        TIEFileSource source(fileName);
        return source.IsOpen() && IEReadBmp(source, *bitmap_);
    }
    QImageReader reader(fileName, QtFormatName(type));
    reader.setDecideFormatFromContent(false);
    const QImage image = reader.read();
    if (image.isNull()) return false;
    TIEBitmap fresh;
    fresh.SetMinFileSize(bitmap_->MinFileSize());
    fresh.SetLocation(bitmap_->Location());
    fresh.Assign(image);
    if (!fresh.IsAllocated()) return false;
    *bitmap_ = std::move(fresh);
    return true;
}

}  // namespace qpt
