#pragma once
// The picture the benches compose, zoom and draw on.

#include <cstdint>

namespace qpt::bench {

// A screenshot-like picture: smooth gradients with some texture, written
// into the 24-bit rows that rowAt(y) gives.
template <class TRowAt>
void FillScreenshotLike(int width, int height, TRowAt rowAt) {
    for (int y = 0; y < height; ++y) {
        uint8_t* row = rowAt(y);
        for (int x = 0; x < width; ++x) {
            row[3 * x] = uint8_t(x / 15);
            row[3 * x + 1] = uint8_t(y / 9);
            row[3 * x + 2] = uint8_t((x ^ y) & 0x3F);
        }
    }
}

}  // namespace qpt::bench
