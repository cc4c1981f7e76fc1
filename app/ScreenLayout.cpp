#include "app/ScreenLayout.h"

#include <algorithm>

#include "skin/RdScrollBox.h"

namespace qpt {

bool IsWholeScreenRect(const QRect& rect, const TScreenLayout& screens) {
    if (screens.monitors.size() <= 1) return rect == QRect(QPoint(0, 0), screens.primary.size());
    return std::find(screens.monitors.begin(), screens.monitors.end(), rect) !=
               screens.monitors.end() ||
           rect == screens.desktop;
}

int PinnedHeightLimit(const TScreenLayout& screens) {
    return screens.primary.height() * 8 / 10;
}

QRect PinnedWindowRect(const QRect& handedOver) {
    if (handedOver.width() <= 0 || handedOver.height() <= 0) return QRect(0, 0, 1, 1);
    return handedOver;
}

bool ShowsVerticalBar(const TRdScrollBox& box) {
    return box.VScroll()->isVisibleTo(&box);
}

}  // namespace qpt
