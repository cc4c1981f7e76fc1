#pragma once

#include <QList>
#include <QRect>

namespace qpt {

class TRdScrollBox;

// The monitors as the pinned window sees them: the primary one first.
struct TScreenLayout {
    QRect primary;
    QList<QRect> monitors;  // in the order the system lists them
    QRect desktop;          // the union of all monitors
};

// Reads the screens of the running application.
TScreenLayout CurrentScreenLayout();

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
