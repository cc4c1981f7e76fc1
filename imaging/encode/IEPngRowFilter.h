#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "imaging/encode/IEDeflateBands.h"
#include "imaging/encode/IEPixelView.h"

namespace qpt {

// Produces the filtered rows of a PNG picture (filter type byte, then the
// row), in order from any starting row, so that separate bands can be
// filtered on separate threads and still give the bytes of one pass.
//
// The choice per row: a row in which at least a quarter of the bytes repeat
// the pixel to their left is flat interface or text, and is stored
// unfiltered, which keeps it identical to the same content elsewhere on the
// screen and lets deflate find long matches. Any other row (photographs,
// gradients, anti-aliased art) takes the filter with the smallest sum of
// absolute residuals among Sub, Up, Average and Paeth.
class TIEPngRowFilter : public TIERowProducer {
public:
    TIEPngRowFilter(const TIEPixelView& view, TIEAlphaOut alpha);

    // A filtered row is the filter type byte and the row's bytes.
    size_t RowBytes() const override { return rowBytes_ + 1; }
    void Start(int y) override;
    void Next(uint8_t* out) override;

private:
    const TIEPixelView& view_;
    TIEAlphaOut alpha_;
    size_t pixelBytes_;
    size_t rowBytes_;
    int y_ = 0;
    std::vector<uint8_t> prev_, cur_;
    std::vector<uint8_t> trial_;  // one row for each of Sub, Up, Average, Paeth
};

}  // namespace qpt
