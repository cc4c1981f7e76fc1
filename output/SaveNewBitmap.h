#pragma once

#include <QString>

namespace qpt {

class TIEBitmap;
class TIEImageView;

// Writes the picture of the view (flattened by the caller) to `path`, in
// the format its extension names in any case: ".bmp", ".png", ".jpg" or
// ".jpeg", ".tif" or ".tiff", ".gif"; for any other extension nothing is
// written. JPEG takes its quality from the session's JpegQuality. On the way
// the picture is also written to "11.bmp" in the private temporary folder
// and deleted again, and each step leaves its line in the log.
//
// True only when the file is in place under `path`; a failed write leaves
// no file of that name behind and an older one untouched, so the caller
// can keep the picture elsewhere.
bool SaveNewBitmap(TIEImageView& view, const QString& path);
// The same for a picture at hand (ie24RGB).
bool SaveNewBitmap(const TIEBitmap& picture, const QString& path);

}  // namespace qpt
