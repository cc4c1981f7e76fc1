#pragma once

#include <cstdint>
#include <vector>

#include "imaging/encode/IEPixelView.h"

namespace qpt::testing {

// A picture in memory with the three kinds of rows a screenshot has: flat
// runs (interface), smooth gradients, and busy detail, so that every row
// filter and both halves of a banded compression get used.
struct TTestPicture {
    TTestPicture(int width, int height, TIEPixelLayout layout, int padding = 0);
    TIEPixelView View() const;
    // The same rows seen bottom-up: the first row in memory is the last row.
    TIEPixelView BottomUpView() const;
    // The pixel at x, y as R, G, B, A (A 255 for layouts without alpha).
    void Rgba(int x, int y, uint8_t out[4]) const;

    int Width, Height;
    TIEPixelLayout Layout;
    ptrdiff_t Stride;
    std::vector<uint8_t> Bytes;
};

// At most `colours` different colours, in blocks and stripes.
TTestPicture FewColourPicture(int width, int height, int colours);

}  // namespace qpt::testing
