#pragma once

#include "skin/ScrollBarModel.h"

class QPainter;

namespace qpt {

class TRdScrollBarImages;

// Paints a scroll bar from its pictures: the track background, the arrows
// and the thumb, each in up to three pieces (the ends at their own length,
// the middle stretched by its slicing). A bar without thumb or arrow
// pictures still shows plain shapes, so it works before a skin is loaded.
void PaintScrollBar(QPainter& painter, const TScrollBarLayout& layout,
                    const TRdScrollBarImages& images, TScrollBarPart hot);

// The thumb's rectangle as drawn: narrowed to its picture and centred across
// the bar under AutoCenter.
QRect ThumbDrawRect(const TScrollBarLayout& layout, const TRdScrollBarImages& images);

// The length the thumb's end pieces take along the bar, the least the thumb
// can be without squeezing them.
int ThumbEndsLength(const TRdScrollBarImages& images, bool vertical);

// The thickness of the thumb's picture across the bar; 0 without one.
int ThumbPictureThickness(const TRdScrollBarImages& images, bool vertical);

}  // namespace qpt
