#pragma once

#include "imaging/IEBitmap.h"
#include "imaging/IEByteSource.h"

namespace qpt {

// Limits that a header must respect before anything is allocated.
inline constexpr int kBmpMaxSide = 1 << 16;
inline constexpr int64_t kBmpMaxPixels = int64_t(1) << 28;

// Reads a BMP file (core and info headers up to the fifth version; 1, 4, 8,
// 16, 24 and 32 bits; bit fields; RLE4 and RLE8; either row order) into an
// ie24RGB picture, with an alpha plane when the file carries real alpha.
// A file cut short gives the rows that arrived; a header that cannot be
// trusted gives false and leaves the bitmap as it was. The bitmap keeps its
// storage settings (location, MinFileSize).
bool IEReadBmp(TIEByteSource& source, TIEBitmap& bitmap);

}  // namespace qpt
