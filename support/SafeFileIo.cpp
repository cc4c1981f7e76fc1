#include "support/SafeFileIo.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>

namespace qpt {

namespace {

// Deeper chains than this are loops in practice; the kernel gives up at 40 too.
constexpr int kMaxLinkDepth = 40;

int LastErrno() {
    return errno != 0 ? errno : 1;
}

int TypeError(mode_t mode) {
    return S_ISDIR(mode) ? EISDIR : EINVAL;
}

class FileDescriptor {
public:
    explicit FileDescriptor(int fd) : fd_(fd) {}
    ~FileDescriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

// Reads to the end, but never more than `maxBytes` + 1: a file that grows
// past the cap while it is read is caught by the extra byte.
int ReadToEnd(int fd, qint64 maxBytes, QByteArray* bytes) {
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return LastErrno();
        if (n == 0) return 0;
        if (bytes->size() + n > maxBytes) return EFBIG;
        bytes->append(buffer, n);
    }
}

bool HoldsAlready(const QString& target, const struct stat& st, const QByteArray& bytes) {
    if (st.st_size != bytes.size()) return false;
    QByteArray current;
    return ReadRegularFile(target, bytes.size(), &current) == 0 && current == bytes;
}

int SaveWhole(const QString& target, const QByteArray& bytes) {
    errno = 0;
    QSaveFile file(target);
    // Writing in place when no temporary file can be made would break the
    // promise of old-or-new; such a write fails instead.
    file.setDirectWriteFallback(false);
    // Unbuffered, so that a short write (a full disk) shows in the count
    // instead of vanishing in a flush that reports success.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return LastErrno();
    if (file.write(bytes) != bytes.size()) {
        const int error = LastErrno();
        file.cancelWriting();
        return error;
    }
    // commit() syncs to disk before the rename and drops the temporary file
    // when anything failed.
    return file.commit() ? 0 : LastErrno();
}

}  // namespace

int ReadRegularFile(const QString& path, qint64 maxBytes, QByteArray* bytes) {
    bytes->clear();
    errno = 0;
    const QByteArray native = QFile::encodeName(path);
    struct stat st {};
    // Looked at before opening, so that no device is ever opened; a named
    // pipe is opened non-blocking in case it appears in between.
    if (::stat(native.constData(), &st) != 0) return LastErrno();
    if (!S_ISREG(st.st_mode)) return TypeError(st.st_mode);
    FileDescriptor fd(::open(native.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (fd.get() < 0) return LastErrno();
    if (::fstat(fd.get(), &st) != 0) return LastErrno();
    if (!S_ISREG(st.st_mode)) return TypeError(st.st_mode);
    if (st.st_size > maxBytes) return EFBIG;
    bytes->reserve(qsizetype(st.st_size));
    const int error = ReadToEnd(fd.get(), maxBytes, bytes);
    if (error != 0) bytes->clear();
    return error;
}

int WriteFileAtomically(const QString& path, const QByteArray& bytes) {
    const QString target = ResolveLinkTarget(path);
    if (target.isEmpty()) return ELOOP;
    const QByteArray native = QFile::encodeName(target);
    struct stat st {};
    const bool exists = ::stat(native.constData(), &st) == 0;
    if (exists && !S_ISREG(st.st_mode)) return TypeError(st.st_mode);
    if (exists && HoldsAlready(target, st, bytes)) return 0;
    const mode_t mode = st.st_mode & 07777;
    // The temporary file is refused for a target its owner may not write;
    // the rename does not need that bit, so it is lent for the moment.
    const bool lend = exists && ::access(native.constData(), W_OK) != 0;
    if (lend && ::chmod(native.constData(), mode | S_IWUSR) != 0) return LastErrno();
    const int error = SaveWhole(target, bytes);
    // The new file takes the old one's mode; after a failure the old file
    // gets back what was lent.
    if (exists) ::chmod(native.constData(), mode);
    return error;
}

QString ResolveLinkTarget(const QString& path) {
    QFileInfo info(path);
    for (int depth = 0; depth <= kMaxLinkDepth; ++depth) {
        if (!info.isSymLink()) return info.filePath();
        info.setFile(info.symLinkTarget());
    }
    return {};
}

}  // namespace qpt
