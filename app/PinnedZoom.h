#pragma once

#include <QRect>
#include <QSize>

#include "support/ScreenLayout.h"

namespace qpt {

// The pinned window and its parts at one moment of a zoom.
struct TZoomSizes {
    QRect window;       // the form, in screen coordinates
    QSize box;          // the scroll box
    QSize view;         // the picture at its zoom
    int zoomBaseWidth;  // the width the zoom multiplies; 0 before the first step
    bool operator==(const TZoomSizes&) const = default;
};

// What a zoom step starts from besides the window itself.
struct TZoomStepInput {
    QSize picture;  // unzoomed
    int initialWidth;
    int initialHeight;
    int zoomStep;  // the new step, in tenths
    bool up;
    QRect toolbar;  // the bar's geometry; the window's corner next to it stays
    TScreenLayout screens;
};

// The window grows and shrinks with the picture up to 80% of the primary
// screen's height, beyond which the box scrolls; the extra 9 pixels for the
// scroll bar enter the base width only at the step where a picture at its
// starting width becomes too tall. The box scrolls exactly when the view is
// taller than it.
TZoomSizes ZoomStepSizes(const TZoomSizes& now, const TZoomStepInput& step);

}  // namespace qpt
