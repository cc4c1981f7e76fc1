#include "imaging/IEFileBuffer.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#include <QDir>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <string>

namespace qpt {

namespace {

std::mutex tempFolderLock;
QString tempFolder;

// Large enough that a row-by-row pass over a 4K picture remaps a handful of
// times, small enough that a hundred idle bitmaps hold no memory at all.
constexpr int64_t kWindowBytes = 4 << 20;

int64_t PageSize() {
    static const int64_t page = ::sysconf(_SC_PAGESIZE) > 0 ? ::sysconf(_SC_PAGESIZE) : 4096;
    return page;
}

// Reserves the blocks so that a full disk shows now and not as SIGBUS on a
// later row write; file systems without fallocate only get their size set.
bool ReserveRoom(int fd, int64_t size) {
    if (::fallocate(fd, 0, 0, size) == 0) return true;
    if (errno != EOPNOTSUPP && errno != ENOSYS) return false;
    return ::ftruncate(fd, size) == 0;
}

}  // namespace

void IESetTempFolder(const QString& path) {
    std::lock_guard lock(tempFolderLock);
    tempFolder = path;
    if (!tempFolder.isEmpty() && !tempFolder.endsWith('/')) tempFolder += '/';
}

QString IETempFolder() {
    std::lock_guard lock(tempFolderLock);
    if (!tempFolder.isEmpty()) return tempFolder;
    return QDir::tempPath() + '/';
}

TIEFileBuffer& TIEFileBuffer::operator=(TIEFileBuffer&& other) noexcept {
    if (this != &other) {
        Close();
        Take(other);
    }
    return *this;
}

void TIEFileBuffer::Take(TIEFileBuffer& other) {
    fd_ = std::exchange(other.fd_, -1);
    size_ = std::exchange(other.size_, 0);
    window_ = std::exchange(other.window_, nullptr);
    windowOffset_ = std::exchange(other.windowOffset_, 0);
    windowLength_ = std::exchange(other.windowLength_, 0);
}

bool TIEFileBuffer::Create(int64_t size, const char* prefix) {
    Close();
    if (size <= 0) return false;
    std::string pattern = (IETempFolder() + prefix).toStdString() + "XXXXXX";
    int fd = ::mkostemp(pattern.data(), O_CLOEXEC);
    if (fd < 0) return false;
    ::unlink(pattern.c_str());
    if (!ReserveRoom(fd, size)) {
        ::close(fd);
        return false;
    }
    fd_ = fd;
    size_ = size;
    return true;
}

void TIEFileBuffer::Close() {
    Unmap();
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
    size_ = 0;
}

void TIEFileBuffer::Unmap() {
    if (window_) ::munmap(window_, windowLength_);
    window_ = nullptr;
    windowOffset_ = windowLength_ = 0;
}

bool TIEFileBuffer::Write(int64_t offset, const void* data, int64_t length) {
    if (fd_ < 0 || offset < 0 || length < 0 || offset + length > size_) return false;
    const auto* p = static_cast<const uint8_t*>(data);
    while (length > 0) {
        const ssize_t n = ::pwrite(fd_, p, size_t(length), offset);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        p += n, offset += n, length -= n;
    }
    return true;
}

bool TIEFileBuffer::Read(int64_t offset, void* dest, int64_t length) const {
    if (fd_ < 0 || offset < 0 || length < 0 || offset + length > size_) return false;
    auto* p = static_cast<uint8_t*>(dest);
    while (length > 0) {
        const ssize_t n = ::pread(fd_, p, size_t(length), offset);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        p += n, offset += n, length -= n;
    }
    return true;
}

uint8_t* TIEFileBuffer::Map(int64_t offset, int64_t length) {
    if (fd_ < 0 || offset < 0 || length < 0 || offset + length > size_) return nullptr;
    if (window_ && offset >= windowOffset_ && offset + length <= windowOffset_ + windowLength_)
        return window_ + (offset - windowOffset_);
    Unmap();
    const int64_t start = offset / PageSize() * PageSize();
    const int64_t end = std::min(size_, std::max(offset + length, start + kWindowBytes));
    void* p = ::mmap(nullptr, end - start, PROT_READ | PROT_WRITE, MAP_SHARED, fd_, start);
    if (p == MAP_FAILED) return nullptr;
    window_ = static_cast<uint8_t*>(p);
    windowOffset_ = start;
    windowLength_ = end - start;
    return window_ + (offset - start);
}

}  // namespace qpt
