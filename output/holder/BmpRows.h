#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "imaging/encode/IEPixelView.h"

namespace qpt::holder {

// The pixel rows inside a BMP file, read in place: the rows of a BMP in one of the two layouts the
// engine's writer makes of a picture: 24 bits uncompressed, or 32 bits with B, G, R, A masks.
// Anything else, or a file too short for its rows, gives nothing.
std::optional<TIEPixelView> ReadBmpRows(std::span<const uint8_t> file);

}  // namespace qpt::holder
