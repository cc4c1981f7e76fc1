#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qpt {

// Where each destination pixel of a row samples: the two neighbouring source
// pixels and the weight of the second, 0..256 (0 for a nearest pick).
struct TIEStretchColumns {
    std::vector<int> x0, x1;
    std::vector<uint32_t> fx;
    size_t Count() const { return x0.size(); }
};

// xs in 16.16 fixed point, one entry per destination pixel.
TIEStretchColumns IEStretchColumns(const std::vector<int64_t>& xs, int width, bool linear);

// Produces destination rows of a bilinear stretch of a plane with
// `channels` bytes per pixel (3 or 1). Every path computes the exact sum
// round(sum of w * p / 65536) without rounding between the passes, so the
// order of the two passes is free and both give the same bytes.
//
// Enlarging, neighbouring destination rows blend between the same two
// source rows: each source row is stretched across once and kept. Reducing,
// the two source rows are blended first, over the columns in use only.
class TIEStretchRows {
public:
    TIEStretchRows(const TIEStretchColumns& columns, int channels, bool enlarging);

    // Writes Count() pixels to out from source rows y0 and y1 (their data
    // r0, r1) with the weight fy of r1, 0..256.
    void Sample(const uint8_t* r0, int y0, const uint8_t* r1, int y1, uint32_t fy, uint8_t* out);

private:
    const uint16_t* Stretched(const uint8_t* row, int y);
    void BlendThenStretch(const uint8_t* r0, const uint8_t* r1, uint32_t fy, uint8_t* out);

    const TIEStretchColumns& c_;
    int channels_;
    bool enlarging_;
    // Two stretched rows, by source row, for the enlarging path.
    std::vector<uint16_t> rows_[2];
    int rowY_[2] = {-1, -1};
    int next_ = 0;
    std::vector<uint16_t> mixed_;
};

}  // namespace qpt
