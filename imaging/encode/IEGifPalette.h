#pragma once

#include <cstdint>
#include <vector>

#include "imaging/encode/IEPixelView.h"

namespace qpt {

struct TIEPaletteColour {
    uint8_t R = 0, G = 0, B = 0;
    bool operator==(const TIEPaletteColour&) const = default;
};

// A picture of at most 256 colours: one palette index per pixel, rows top
// down without padding.
struct TIEIndexedPicture {
    int Width = 0, Height = 0;
    std::vector<TIEPaletteColour> Palette;  // 1 to 256 entries
    std::vector<uint8_t> Indices;
};

// Reduces a picture to at most 256 colours, made for screenshots.
//
// A picture with at most 256 colours keeps them all, exactly, undithered.
// Otherwise the colours that cover large areas (backgrounds, panels, text)
// get palette entries of their own and keep their exact value, so flat
// interface stays clean; the rest of the picture (anti-aliased edges,
// gradients, photographs) gets the remaining entries by median cut, splitting
// the box of the largest squared error at the weighted median of its widest
// axis, and is mapped with Floyd-Steinberg error diffusion, which exact
// pixels neither take nor pass on. Alpha is ignored. Empty on an invalid
// view or when memory runs out.
TIEIndexedPicture IEReduceTo256Colours(const TIEPixelView& view);

}  // namespace qpt
