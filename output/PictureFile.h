#pragma once

#include <QString>

#include "imaging/IEBitmap.h"
#include "output/ImageFileFormat.h"

namespace qpt {

// Writes an ie24RGB picture as a file of the given format: BMP by the
// engine's own writer, the others through the engine's encoders, PNG, TIFF
// and GIF with an opaque alpha channel where the format has one, as a
// 32-bit screen surface gives them. The bytes go to a temporary file in the
// same folder, which is flushed and renamed over `path` only when complete:
// a failed write (full disk, no permission, a folder of that name) leaves
// nothing under `path` and an older file of that name as it was. True when
// the file is in place.
bool WritePictureFile(const TIEBitmap& picture, const QString& path, TImageFileFormat format,
                      int jpegQuality);

}  // namespace qpt
