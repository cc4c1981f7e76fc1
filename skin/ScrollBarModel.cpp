#include "skin/ScrollBarModel.h"

#include <algorithm>

namespace qpt {

namespace {

// Rounded a * b / c without overflow on large ranges.
int MulDiv(qint64 a, qint64 b, qint64 c) {
    if (c == 0) return 0;
    return int((a * b + c / 2) / c);
}

// A rectangle from `start` along the bar, `length` long, across its whole
// thickness.
QRect Span(bool vertical, QSize size, int start, int length) {
    return vertical ? QRect(0, start, size.width(), length)
                    : QRect(start, 0, length, size.height());
}

}  // namespace

void TScrollBarModel::SetParams(int min, int max, int page, int position) {
    min_ = min;
    max_ = std::max(min, max);
    page_ = int(std::clamp<qint64>(page, 0, qint64(max_) - min_ + 1));
    position_ = Clamp(position);
}

int TScrollBarModel::MaxPosition() const {
    if (page_ <= 0) return max_;
    return std::max(min_, max_ - page_ + 1);
}

int TScrollBarModel::Clamp(int position) const {
    return std::clamp(position, min_, MaxPosition());
}

TScrollBarLayout TScrollBarModel::Layout(QSize size, bool vertical, int arrowLength,
                                         int minThumb) const {
    TScrollBarLayout layout;
    layout.vertical = vertical;
    const int length = vertical ? size.height() : size.width();
    const int thickness = vertical ? size.width() : size.height();
    const int arrow = std::clamp(arrowLength, 0, length / 2);
    if (arrow > 0) {
        layout.arrowLow = Span(vertical, size, 0, arrow);
        layout.arrowHigh = Span(vertical, size, length - arrow, arrow);
    }
    const int trackLength = length - 2 * arrow;
    layout.track = Span(vertical, size, arrow, trackLength);
    if (trackLength <= 0) return layout;

    const qint64 range = qint64(max_) - min_ + 1;
    int thumb = page_ > 0 ? MulDiv(trackLength, page_, range) : thickness;
    thumb = std::clamp(std::max(thumb, minThumb), 1, trackLength);
    const int travel = trackLength - thumb;
    const int offset = MulDiv(travel, qint64(position_) - min_, qint64(MaxPosition()) - min_);
    layout.thumb = Span(vertical, size, arrow + offset, thumb);
    return layout;
}

int TScrollBarModel::PositionAt(const TScrollBarLayout& layout, int thumbStart) const {
    const bool v = layout.vertical;
    const int trackStart = AlongBar(v, layout.track.topLeft());
    const int travel = (v ? layout.track.height() - layout.thumb.height()
                          : layout.track.width() - layout.thumb.width());
    if (travel <= 0) return position_;
    const int offset = std::clamp(thumbStart - trackStart, 0, travel);
    return Clamp(min_ + MulDiv(offset, qint64(MaxPosition()) - min_, travel));
}

TScrollBarPart TScrollBarModel::HitTest(const TScrollBarLayout& layout, QPoint point) {
    if (layout.arrowLow.contains(point)) return TScrollBarPart::spArrowLow;
    if (layout.arrowHigh.contains(point)) return TScrollBarPart::spArrowHigh;
    if (!layout.track.contains(point)) return TScrollBarPart::spNone;
    if (layout.thumb.contains(point)) return TScrollBarPart::spThumb;
    if (layout.thumb.isEmpty()) return TScrollBarPart::spNone;
    return AlongBar(layout.vertical, point) < AlongBar(layout.vertical, layout.thumb.topLeft())
               ? TScrollBarPart::spTrackLow
               : TScrollBarPart::spTrackHigh;
}

}  // namespace qpt
