#pragma once

#include <QObject>
#include <QRect>

namespace qpt {

// What the mouse is over or holding on a scroll bar.
enum class TScrollBarPart { spNone, spArrowLow, spArrowHigh, spTrackLow, spTrackHigh, spThumb };

// Why the position moves, as told to OnScroll.
enum class TScrollCode {
    scLineUp,
    scLineDown,
    scPageUp,
    scPageDown,
    scPosition,
    scTrack,
    scTop,
    scBottom,
    scEndScroll
};

// Where the parts of a bar lie, in the bar's own pixels.
struct TScrollBarLayout {
    bool vertical = true;
    QRect arrowLow, arrowHigh;  // empty without arrows
    QRect track;                // between the arrows
    QRect thumb;                // inside the track
};

// The range and position of a scroll bar and how they map onto pixels. The
// range is Min..Max with a page of PageSize inside it, so the highest
// position is Max - PageSize + 1; a PageSize of 0 has no page and a thumb of
// the bar's thickness.
class TScrollBarModel {
    Q_GADGET

public:
    enum TScrollBarKind { sbHorizontal, sbVertical };
    Q_ENUM(TScrollBarKind)

    int Min() const { return min_; }
    int Max() const { return max_; }
    int PageSize() const { return page_; }
    int Position() const { return position_; }
    int LargeChange() const { return largeChange_; }
    int SmallChange() const { return smallChange_; }
    void SetLargeChange(int value) { largeChange_ = qMax(1, value); }
    void SetSmallChange(int value) { smallChange_ = qMax(1, value); }

    // Takes all four at once and makes them agree: Max at least Min, the
    // page no larger than the range, the position within reach.
    void SetParams(int min, int max, int page, int position);
    int MaxPosition() const;
    int Clamp(int position) const;
    // The whole range fits in one page: nothing to scroll.
    bool Fits() const { return MaxPosition() <= min_; }

    // The parts for a bar of `size`. Arrows are `arrowLength` long (0: none);
    // the thumb is never shorter than `minThumb`.
    TScrollBarLayout Layout(QSize size, bool vertical, int arrowLength, int minThumb) const;
    // The position that puts the thumb's leading edge at `thumbStart`.
    int PositionAt(const TScrollBarLayout& layout, int thumbStart) const;
    static TScrollBarPart HitTest(const TScrollBarLayout& layout, QPoint point);

private:
    int min_ = 0;
    int max_ = 100;
    int page_ = 0;
    int position_ = 0;
    int largeChange_ = 1;
    int smallChange_ = 1;
};

// The coordinate along the bar.
inline int AlongBar(bool vertical, QPoint point) {
    return vertical ? point.y() : point.x();
}

}  // namespace qpt
