#pragma once

#include <QWindow>

namespace qpt {

// What Qt offers no call for on X11: putting a top-level window directly
// below another, and asking whether a compositing manager runs (without one,
// translucent windows come out black where they should be clear). The calls
// go through the X connection Qt already holds; off X11 they report false.
bool X11StackBelow(WId window, WId sibling);
// True when not on X11: other platforms compose translucent windows.
bool TranslucentWindowsShow();

}  // namespace qpt
