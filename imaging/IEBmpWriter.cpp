#include "imaging/IEBmpWriter.h"

#include <QFile>
#include <QSaveFile>
#include <cstring>
#include <vector>

namespace qpt {

namespace {

constexpr int kInfoHeader = 40;
constexpr int kV4Header = 108;
constexpr uint32_t kPelsPerMeter96Dpi = 3780;

void Put16(std::vector<uint8_t>& out, uint32_t v) {
    out.push_back(uint8_t(v));
    out.push_back(uint8_t(v >> 8));
}
void Put32(std::vector<uint8_t>& out, uint32_t v) {
    Put16(out, v & 0xFFFF);
    Put16(out, v >> 16);
}

struct TLayout {
    int BitCount = 0;
    bool WithAlpha = false;
    std::vector<TRGB> Palette;
};

bool LayoutOf(const TIEBitmap& b, TLayout& l) {
    switch (b.PixelFormat()) {
        case ie24RGB: {
            const TIEBitmap* plane = b.AlphaChannelIfAny();
            l.WithAlpha = plane && !plane->Full();
            l.BitCount = l.WithAlpha ? 32 : 24;
            return true;
        }
        case ie32RGB:
            l.BitCount = 32, l.WithAlpha = true;
            return true;
        case ie8g:
            l.BitCount = 8;
            for (int i = 0; i < 256; ++i)
                l.Palette.push_back({uint8_t(i), uint8_t(i), uint8_t(i)});
            return true;
        case ie8p:
            l.BitCount = 8, l.Palette = b.Palette();
            l.Palette.resize(256);
            return true;
        case ie1g:
            l.BitCount = 1, l.Palette = {{0, 0, 0}, {255, 255, 255}};
            return true;
        default:
            return false;
    }
}

std::vector<uint8_t> Headers(const TIEBitmap& b, const TLayout& l, int64_t stride) {
    const uint32_t infoSize = l.WithAlpha ? kV4Header : kInfoHeader;
    const uint32_t offset = 14 + infoSize + uint32_t(l.Palette.size()) * 4;
    const uint32_t image = uint32_t(stride * b.Height());
    std::vector<uint8_t> h;
    h.push_back('B'), h.push_back('M');
    Put32(h, offset + image), Put32(h, 0), Put32(h, offset);
    Put32(h, infoSize), Put32(h, uint32_t(b.Width())), Put32(h, uint32_t(b.Height()));
    Put16(h, 1), Put16(h, uint32_t(l.BitCount));
    Put32(h, l.WithAlpha ? 3 : 0), Put32(h, image);
    Put32(h, kPelsPerMeter96Dpi), Put32(h, kPelsPerMeter96Dpi);
    Put32(h, uint32_t(l.Palette.size())), Put32(h, 0);
    if (l.WithAlpha) {
        Put32(h, 0x00FF0000), Put32(h, 0x0000FF00), Put32(h, 0x000000FF), Put32(h, 0xFF000000u);
        Put32(h, 0x73524742);         // 'sRGB' colour space
        h.resize(14 + kV4Header, 0);  // end points and gamma stay zero
    }
    for (const TRGB& c : l.Palette)
        h.push_back(c.b), h.push_back(c.g), h.push_back(c.r), h.push_back(0);
    return h;
}

// Fills one file row from picture row y.
void FileRow(const TIEBitmap& b, const TLayout& l, int y, std::vector<uint8_t>& row) {
    const uint8_t* p = b.Scanline(y);
    if (l.BitCount != 32 || b.PixelFormat() == ie32RGB) {
        std::memcpy(row.data(), p, std::min<size_t>(row.size(), size_t(b.RowLen())));
        return;
    }
    std::vector<uint8_t> alpha(b.AlphaChannelIfAny()->Scanline(y),
                               b.AlphaChannelIfAny()->Scanline(y) + b.Width());
    p = b.Scanline(y);  // the plane's row may have moved a shared window
    for (int x = 0; x < b.Width(); ++x) {
        std::memcpy(&row[size_t(x) * 4], p + x * 3, 3);
        row[size_t(x) * 4 + 3] = alpha[size_t(x)];
    }
}

}  // namespace

bool IEWriteBmp(const TIEBitmap& bitmap, QIODevice& device) {
    TLayout layout;
    if (!bitmap.IsAllocated() || !LayoutOf(bitmap, layout)) return false;
    const int64_t stride = IERowLen(bitmap.Width(), layout.BitCount);
    if (stride * bitmap.Height() > int64_t(0xFFFFFFFF) - 2048) return false;
    const std::vector<uint8_t> head = Headers(bitmap, layout, stride);
    if (device.write(reinterpret_cast<const char*>(head.data()), qint64(head.size())) !=
        qint64(head.size()))
        return false;
    std::vector<uint8_t> row(size_t(stride), 0);
    for (int y = bitmap.Height() - 1; y >= 0; --y) {
        FileRow(bitmap, layout, y, row);
        if (device.write(reinterpret_cast<const char*>(row.data()), stride) != stride) return false;
    }
    return true;
}

bool IEWriteBmpFile(const TIEBitmap& bitmap, const QString& path) {
    QSaveFile file(path);
    // Unbuffered, so that a short write (a full disk) fails the write that
    // made it: a failure inside a buffered flush would not stop the commit.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return false;
    if (!IEWriteBmp(bitmap, file)) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

}  // namespace qpt
