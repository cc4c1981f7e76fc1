#include "imaging/encode/IEByteSink.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace qpt {

namespace {
constexpr size_t kFdBufferSize = 256 * 1024;
}

bool TIEBufferSink::Write(const uint8_t* data, size_t size) {
    if (failed_) return false;
    try {
        out_.insert(out_.end(), data, data + size);
    } catch (const std::bad_alloc&) {
        failed_ = true;
    }
    return !failed_;
}

TIEFdSink::~TIEFdSink() {
    Flush();
}

bool TIEFdSink::Write(const uint8_t* data, size_t size) {
    if (failed_) return false;
    if (buffer_.size() + size > kFdBufferSize) {
        if (!Flush()) return false;
        // Large blocks skip the buffer rather than being copied through it.
        if (size >= kFdBufferSize) return WriteAll(data, size);
    }
    if (buffer_.capacity() < kFdBufferSize) buffer_.reserve(kFdBufferSize);
    buffer_.insert(buffer_.end(), data, data + size);
    return true;
}

bool TIEFdSink::Flush() {
    if (failed_) return false;
    const bool written = WriteAll(buffer_.data(), buffer_.size());
    buffer_.clear();
    return written;
}

bool TIEFdSink::WriteAll(const uint8_t* data, size_t size) {
    while (size > 0 && !failed_) {
        const ssize_t n = ::write(fd_, data, size);
        if (n > 0) {
            data += n, size -= size_t(n);
        } else if (n < 0 && errno == EINTR) {
            continue;
        } else {
            error_ = n < 0 ? errno : EIO;
            failed_ = true;
        }
    }
    return !failed_;
}

}  // namespace qpt
