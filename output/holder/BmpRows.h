#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace qpt::holder {

// The pixel rows inside a BMP file, top row first, read in place.
struct BmpRows {
    int width = 0;
    int height = 0;
    int channels = 0;  // 3: bytes B, G, R; 4: bytes B, G, R, A
    const uint8_t* top = nullptr;
    std::ptrdiff_t stride = 0;  // negative for the usual bottom-up file

    const uint8_t* Row(int y) const { return top + std::ptrdiff_t(y) * stride; }
};

// The rows of a BMP in one of the two layouts the engine's writer makes of a
// picture: 24 bits uncompressed, or 32 bits with B, G, R, A masks. Anything
// else, or a file too short for its rows, gives nothing.
std::optional<BmpRows> ReadBmpRows(std::span<const uint8_t> file);

}  // namespace qpt::holder
