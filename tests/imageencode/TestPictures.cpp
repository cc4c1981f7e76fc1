#include "tests/imageencode/TestPictures.h"

namespace qpt::testing {

namespace {

struct TOffsets {
    int R, G, B, A;
};

TOffsets OffsetsOf(TIEPixelLayout layout) {
    switch (layout) {
        case TIEPixelLayout::Bgr24:
        case TIEPixelLayout::Bgrx32:
            return {2, 1, 0, -1};
        case TIEPixelLayout::Bgra32:
            return {2, 1, 0, 3};
        case TIEPixelLayout::Rgb24:
            return {0, 1, 2, -1};
        case TIEPixelLayout::Rgba32:
            return {0, 1, 2, 3};
    }
    return {2, 1, 0, -1};
}

uint32_t Hash(uint32_t v) {
    v ^= v >> 16, v *= 0x7feb352d, v ^= v >> 15, v *= 0x846ca68b, v ^= v >> 16;
    return v;
}

void PaintRow(int y, int width, uint8_t* rgba) {
    for (int x = 0; x < width; ++x, rgba += 4) {
        const int kind = (y / 7) % 3;
        if (kind == 0) {  // interface: runs of one colour
            const uint32_t c = Hash(uint32_t(x / 13 + y / 7 * 1000));
            rgba[0] = uint8_t(c), rgba[1] = uint8_t(c >> 8), rgba[2] = uint8_t(c >> 16);
        } else if (kind == 1) {  // gradient
            rgba[0] = uint8_t(x), rgba[1] = uint8_t(y * 3), rgba[2] = uint8_t(x + y);
        } else {  // detail
            const uint32_t c = Hash(uint32_t(y * 65599 + x));
            rgba[0] = uint8_t(c), rgba[1] = uint8_t(c >> 8), rgba[2] = uint8_t(c >> 16);
        }
        rgba[3] = uint8_t(Hash(uint32_t(x * 31 + y)) | 1);
    }
}

}  // namespace

TTestPicture::TTestPicture(int width, int height, TIEPixelLayout layout, int padding)
    : Width(width),
      Height(height),
      Layout(layout),
      Stride(ptrdiff_t(width) * IEBytesPerPixel(layout) + padding),
      Bytes(size_t(Stride) * size_t(height), 0xA5) {
    const TOffsets o = OffsetsOf(layout);
    const int bpp = IEBytesPerPixel(layout);
    std::vector<uint8_t> rgba(size_t(width) * 4);
    for (int y = 0; y < height; ++y) {
        PaintRow(y, width, rgba.data());
        uint8_t* row = Bytes.data() + size_t(y) * size_t(Stride);
        for (int x = 0; x < width; ++x) {
            uint8_t* p = row + x * bpp;
            p[o.R] = rgba[x * 4], p[o.G] = rgba[x * 4 + 1], p[o.B] = rgba[x * 4 + 2];
            if (o.A >= 0) p[o.A] = rgba[x * 4 + 3];
        }
    }
}

TIEPixelView TTestPicture::View() const {
    return {Bytes.data(), Width, Height, Stride, Layout};
}

TIEPixelView TTestPicture::BottomUpView() const {
    return {Bytes.data() + size_t(Height - 1) * size_t(Stride), Width, Height, -Stride, Layout};
}

void TTestPicture::Rgba(int x, int y, uint8_t out[4]) const {
    const TOffsets o = OffsetsOf(Layout);
    const uint8_t* p = Bytes.data() + size_t(y) * size_t(Stride) + x * IEBytesPerPixel(Layout);
    out[0] = p[o.R], out[1] = p[o.G], out[2] = p[o.B];
    out[3] = o.A >= 0 ? p[o.A] : 255;
}

TTestPicture FewColourPicture(int width, int height, int colours) {
    TTestPicture picture(width, height, TIEPixelLayout::Bgr24);
    for (int y = 0; y < height; ++y) {
        uint8_t* row = picture.Bytes.data() + size_t(y) * size_t(picture.Stride);
        for (int x = 0; x < width; ++x) {
            const uint32_t c = Hash(uint32_t((x / 5 + y / 3 * 7) % colours));
            row[x * 3] = uint8_t(c), row[x * 3 + 1] = uint8_t(c >> 8);
            row[x * 3 + 2] = uint8_t(c >> 16);
        }
    }
    return picture;
}

}  // namespace qpt::testing
