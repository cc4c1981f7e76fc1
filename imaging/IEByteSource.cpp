#include "imaging/IEByteSource.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <vector>

namespace qpt {

int TIEByteSource::ReadRuns(int64_t offset, int64_t length, uint8_t* const* dest, int count) {
    for (int i = 0; i < count; ++i)
        if (ReadAt(offset + i * length, dest[i], length) != length) return i;
    return count;
}

int64_t TIEMemorySource::ReadAt(int64_t offset, void* dest, int64_t length) {
    if (offset < 0 || length <= 0 || offset >= size_) return 0;
    const int64_t n = std::min(length, size_ - offset);
    std::memcpy(dest, data_ + offset, size_t(n));
    return n;
}

TIEFileSource::TIEFileSource(const QString& path) {
    // Non-blocking, so that a named pipe in the picture's place is refused
    // below instead of waited on.
    fd_ = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat st {};
    if (fd_ >= 0 && (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode))) {
        ::close(fd_);
        fd_ = -1;
    }
    size_ = fd_ >= 0 ? st.st_size : 0;
}

TIEFileSource::~TIEFileSource() {
    if (fd_ >= 0) ::close(fd_);
}

int64_t TIEFileSource::ReadAt(int64_t offset, void* dest, int64_t length) {
    if (fd_ < 0 || offset < 0 || length <= 0) return 0;
    int64_t done = 0;
    while (done < length) {
        const ssize_t n =
            ::pread(fd_, static_cast<uint8_t*>(dest) + done, size_t(length - done), offset + done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        done += n;
    }
    return done;
}

int TIEFileSource::ReadRuns(int64_t offset, int64_t length, uint8_t* const* dest, int count) {
    if (fd_ < 0 || offset < 0 || length <= 0) return 0;
    const int batch = std::min(IOV_MAX, 1024);
    std::vector<iovec> iov(size_t(std::min(count, batch)));
    int done = 0;
    while (done < count) {
        const int n = std::min(batch, count - done);
        for (int i = 0; i < n; ++i)
            iov[size_t(i)] = {dest[done + i], size_t(length)};
        const ssize_t got = ::preadv(fd_, iov.data(), n, offset + done * length);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return done;
        const int whole = int(got / length);
        done += whole;
        // A short read: finish the rest one run at a time, which also copes
        // with a file that ends inside a run.
        if (whole < n)
            return done + TIEByteSource::ReadRuns(offset + done * length, length, dest + done,
                                                  count - done);
    }
    return done;
}

}  // namespace qpt
