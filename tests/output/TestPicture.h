#pragma once

#include <QImage>
#include <cstdint>

#include "imaging/IEBitmap.h"

namespace qpt::testing {

// A picture whose every pixel differs from its neighbours and from the same
// place in a picture of another seed, so that a swapped row, a lost piece or
// an older copy all show.
TIEBitmap PatternPicture(int width, int height, uint8_t seed);

// Where the decoded picture differs from the pattern; an empty string when
// it is the same, size and every pixel.
std::string PatternDifference(const QImage& image, int width, int height, uint8_t seed);

}  // namespace qpt::testing
