#pragma once

#include <QPoint>
#include <functional>

#include "skin/ScrollBarModel.h"

class QPainter;
class QWidget;

namespace qpt {

class TRdScrollBarImages;
class TRdTimer;

// The events a scroll bar control publishes. OnScroll may change the
// position the user asked for; OnChange follows every change of position;
// OnTrackEnd comes when a thumb drag ends.
struct TScrollBarEvents {
    std::function<void(TScrollCode code, int& position)> OnScroll;
    std::function<void()> OnChange;
    std::function<void()> OnTrackEnd;
};

// Everything a scroll bar does, whichever widget it lives in: range and
// position, the pictures, painting, and the mouse (thumb drag, arrows and
// paging that repeat while held, the wheel). The host widget forwards its
// events here and is shown or hidden under AutoHide.
class TScrollBarCore {
public:
    // Held pages and arrows repeat this often once the wait is over.
    static constexpr int kRepeatInterval = 50;
    static constexpr int kDefaultWait = 400;
    static constexpr int kMinThumb = 8;

    TScrollBarCore(QWidget& host, TScrollBarEvents& events);

    TScrollBarModel::TScrollBarKind Kind() const { return kind_; }
    void SetKind(TScrollBarModel::TScrollBarKind kind);
    bool Vertical() const { return kind_ == TScrollBarModel::sbVertical; }
    const TScrollBarModel& Model() const { return model_; }
    TRdScrollBarImages* Images() const { return images_; }
    // The timer that repeats a held arrow or page; tests step it with Tick.
    TRdTimer* RepeatTimer() const { return timer_; }
    int WaitInterval() const { return waitInterval_; }
    void SetWaitInterval(int ms) { waitInterval_ = qMax(0, ms); }

    void SetParams(int min, int max, int page, int position);
    void SetLargeChange(int value) { model_.SetLargeChange(value); }
    void SetSmallChange(int value) { model_.SetSmallChange(value); }
    // Moves as the user would: OnScroll may amend the position first.
    void Scroll(TScrollCode code, int position);

    TScrollBarLayout Layout() const;
    TScrollBarPart HotPart() const { return hot_; }
    // Lights a part as if the mouse were over it (for showing the states).
    void SetHotPart(TScrollBarPart part);
    TScrollBarPart PressedPart() const { return pressed_; }

    void Paint(QPainter& painter, int alpha) const;
    void Press(QPoint point, Qt::MouseButton button);
    void Move(QPoint point);
    void Release(QPoint point);
    void Leave();
    // True when the wheel was taken, even at an end of the range.
    bool Wheel(QPoint angleDelta);

    // For an owner that mirrors the position elsewhere, apart from OnChange.
    std::function<void(int position)> OnPositionChanged;

private:
    void ApplyPosition(int position);
    void Step(TScrollBarPart part);
    void RepeatTick();
    void ImagesChanged();
    void FollowAutoHide();
    int ArrowLength(int length, int thickness) const;

    QWidget& host_;
    TScrollBarEvents& events_;
    TScrollBarModel model_;
    TScrollBarModel::TScrollBarKind kind_ = TScrollBarModel::sbHorizontal;
    TRdScrollBarImages* images_;
    TRdTimer* timer_;
    TScrollBarPart hot_ = TScrollBarPart::spNone;
    TScrollBarPart pressed_ = TScrollBarPart::spNone;
    QPoint lastPoint_;
    int dragOffset_ = 0;
    int waitInterval_ = kDefaultWait;
    int wheelRemainder_ = 0;
};

}  // namespace qpt
