#pragma once

#include <QByteArray>
#include <QString>

namespace qpt {

// File access of the ini classes. Each returns 0 or the system's error
// number (never 0 after a failure: 1 stands in for an unknown cause).

// No settings or language file comes near this; a bigger one is no such file.
inline constexpr qint64 kMaxIniFileSize = 8 << 20;

// Reads a whole regular file of at most kMaxIniFileSize; anything else
// (a folder, a pipe, a device, a bigger file) reads as missing.
int ReadIniBytes(const QString& path, QByteArray* bytes);

// Replaces a whole file at once, creating it when it is missing: a reader or
// a killed process finds the old content or the new. A file the owner may
// not write (no owner write bit) is written all the same and keeps its mode;
// a link is followed to its target. Unchanged content is not rewritten.
int WriteIniBytes(const QString& path, const QByteArray& bytes);

// Makes a folder with its parents unless the path is empty or the root.
bool MakeIniFolder(const QString& folder);

}  // namespace qpt
