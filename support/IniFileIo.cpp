#include "support/IniFileIo.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <cerrno>
#include <utility>

namespace qpt {
namespace {

int LastErrno() {
    return errno != 0 ? errno : 1;
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
    int release() { return std::exchange(fd_, -1); }

private:
    int fd_;
};

int WriteAll(const QString& path, const QByteArray& bytes) {
    FileDescriptor fd(::open(QFile::encodeName(path).constData(),
                             O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (fd.get() < 0) return LastErrno();
    const char* data = bytes.constData();
    qsizetype left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd.get(), data, size_t(left));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return LastErrno();
        data += n;
        left -= n;
    }
    return ::close(fd.release()) == 0 ? 0 : LastErrno();
}

}  // namespace

int ReadIniBytes(const QString& path, QByteArray* bytes) {
    bytes->clear();
    errno = 0;
    FileDescriptor fd(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    if (fd.get() < 0) return LastErrno();
    struct stat st {};
    if (::fstat(fd.get(), &st) != 0) return LastErrno();
    if (S_ISDIR(st.st_mode)) return EISDIR;
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd.get(), buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            bytes->clear();
            return LastErrno();
        }
        if (n == 0) return 0;
        bytes->append(buffer, n);
    }
}

int WriteIniBytes(const QString& path, const QByteArray& bytes) {
    errno = 0;
    const QByteArray native = QFile::encodeName(path);
    struct stat st {};
    const bool lockedForOwner =
        ::stat(native.constData(), &st) == 0 && S_ISREG(st.st_mode) && !(st.st_mode & S_IWUSR);
    if (lockedForOwner && ::chmod(native.constData(), (st.st_mode | S_IWUSR) & 07777) != 0)
        return LastErrno();
    const int error = WriteAll(path, bytes);
    if (lockedForOwner) ::chmod(native.constData(), st.st_mode & 07777);
    return error;
}

// Folders here appear at once; there is no scanner holding a new path that
// would call for retries.
bool MakeIniFolder(const QString& folder) {
    if (folder.isEmpty() || folder == QLatin1String("/") || folder == QLatin1String("."))
        return true;
    return QDir().mkpath(folder);
}

}  // namespace qpt
