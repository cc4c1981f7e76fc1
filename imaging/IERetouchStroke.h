#pragma once

#include <QPoint>
#include <QRect>
#include <vector>

#include "imaging/IEBitmap.h"
#include "imaging/IEInteractionTypes.h"

namespace qpt {

// The pixels under one brush stroke: a copy of the picture's original pixels
// over the stroke's bounding box (ie24RGB), with the brush footprint in its
// alpha plane. The picture itself is not touched while the stroke runs.
class TIERetouchStroke {
public:
    bool Empty() const { return !bitmap_.IsAllocated(); }
    void Clear();

    // The buffer and its place on the picture (StrokeX, StrokeY).
    TIEBitmap& Bitmap() { return bitmap_; }
    const TIEBitmap& Bitmap() const { return bitmap_; }
    int X() const { return rect_.x(); }
    int Y() const { return rect_.y(); }
    QRect Rect() const { return rect_; }

    // One footprint of brushWidth by brushHeight centred on (x, y), cut to
    // the picture; the buffer grows over what the box newly covers.
    void Stamp(const TIEBitmap& picture, QPoint at, QSize brush, TIECursorShape shape);
    // Max(|dX|, |dY|) + 1 footprints at equal steps from one point to the
    // other, so the brush leaves a continuous band.
    void StampLine(const TIEBitmap& picture, QPoint from, QPoint to, QSize brush,
                   TIECursorShape shape);

    // The box of one footprint centred on at, before it is cut to the picture.
    static QRect BrushBox(QPoint at, QSize brush);

private:
    // Makes the buffer cover rect (inside the picture), keeping what it has;
    // false when there is no memory for it.
    bool Cover(const TIEBitmap& picture, const QRect& rect);
    void DrawFootprint(const QRect& box, const QRect& cut);
    const std::vector<uint8_t>& Footprint(QSize brush, TIECursorShape shape);

    TIEBitmap bitmap_;
    QRect rect_;
    std::vector<uint8_t> footprint_;
    QSize footprintSize_;
    TIECursorShape footprintShape_ = iecsDefault;
};

}  // namespace qpt
