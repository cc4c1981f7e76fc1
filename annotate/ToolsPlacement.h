#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include "support/ScreenLayout.h"

namespace qpt {

// Where the toolbar stands for a picture rectangle (screen coordinates):
// flush with the picture's right edge, or the primary screen's when the
// picture reaches past it, but never left of 0; below the picture when the
// desktop has room, else above it, else inside the picture's top edge (or
// the desktop's when the picture starts above the desktop).
QPoint PlaceToolBar(const QRect& picture, QSize bar, const TScreenLayout& screens);

// The top of the share menu's window under the bar: moved above the bar
// when it would reach past the bottom of the primary screen.
int ShareMenuTop(const QRect& bar, const QRect& menu, const TScreenLayout& screens);

}  // namespace qpt
