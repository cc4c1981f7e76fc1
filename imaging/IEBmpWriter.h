#pragma once

#include <QIODevice>
#include <QString>

#include "imaging/IEBitmap.h"

namespace qpt {

// Writes a bottom-up BMP: ie24RGB as 24 bits, or as 32 bits with an alpha
// mask when it carries an alpha plane that is not full; ie32RGB as 32 bits
// with alpha; ie8g and ie8p as 8 bits with their palette; ie1g as 1 bit.
// False for other formats or when the device refuses the bytes.
bool IEWriteBmp(const TIEBitmap& bitmap, QIODevice& device);
bool IEWriteBmpFile(const TIEBitmap& bitmap, const QString& path);

}  // namespace qpt
