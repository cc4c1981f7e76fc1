// RLE pictures are where the size of a file and the size of its picture part
// ways. The fuzzer gives the picture's size, the kind of runs and the run
// data, behind which the file may go on for a gigabyte. The reader must give
// a whole picture of the size in the header, and read no more of the file
// than that picture can use.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "imaging/IEBmpReader.h"

namespace {

void Le(QByteArray& b, uint32_t v, int bytes) {
    for (int i = 0; i < bytes; ++i)
        b.append(char(v >> (8 * i)));
}

// File header, info header and a grey palette for RLE4 or RLE8.
QByteArray Head(int width, int height, bool four) {
    const int colours = four ? 16 : 256;
    QByteArray b("BM");
    Le(b, 0, 4), Le(b, 0, 4), Le(b, uint32_t(14 + 40 + 4 * colours), 4);
    Le(b, 40, 4), Le(b, uint32_t(width), 4), Le(b, uint32_t(height), 4);
    Le(b, 1, 2), Le(b, four ? 4 : 8, 2), Le(b, four ? 2 : 1, 4);
    Le(b, 0, 4), Le(b, 2835, 4), Le(b, 2835, 4), Le(b, uint32_t(colours), 4), Le(b, 0, 4);
    for (int i = 0; i < colours; ++i)
        Le(b, uint32_t(i * 0x010101 * (four ? 17 : 1)), 4);
    return b;
}

// The head, then the run data over and over up to `size`; it remembers the
// furthest byte asked for.
class TLongFile : public qpt::TIEByteSource {
public:
    TLongFile(QByteArray head, QByteArray runs, int64_t size)
        : head_(std::move(head)),
          runs_(runs.isEmpty() ? QByteArray(1, '\0') : std::move(runs)),
          size_(size) {}
    int64_t Size() const override { return size_; }
    int64_t ReadAt(int64_t offset, void* dest, int64_t length) override {
        if (offset < 0 || length <= 0 || offset >= size_) return 0;
        length = std::min(length, size_ - offset);
        furthest = std::max(furthest, offset + length);
        auto* out = static_cast<char*>(dest);
        for (int64_t done = 0; done < length;) {
            const int64_t at = offset + done;
            const bool inHead = at < head_.size();
            const QByteArray& part = inHead ? head_ : runs_;
            const int64_t from = inHead ? at : (at - head_.size()) % runs_.size();
            const int64_t n = std::min<int64_t>(length - done, part.size() - from);
            std::memcpy(out + done, part.constData() + from, size_t(n));
            done += n;
        }
        return length;
    }
    int64_t furthest = 0;

private:
    QByteArray head_, runs_;
    int64_t size_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 5) return 0;
    const int width = 1 + (data[0] | data[1] << 8) % 256;
    const int height = 1 + (data[2] | data[3] << 8) % 256;
    const bool four = data[4] & 1, longFile = data[4] & 2;
    const QByteArray head = Head(width, height, four);
    const QByteArray runs(reinterpret_cast<const char*>(data + 5), qsizetype(size - 5));
    TLongFile file(head, runs, longFile ? int64_t(1) << 30 : head.size() + runs.size());
    qpt::TIEBitmap picture;
    picture.SetMinFileSize(int64_t(1) << 40);  // in memory, not in temporary files
    if (!qpt::IEReadBmp(file, picture)) return 0;
    if (picture.Width() != width || picture.Height() != height) __builtin_trap();
    const int64_t usable = 4 * int64_t(width) * height + 2 * int64_t(height) + 2;
    if (file.furthest > head.size() + usable) __builtin_trap();
    // Every row is there to be read to its last byte.
    volatile uint8_t last = 0;
    for (int y = 0; y < height; ++y)
        last = picture.Scanline(y)[3 * width - 1];
    (void)last;
    return 0;
}
