#pragma once

#include <QString>
#include <cstdint>

namespace qpt {

// The private temporary folder of the engine (with a trailing '/'). The
// application sets it once at start; until then QDir::tempPath() is used.
void IESetTempFolder(const QString& path);
QString IETempFolder();

// Storage of ieFile bitmaps: an unlinked temporary file, reached through a
// mapped window of a few megabytes, so that rows can be addressed in place
// while only the window counts towards the process's resident memory.
class TIEFileBuffer {
public:
    TIEFileBuffer() = default;
    ~TIEFileBuffer() { Close(); }
    TIEFileBuffer(const TIEFileBuffer&) = delete;
    TIEFileBuffer& operator=(const TIEFileBuffer&) = delete;
    TIEFileBuffer(TIEFileBuffer&& other) noexcept { Take(other); }
    TIEFileBuffer& operator=(TIEFileBuffer&& other) noexcept;

    // Makes a file named after prefix in the temporary folder with room for
    // size bytes, and unlinks it at once. False if the file or room fails.
    bool Create(int64_t size, const char* prefix = "IMG");
    void Close();
    bool IsOpen() const { return fd_ >= 0; }
    int64_t Size() const { return size_; }

    // Address of bytes [offset, offset + length); moves the window if they
    // lie outside it, which ends the validity of earlier addresses. Null if
    // the range is outside the file or the mapping fails.
    uint8_t* Map(int64_t offset, int64_t length);
    // Makes the whole file the window.
    uint8_t* MapAll() { return Map(0, size_); }
    // Gives the window's pages back; the data stays in the file.
    void Unmap();

    // Bulk transfers that bypass the window: the kernel copies straight
    // between the page cache and the caller's memory, with no page faults
    // on our side. They see the same bytes as the mapping.
    bool Write(int64_t offset, const void* data, int64_t length);
    bool Read(int64_t offset, void* dest, int64_t length) const;

private:
    void Take(TIEFileBuffer& other);

    int fd_ = -1;
    int64_t size_ = 0;
    uint8_t* window_ = nullptr;
    int64_t windowOffset_ = 0;
    int64_t windowLength_ = 0;
};

}  // namespace qpt
