#pragma once

#include <cstddef>
#include <cstdint>

namespace qpt {

// Byte order of one pixel in memory. Bgr24 is the engine's working format;
// Bgrx32 and Bgra32 are what 32-bit surfaces of the toolkit and of X11 hold
// on a little-endian machine (x: a byte that is ignored); the Rgb forms are
// their byte-swapped twins. Alpha is straight, not premultiplied.
enum class TIEPixelLayout : uint8_t { Bgr24, Bgrx32, Bgra32, Rgb24, Rgba32 };

int IEBytesPerPixel(TIEPixelLayout layout);
bool IEHasAlpha(TIEPixelLayout layout);

// Borrowed pixels: the view neither owns nor copies them. Stride is the
// distance in bytes from one row to the next below it; a negative stride
// walks a bottom-up buffer (Pixels then points at the top row, which is the
// last row of that buffer).
struct TIEPixelView {
    const uint8_t* Pixels = nullptr;
    int Width = 0;
    int Height = 0;
    ptrdiff_t Stride = 0;
    TIEPixelLayout Layout = TIEPixelLayout::Bgr24;

    const uint8_t* Row(int y) const { return Pixels + ptrdiff_t(y) * Stride; }
    // Pixels present, both sides at least 1, and rows long enough for the
    // width in this layout.
    bool Valid() const;
};

// What an encoder writes into a format that has an alpha channel.
enum class TIEAlphaOut : uint8_t {
    None,        // colour only
    Opaque,      // an alpha channel that is 255 everywhere
    FromPixels,  // the view's alpha; Opaque for a layout without one
};

inline int IEChannelsOut(TIEAlphaOut alpha) {
    return alpha == TIEAlphaOut::None ? 3 : 4;
}

// Converts row y to packed R, G, B (and A unless alpha is None) bytes, the
// order that PNG and TIFF store. `out` holds Width * IEChannelsOut(alpha).
void IERowToRgb(const TIEPixelView& view, int y, TIEAlphaOut alpha, uint8_t* out);

}  // namespace qpt
