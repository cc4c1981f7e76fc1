#include "output/holder/BmpRows.h"

#include <cstdlib>

namespace qpt::holder {

namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kMasksEnd = kFileHeader + kInfoHeader + 16;
constexpr uint32_t kUncompressed = 0;
constexpr uint32_t kBitFields = 3;
// Larger pictures are not made by the program; the bound keeps every size
// product far from overflow.
constexpr int64_t kMaxSide = 1 << 16;

uint32_t U32(std::span<const uint8_t> b, std::size_t at) {
    return uint32_t(b[at]) | uint32_t(b[at + 1]) << 8 | uint32_t(b[at + 2]) << 16 |
           uint32_t(b[at + 3]) << 24;
}
uint16_t U16(std::span<const uint8_t> b, std::size_t at) {
    return uint16_t(b[at] | b[at + 1] << 8);
}

bool MasksAreBgra(std::span<const uint8_t> file) {
    const std::size_t m = kFileHeader + kInfoHeader;
    return file.size() >= kMasksEnd && U32(file, m) == 0x00FF0000 &&
           U32(file, m + 4) == 0x0000FF00 && U32(file, m + 8) == 0x000000FF &&
           U32(file, m + 12) == 0xFF000000u;
}

std::optional<TIEPixelLayout> LayoutOf(std::span<const uint8_t> file) {
    const uint16_t bits = U16(file, 28);
    const uint32_t compression = U32(file, 30);
    if (bits == 24 && compression == kUncompressed) return TIEPixelLayout::Bgr24;
    if (bits == 32 && compression == kBitFields && MasksAreBgra(file))
        return TIEPixelLayout::Bgra32;
    return std::nullopt;
}

}  // namespace

std::optional<TIEPixelView> ReadBmpRows(std::span<const uint8_t> file) {
    if (file.size() < kFileHeader + kInfoHeader || file[0] != 'B' || file[1] != 'M') return {};
    if (U32(file, 14) < kInfoHeader || U16(file, 26) != 1) return {};
    const int64_t width = int32_t(U32(file, 18));
    const int64_t signedHeight = int32_t(U32(file, 22));
    const int64_t height = std::llabs(signedHeight);
    if (width <= 0 || width > kMaxSide || height == 0 || height > kMaxSide) return {};
    const std::optional<TIEPixelLayout> layout = LayoutOf(file);
    if (!layout) return {};
    const int64_t rowBytes = (width * IEBytesPerPixel(*layout) + 3) / 4 * 4;
    const int64_t offset = U32(file, 10);
    if (offset < int64_t(kFileHeader + kInfoHeader) || offset > int64_t(file.size()) ||
        rowBytes * height > int64_t(file.size()) - offset)
        return {};
    const uint8_t* first = file.data() + offset;
    const bool bottomUp = signedHeight > 0;
    TIEPixelView view;
    view.Pixels = bottomUp ? first + (height - 1) * rowBytes : first;
    view.Width = int(width);
    view.Height = int(height);
    view.Stride = bottomUp ? -rowBytes : rowBytes;
    view.Layout = *layout;
    return view;
}

}  // namespace qpt::holder
