#include "skin/ScrollBarCore.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>

#include "skin/RdScrollBarImages.h"
#include "skin/RdTimer.h"
#include "skin/ScrollBarPainter.h"

namespace qpt {

TScrollBarCore::TScrollBarCore(QWidget& host, TScrollBarEvents& events)
    : host_(host),
      events_(events),
      images_(new TRdScrollBarImages(&host)),
      timer_(new TRdTimer(&host)) {
    images_->setObjectName(QStringLiteral("AllSkinImage"));
    timer_->SetEnabled(false);
    timer_->OnTimer = [this] { RepeatTick(); };
    QObject::connect(images_, &TRdScrollBarImages::Changed, &host, [this] { ImagesChanged(); });
}

void TScrollBarCore::SetKind(TScrollBarModel::TScrollBarKind kind) {
    if (kind_ == kind) return;
    kind_ = kind;
    ImagesChanged();
}

void TScrollBarCore::SetParams(int min, int max, int page, int position) {
    const int old = model_.Position();
    model_.SetParams(min, max, page, position);
    FollowAutoHide();
    host_.update();
    if (model_.Position() != old) ApplyPosition(model_.Position());
}

void TScrollBarCore::ApplyPosition(int position) {
    if (OnPositionChanged) OnPositionChanged(position);
    if (events_.OnChange) events_.OnChange();
}

void TScrollBarCore::Scroll(TScrollCode code, int position) {
    position = model_.Clamp(position);
    if (events_.OnScroll) {
        events_.OnScroll(code, position);
        position = model_.Clamp(position);
    }
    if (position == model_.Position()) return;
    model_.SetParams(model_.Min(), model_.Max(), model_.PageSize(), position);
    host_.update();
    ApplyPosition(position);
}

int TScrollBarCore::ArrowLength(int length, int thickness) const {
    if (!images_->AllowArrow()) return 0;
    // Arrows give way to the thumb on a bar too short for both.
    if (images_->AutoArrow() && length < 2 * thickness + kMinThumb) return 0;
    return thickness;
}

TScrollBarLayout TScrollBarCore::Layout() const {
    const QSize size = host_.size();
    const bool v = Vertical();
    const int length = v ? size.height() : size.width();
    const int thickness = v ? size.width() : size.height();
    const int minThumb = qMax(kMinThumb, ThumbEndsLength(*images_, v));
    return model_.Layout(size, v, ArrowLength(length, thickness), minThumb);
}

void TScrollBarCore::SetHotPart(TScrollBarPart part) {
    if (hot_ == part) return;
    hot_ = part;
    host_.update();
}

void TScrollBarCore::Paint(QPainter& painter, int alpha) const {
    painter.setOpacity(alpha / 255.0);
    PaintScrollBar(painter, Layout(), *images_, hot_);
}

void TScrollBarCore::Press(QPoint point, Qt::MouseButton button) {
    if (button != Qt::LeftButton) return;
    lastPoint_ = point;
    const TScrollBarLayout layout = Layout();
    pressed_ = TScrollBarModel::HitTest(layout, point);
    if (pressed_ == TScrollBarPart::spNone) return;
    if (pressed_ == TScrollBarPart::spThumb) {
        dragOffset_ = AlongBar(layout.vertical, point - layout.thumb.topLeft());
        SetHotPart(TScrollBarPart::spThumb);
        return;
    }
    Step(pressed_);
    timer_->SetInterval(waitInterval_);
    timer_->SetEnabled(true);
}

void TScrollBarCore::Step(TScrollBarPart part) {
    const int pos = model_.Position();
    switch (part) {
        case TScrollBarPart::spArrowLow:
            return Scroll(TScrollCode::scLineUp, pos - model_.SmallChange());
        case TScrollBarPart::spArrowHigh:
            return Scroll(TScrollCode::scLineDown, pos + model_.SmallChange());
        default:
            break;
    }
    // Paging stops once the thumb has reached the held point.
    if (TScrollBarModel::HitTest(Layout(), lastPoint_) != part) return;
    if (part == TScrollBarPart::spTrackLow)
        Scroll(TScrollCode::scPageUp, pos - model_.LargeChange());
    else if (part == TScrollBarPart::spTrackHigh)
        Scroll(TScrollCode::scPageDown, pos + model_.LargeChange());
}

void TScrollBarCore::RepeatTick() {
    Step(pressed_);
    if (timer_->Interval() != kRepeatInterval) timer_->SetInterval(kRepeatInterval);
}

void TScrollBarCore::Move(QPoint point) {
    lastPoint_ = point;
    const TScrollBarLayout layout = Layout();
    if (pressed_ == TScrollBarPart::spThumb) {
        const int start = AlongBar(layout.vertical, point) - dragOffset_;
        Scroll(TScrollCode::scTrack, model_.PositionAt(layout, start));
        return;
    }
    if (pressed_ == TScrollBarPart::spNone) SetHotPart(TScrollBarModel::HitTest(layout, point));
}

void TScrollBarCore::Release(QPoint point) {
    const TScrollBarPart was = pressed_;
    pressed_ = TScrollBarPart::spNone;
    timer_->SetEnabled(false);
    if (was == TScrollBarPart::spNone) return;
    int position = model_.Position();
    if (was == TScrollBarPart::spThumb) {
        Scroll(TScrollCode::scPosition, position);
        if (events_.OnTrackEnd) events_.OnTrackEnd();
    }
    position = model_.Position();
    if (events_.OnScroll) events_.OnScroll(TScrollCode::scEndScroll, position);
    const QRect inside(QPoint(0, 0), host_.size());
    SetHotPart(inside.contains(point) ? TScrollBarModel::HitTest(Layout(), point)
                                      : TScrollBarPart::spNone);
}

void TScrollBarCore::Leave() {
    if (pressed_ == TScrollBarPart::spNone) SetHotPart(TScrollBarPart::spNone);
}

bool TScrollBarCore::Wheel(QPoint angleDelta) {
    const int delta = angleDelta.y() != 0 ? angleDelta.y() : angleDelta.x();
    if (delta == 0) return false;
    // Fine-grained wheels add up to whole notches.
    wheelRemainder_ += delta;
    const int notches = wheelRemainder_ / 120;
    wheelRemainder_ -= notches * 120;
    if (notches == 0) return true;
    const int lines = notches * QApplication::wheelScrollLines() * model_.SmallChange();
    Scroll(notches > 0 ? TScrollCode::scLineUp : TScrollCode::scLineDown,
           model_.Position() - lines);
    return true;
}

void TScrollBarCore::ImagesChanged() {
    if (images_->AutoSize()) {
        // The bar is as thick as its thumb picture.
        const int thickness = ThumbPictureThickness(*images_, Vertical());
        if (thickness > 0) {
            if (Vertical())
                host_.resize(thickness, host_.height());
            else
                host_.resize(host_.width(), thickness);
        }
    }
    FollowAutoHide();
    host_.update();
}

void TScrollBarCore::FollowAutoHide() {
    if (!images_->AutoHide()) return;
    const bool fits = model_.Fits();
    if (host_.isHidden() != fits) host_.setVisible(!fits);
}

}  // namespace qpt
