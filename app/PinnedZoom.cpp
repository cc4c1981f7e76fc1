#include "app/PinnedZoom.h"

#include <cmath>

namespace qpt {

namespace {

constexpr int kScrollBarRoom = 9;

// A tenth of a product, worked out in floating point and cut toward zero.
int Tenth(double a, double b) {
    return int(std::trunc(a * b / 10.0));
}

bool Scrolls(const TZoomSizes& s) {
    return s.view.height() > s.box.height();
}

// The corner next to the bar stays: a window above the bar keeps its bottom,
// one below it keeps its top, and it shrinks toward the bar's right edge.
void PlaceAfterShrink(QRect& w, QSize old, const TZoomStepInput& in) {
    const QRect& bar = in.toolbar;
    const int dW = old.width() - w.width(), dH = old.height() - w.height();
    // Within 2 pixels of each other, the bar sits inside the window's top.
    const auto followBar = [&] {
        if (w.top() + 2 < bar.top())
            w.moveTop(w.top() + dH);
        else
            w.moveTop(w.top() + bar.height() + 2);
    };
    if (in.screens.primary.width() <= w.width()) {
        w.moveLeft(0);
        if (w.top() <= bar.top()) followBar();
        return;
    }
    if (w.top() <= bar.top()) followBar();
    w.moveLeft(w.left() + dW);
    const int barRight = bar.left() + bar.width(), right = w.left() + w.width();
    if (barRight < right) w.moveLeft(w.left() - (right - barRight));
}

void ShrinkStep(TZoomSizes& s, int limit, const TZoomStepInput& in) {
    const int h = Tenth(in.zoomStep, in.initialHeight);
    if (limit >= h || s.view.height() < s.window.height()) {
        s.box.setHeight(h);
        s.window.setHeight(h);
    }
    // The picture fits again: the scroll bar's room is given back.
    if (limit >= s.view.height() && s.view.height() <= s.window.height())
        s.zoomBaseWidth = in.initialWidth;
    s.box.setWidth(s.view.width());
    if (Scrolls(s) && s.view.width() == in.initialWidth)
        s.zoomBaseWidth = in.initialWidth + kScrollBarRoom;
}

void EnlargeStep(TZoomSizes& s, int limit, const TZoomStepInput& in) {
    s.box = QSize(s.view.width(), Tenth(in.zoomStep, in.initialHeight));
    s.window.setHeight(s.box.height());
    if (limit >= s.window.height()) return;
    s.window.setHeight(limit);
    s.box.setHeight(limit);
    if (s.view.height() > limit && s.view.width() == in.initialWidth && Scrolls(s))
        s.zoomBaseWidth = in.initialWidth + kScrollBarRoom;
}

}  // namespace

TZoomSizes ZoomStepSizes(const TZoomSizes& now, const TZoomStepInput& in) {
    TZoomSizes s = now;
    const QSize old = now.window.size();
    if (s.zoomBaseWidth == 0) s.zoomBaseWidth = in.initialWidth;
    const int limit = Tenth(in.screens.primary.height(), 8);
    s.view = QSize(Tenth(in.picture.width(), in.zoomStep), Tenth(in.picture.height(), in.zoomStep));
    if (in.up)
        EnlargeStep(s, limit, in);
    else
        ShrinkStep(s, limit, in);
    s.window.setWidth(Tenth(in.zoomStep, s.zoomBaseWidth));
    if (!in.up) {
        PlaceAfterShrink(s.window, old, in);
        return s;
    }
    // Growing away from a bar that hangs under the lower right corner, or
    // downward when the bar lies above.
    s.window.moveLeft(s.window.left() - (s.window.width() - old.width()));
    if (s.window.top() <= in.toolbar.top())
        s.window.moveTop(s.window.top() - (s.window.height() - old.height()));
    return s;
}

}  // namespace qpt
