// Feeds arbitrary bytes to the BMP reader; whatever it accepts must be a
// whole picture whose every row can be read and written back.
#include <QBuffer>
#include <cstdint>

#include "imaging/IEBmpReader.h"
#include "imaging/IEBmpWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    qpt::TIEMemorySource source(data, int64_t(size));
    qpt::TIEBitmap picture;
    picture.SetMinFileSize(int64_t(1) << 40);
    if (!qpt::IEReadBmp(source, picture)) return 0;
    unsigned sum = 0;
    for (int y = 0; y < picture.Height(); ++y) {
        const uint8_t* row = picture.Scanline(y);
        for (int x = 0; x < picture.Width() * 3; ++x)
            sum += row[x];
    }
    QBuffer out;
    out.open(QIODevice::WriteOnly);
    if (!qpt::IEWriteBmp(picture, out) || sum == 0xFFFFFFFFu) __builtin_trap();
    return 0;
}
