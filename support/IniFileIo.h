#pragma once

#include <QByteArray>
#include <QString>

namespace qpt {

// Low-level file access of the ini classes. Each returns 0 or the system's
// error number (never 0 after a failure: 1 stands in for an unknown cause).

// Reads a whole file; other processes may hold it open in any way.
int ReadIniBytes(const QString& path, QByteArray* bytes);

// Writes a whole file, creating it when it is missing. A file the owner may
// not write (no owner write bit) is written all the same and keeps its mode.
int WriteIniBytes(const QString& path, const QByteArray& bytes);

// Makes a folder with its parents unless the path is empty or the root.
bool MakeIniFolder(const QString& folder);

}  // namespace qpt
