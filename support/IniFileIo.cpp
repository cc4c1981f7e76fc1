#include "support/IniFileIo.h"

#include <QDir>

#include "support/SafeFileIo.h"

namespace qpt {

int ReadIniBytes(const QString& path, QByteArray* bytes) {
    return ReadRegularFile(path, kMaxIniFileSize, bytes);
}

int WriteIniBytes(const QString& path, const QByteArray& bytes) {
    return WriteFileAtomically(path, bytes);
}

// Folders here appear at once; there is no scanner holding a new path that
// would call for retries.
bool MakeIniFolder(const QString& folder) {
    if (folder.isEmpty() || folder == QLatin1String("/") || folder == QLatin1String("."))
        return true;
    return QDir().mkpath(folder);
}

}  // namespace qpt
