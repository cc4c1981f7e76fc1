#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <cstdint>

namespace qpt {

// Random access to the bytes of a picture file, for decoders that must never
// read past what exists: every read says how much it really got.
class TIEByteSource {
public:
    virtual ~TIEByteSource() = default;
    virtual int64_t Size() const = 0;
    // Reads up to length bytes at offset; returns the count read (0 past the end).
    virtual int64_t ReadAt(int64_t offset, void* dest, int64_t length) = 0;
    // Reads count consecutive runs of length bytes from offset, run i into
    // dest[i]; returns how many runs arrived whole.
    virtual int ReadRuns(int64_t offset, int64_t length, uint8_t* const* dest, int count);
};

class TIEMemorySource : public TIEByteSource {
public:
    TIEMemorySource(const uint8_t* data, int64_t size) : data_(data), size_(size) {}
    explicit TIEMemorySource(const QByteArray& bytes)
        : TIEMemorySource(reinterpret_cast<const uint8_t*>(bytes.constData()), bytes.size()) {}
    int64_t Size() const override { return size_; }
    int64_t ReadAt(int64_t offset, void* dest, int64_t length) override;

private:
    const uint8_t* data_;
    int64_t size_;
};

// Reads straight from the file descriptor, so that pixel rows can land in
// their final place without passing through a buffer of ours.
class TIEFileSource : public TIEByteSource {
public:
    explicit TIEFileSource(const QString& path);
    ~TIEFileSource() override;
    TIEFileSource(const TIEFileSource&) = delete;
    TIEFileSource& operator=(const TIEFileSource&) = delete;
    bool IsOpen() const { return fd_ >= 0; }
    int64_t Size() const override { return size_; }
    int64_t ReadAt(int64_t offset, void* dest, int64_t length) override;
    int ReadRuns(int64_t offset, int64_t length, uint8_t* const* dest, int count) override;

private:
    int fd_ = -1;
    int64_t size_ = 0;
};

}  // namespace qpt
