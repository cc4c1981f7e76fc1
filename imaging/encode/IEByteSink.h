#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qpt {

// Where an encoder's bytes go. A sink that refuses bytes stays refused, so
// an encoder can keep writing and look once at the end.
class TIEByteSink {
public:
    virtual ~TIEByteSink() = default;
    // False when not all bytes could be taken (now or before).
    virtual bool Write(const uint8_t* data, size_t size) = 0;
    bool Failed() const { return failed_; }

protected:
    bool failed_ = false;
};

// Appends to a byte buffer owned by the caller.
class TIEBufferSink : public TIEByteSink {
public:
    explicit TIEBufferSink(std::vector<uint8_t>& out) : out_(out) {}
    bool Write(const uint8_t* data, size_t size) override;

private:
    std::vector<uint8_t>& out_;
};

// Writes to an open file descriptor owned by the caller (a file, a pipe, a
// socket), through a buffer of its own; Flush or the destructor empties it.
// Interrupted and partial writes are retried; any other error fails the
// sink and keeps errno in Error().
class TIEFdSink : public TIEByteSink {
public:
    explicit TIEFdSink(int fd) : fd_(fd) {}
    ~TIEFdSink() override;
    TIEFdSink(const TIEFdSink&) = delete;
    TIEFdSink& operator=(const TIEFdSink&) = delete;

    bool Write(const uint8_t* data, size_t size) override;
    bool Flush();
    int Error() const { return error_; }

private:
    bool WriteAll(const uint8_t* data, size_t size);

    int fd_;
    int error_ = 0;
    std::vector<uint8_t> buffer_;
};

// The two ends every encoder offers besides a sink of the caller's:
//     return IEEncodeIntoBuffer(out, [&](TIEByteSink& s) { return Encode(view, s); });
template <class Encode>
bool IEEncodeIntoBuffer(std::vector<uint8_t>& out, const Encode& encode) {
    TIEBufferSink sink(out);
    return encode(sink);
}

template <class Encode>
bool IEEncodeIntoFd(int fd, const Encode& encode) {
    TIEFdSink sink(fd);
    return encode(sink) && sink.Flush();
}

}  // namespace qpt
