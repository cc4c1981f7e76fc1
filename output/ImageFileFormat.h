#pragma once

#include <QString>

namespace qpt {

// The picture formats a file can be written in, chosen by the extension.
enum class TImageFileFormat { None, Bmp, Png, Jpeg, Tiff, Gif };

// The extension of a path with its dot (".PNG"), taken after the last
// folder delimiter; empty when the name has no dot.
QString ExtractFileExt(const QString& path);

// The path with its extension replaced (or added when it has none).
QString ChangeFileExt(const QString& path, const QString& extension);

// ".bmp", ".png", ".jpg", ".jpeg", ".tif", ".tiff", ".gif" in any case; any
// other extension (and none) is TImageFileFormat::None.
TImageFileFormat ImageFileFormatOf(const QString& extension);

}  // namespace qpt
