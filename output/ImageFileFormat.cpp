#include "output/ImageFileFormat.h"

namespace qpt {

namespace {

// Where the extension starts: the last dot after the last delimiter, or the
// end of the path.
qsizetype ExtensionStart(const QString& path) {
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot > path.lastIndexOf(u'/') ? dot : path.size();
}

}  // namespace

QString ExtractFileExt(const QString& path) {
    return path.mid(ExtensionStart(path));
}

QString ChangeFileExt(const QString& path, const QString& extension) {
    return path.left(ExtensionStart(path)) + extension;
}

TImageFileFormat ImageFileFormatOf(const QString& extension) {
    const QString e = extension.toLower();
    if (e == u".bmp") return TImageFileFormat::Bmp;
    if (e == u".png") return TImageFileFormat::Png;
    if (e == u".jpg" || e == u".jpeg") return TImageFileFormat::Jpeg;
    if (e == u".tif" || e == u".tiff") return TImageFileFormat::Tiff;
    if (e == u".gif") return TImageFileFormat::Gif;
    return TImageFileFormat::None;
}

}  // namespace qpt
