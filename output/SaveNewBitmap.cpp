#include "output/SaveNewBitmap.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "app/session/SessionState.h"
#include "imaging/IEBitmap.h"
#include "imaging/IEBmpWriter.h"
#include "imaging/view/IEImageView.h"
#include "output/ImageFileFormat.h"
#include "output/PictureFile.h"
#include "support/LogManage.h"
#include "support/Paths.h"

namespace qpt {

namespace {

const QString kTag = QStringLiteral("[SaveNewBitmap]");

void Log(const QString& text) {
    WriteLog(kTag + text);
}

// The name and tag of each converted format, as its log line gives them.
QString ConverterName(TImageFileFormat format) {
    switch (format) {
        case TImageFileFormat::Png:
            return QStringLiteral("ffPng");
        case TImageFileFormat::Tiff:
            return QStringLiteral("ffTiff");
        case TImageFileFormat::Gif:
            return QStringLiteral("ffGif");
        default:
            return {};
    }
}

// The copy that every format is written from: a plain 24-bit picture in
// one block, without the alpha plane a canvas copy would not carry either.
TIEBitmap CopyOf(const TIEBitmap& picture) {
    TIEBitmap copy;
    copy.SetLocation(ieTBitmap);
    copy.Assign(picture);
    copy.RemoveAlphaChannel();
    return copy;
}

bool WriteByFormat(const TIEBitmap& copy, const QString& path, const QString& extension,
                   const QString& tempFile) {
    const TImageFileFormat format = ImageFileFormatOf(extension);
    const QString converter = ConverterName(format);
    if (converter.isEmpty())  // BMP and JPEG go straight to the file; failures stay silent
        return WritePictureFile(copy, path, format, JpegQuality & 0xFF);
    Log(QStringLiteral("ExtractFileIconToFile %1,sBmpFile:%2,aFileName,%3,sExt,%4")
            .arg(converter, tempFile, path, extension));
    const bool written = WritePictureFile(copy, path, format, 0);
    Log(written ? QStringLiteral("filepath:ExtractFileIconToFile,succ")
                : QStringLiteral("filepath:ExtractFileIconToFile,failed"));
    return written;
}

}  // namespace

bool SaveNewBitmap(const TIEBitmap& picture, const QString& path) {
    Log(QStringLiteral("filepath:SaveNewBitmap"));
    if (QDir().mkpath(QFileInfo(path).absolutePath())) Log(QStringLiteral("ForceDirectories done"));
    Log(QStringLiteral("filepath:SaveNewBitmap"));
    Log(QStringLiteral("filepath:ChangeFileExt,") + ChangeFileExt(path, QStringLiteral(".bmp")));
    const QString tempFolder = GetTempFolder();
    Log(QStringLiteral("filepath:GetEnvironmentVariable,") + tempFolder);
    // Without a private temporary folder there is no safe place for it.
    const QString tempFile =
        tempFolder.isEmpty() ? QString() : tempFolder + QStringLiteral("11.bmp");
    const TIEBitmap copy = CopyOf(picture);
    if (!tempFile.isEmpty()) IEWriteBmpFile(copy, tempFile);
    Log(QStringLiteral("filepath:SaveToFile,") + tempFile);
    const QString extension = ExtractFileExt(path);
    Log(QStringLiteral("filepath:ExtractFileExt,") + extension);
    const bool written = copy.IsAllocated() && WriteByFormat(copy, path, extension, tempFile);
    if (!tempFile.isEmpty()) QFile::remove(tempFile);
    return written;
}

bool SaveNewBitmap(TIEImageView& view, const QString& path) {
    const TIEBitmap* picture = view.IEBitmap();
    return picture && SaveNewBitmap(*picture, path);
}

}  // namespace qpt
