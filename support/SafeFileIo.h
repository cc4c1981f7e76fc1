#pragma once

#include <QByteArray>
#include <QString>

namespace qpt {

// How every file of ours is read and written. Both return 0 or the system's
// error number (never 0 after a failure: 1 stands in for an unknown cause).

// Reads a whole regular file of at most `maxBytes`. Anything else counts as
// missing and is never waited on: a folder (EISDIR), a named pipe, a device
// or a socket (EINVAL), a file above the cap (EFBIG). Links are followed.
int ReadRegularFile(const QString& path, qint64 maxBytes, QByteArray* bytes);

// Replaces the content of a file as a whole: it is written under a temporary
// name in the same folder, flushed to disk and renamed over the old one, so
// that a reader, a full disk or a killed process finds the old content or
// the new, never a part. A symbolic link is followed to its target, which
// keeps its mode (a file read-only for its owner stays so). A target that
// already holds `bytes` is left untouched; one that exists and is not a
// regular file is refused (EINVAL). On failure the old file is as it was.
int WriteFileAtomically(const QString& path, const QByteArray& bytes);

// The file that `path` names once symbolic links are followed; it need not
// exist. Empty when the links go round in a loop.
QString ResolveLinkTarget(const QString& path);

}  // namespace qpt
