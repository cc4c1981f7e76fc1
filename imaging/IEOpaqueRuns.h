#pragma once

#include <QPoint>
#include <QRegion>
#include <cstdint>
#include <utility>
#include <vector>

#include "imaging/IEBitmap.h"

namespace qpt {

// Where a premultiplied ie32RGB picture has something to show: per row, the
// runs of pixels that are not fully transparent (gaps of a few pixels are
// bridged). Composing reads only these, so the empty inside of a hollow
// shape or the space around a stroke costs nothing.
class TIEOpaqueRuns {
public:
    struct Run {
        int begin, end;  // end exclusive
    };
    void Build(const TIEBitmap& premul);
    // Runs of one row, in order.
    std::pair<const Run*, const Run*> Row(int y) const {
        return {runs_.data() + rowStart_[size_t(y)], runs_.data() + rowStart_[size_t(y) + 1]};
    }
    bool Empty() const { return rowStart_.empty(); }

    // The tiles of tile by tile pixels, placed at origin, that hold any run:
    // what must be redrawn when the picture appears or goes, a few bands
    // instead of the whole box for an outline or a stroke.
    QRegion Coverage(QPoint origin, int tile) const;

private:
    std::vector<uint32_t> rowStart_;
    std::vector<Run> runs_;
    int width_ = 0;
};

}  // namespace qpt
