#include "annotate/ToolsPlacement.h"

namespace qpt {

namespace {

// Edges as the placement rules name them: Right and Bottom lie just past the
// last column and row.
int RightOf(const QRect& r) {
    return r.x() + r.width();
}
int BottomOf(const QRect& r) {
    return r.y() + r.height();
}

int BarLeft(const QRect& picture, int width, int screenWidth) {
    if (screenWidth < RightOf(picture)) return screenWidth - width;
    const int left = RightOf(picture) - width;
    return left < 1 ? 0 : left;
}

int BarTop(const QRect& picture, int height, const QRect& desktop) {
    if (BottomOf(desktop) >= BottomOf(picture) + height) return BottomOf(picture) + 2;
    if (desktop.top() <= picture.top() - height - 2) return picture.top() - height - 2;
    if (desktop.top() > picture.top()) return desktop.top() + 2;
    return picture.top() + 2;
}

}  // namespace

QPoint PlaceToolBar(const QRect& picture, QSize bar, const TScreenLayout& screens) {
    return {BarLeft(picture, bar.width(), screens.primary.width()),
            BarTop(picture, bar.height(), screens.desktop)};
}

int ShareMenuTop(const QRect& bar, const QRect& menu, const TScreenLayout& screens) {
    if (BottomOf(bar) + menu.height() + 2 > screens.primary.height())
        return bar.top() - menu.height() - 2;
    return menu.top();
}

}  // namespace qpt
