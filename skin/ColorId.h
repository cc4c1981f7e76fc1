#pragma once

#include <QByteArrayView>
#include <QString>

namespace qpt {

// CRC-32 with the reflected polynomial 0xEDB88320, start value all ones and
// the result inverted: the common checksum of zip and PNG.
quint32 Crc32(QByteArrayView bytes);

// The id a colour property holds for a named skin colour: the CRC-32 of the
// lower-cased name as UTF-16LE bytes, with the top byte forced to 255. Ids
// thus sit in the range of system colours, and a form can store the name's
// id long before any skin defines a value for it.
quint32 ColorId(const QString& name);

}  // namespace qpt
