#pragma once

#include <QRect>

#include "support/ScreenLayout.h"

namespace qpt {

class TRdScrollBox;

// The pinned picture covers one whole monitor or the whole desktop.
bool IsWholeScreenRect(const QRect& rect, const TScreenLayout& screens);

// The window's height limit: 80% of the primary screen's height.
int PinnedHeightLimit(const TScreenLayout& screens);

// The place of the pinned window: the handed-over rectangle, or 1 by 1 at
// the origin when it has no size, since X11 has no empty windows.
QRect PinnedWindowRect(const QRect& handedOver);

// Whether the scroll box shows its vertical bar.
bool ShowsVerticalBar(const TRdScrollBox& box);

}  // namespace qpt
