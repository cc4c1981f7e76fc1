#include "skin/RdCustomSlider.h"

#include <qdrawutil.h>
#include <QKeyEvent>
#include <QMouseEvent>

#include "skin/FillSkinRect.h"
#include "skin/RdGraphic.h"
#include "skin/RdTimer.h"
#include "support/TickCount.h"

namespace qpt {

namespace {

// Used when no skin gives the pictures, so the control stays usable.
constexpr int kPlainRulerThickness = 4;
constexpr QSize kPlainThumb(8, 16);
// A press this far beside the ruler still counts as on it.
constexpr int kRulerGrip = 3;
constexpr int kTickGap = 3;
constexpr int kTickLength = 5;

}  // namespace

TRdCustomSlider::TRdCustomSlider(QWidget* parent)
    : TRdCustomControl(parent),
      hThumb_(new TRdPictureProperty(this)),
      hRuler_(new TRdPictureProperty(this)),
      vThumb_(new TRdPictureProperty(this)),
      vRuler_(new TRdPictureProperty(this)),
      rulerSelect_(new TRdPictureProperty(this)),
      repeatTimer_(new TRdTimer(this)) {
    for (TRdPictureProperty* picture : {hThumb_, hRuler_, vThumb_, vRuler_, rulerSelect_})
        connect(picture, &TRdPictureProperty::Changed, this, qOverload<>(&QWidget::update));
    repeatTimer_->SetEnabled(false);
    repeatTimer_->SetInterval(kRepeatInterval);
    repeatTimer_->OnTimer = [this] { RepeatTick(); };
    setMouseTracking(true);
}

TRdCustomSlider::~TRdCustomSlider() = default;

template <typename T>
void TRdCustomSlider::Change(T& field, const T& value) {
    if (field == value) return;
    field = value;
    update();
}

void TRdCustomSlider::SetValue(int value) {
    value = std::max(std::min(value, maxValue_), minValue_);
    if (value == value_) return;
    value_ = value;
    update();
    if (OnChange) OnChange(*this);
}

void TRdCustomSlider::ClampValue() {
    SetValue(value_);
}

void TRdCustomSlider::SetMinValue(int value) {
    Change(minValue_, value);
    ClampValue();
}

void TRdCustomSlider::SetMaxValue(int value) {
    Change(maxValue_, value);
    ClampValue();
}

void TRdCustomSlider::SetIncrement(int value) {
    Change(increment_, value);
}
void TRdCustomSlider::SetOrientation(TSliderOrientation value) {
    Change(orientation_, value);
}
void TRdCustomSlider::SetOptions(TSliderOptions value) {
    Change(options_, value);
}
void TRdCustomSlider::SetNumThumbStates(int value) {
    Change(numThumbStates_, std::clamp(value, 1, 2));
}
void TRdCustomSlider::SetRulerSelectAdd(int value) {
    Change(rulerSelectAdd_, value);
}
void TRdCustomSlider::SetRulerIndent(int value) {
    Change(rulerIndent_, value);
}
void TRdCustomSlider::SetIndent(int value) {
    Change(indent_, value);
}
void TRdCustomSlider::SetThumbOff(int value) {
    Change(thumbOff_, value);
}
void TRdCustomSlider::SetEdgeSize(int value) {
    Change(edgeSize_, std::max(value, 0));
}
void TRdCustomSlider::SetTransparent(bool value) {
    Change(transparent_, value);
}
void TRdCustomSlider::SetColor(quint32 value) {
    Change(color_, value);
}

QSize TRdCustomSlider::ThumbSize() const {
    if (ThumbPicture()->Empty()) return Vertical() ? kPlainThumb.transposed() : kPlainThumb;
    const TRdGraphic* graphic = ThumbPicture()->Graphic();
    return QSize(graphic->Width() / numThumbStates_, graphic->Height());
}

QRect TRdCustomSlider::RulerRect() const {
    const TRdPictureProperty* picture = RulerPicture();
    if (Vertical()) {
        const int thickness = picture->Empty() ? kPlainRulerThickness : picture->Graphic()->Width();
        return QRect((width() - thickness) / 2, rulerIndent_, thickness,
                     height() - 2 * rulerIndent_);
    }
    const int thickness = picture->Empty() ? kPlainRulerThickness : picture->Graphic()->Height();
    return QRect(rulerIndent_, (height() - thickness) / 2, width() - 2 * rulerIndent_, thickness);
}

TSliderScale TRdCustomSlider::Scale() const {
    const QRect ruler = RulerRect();
    const QSize thumb = ThumbSize();
    TSliderScale scale;
    scale.vertical = Vertical();
    scale.start = (Vertical() ? ruler.top() : ruler.left()) + indent_;
    scale.travel = Vertical() ? ruler.height() - thumb.height() : ruler.width() - thumb.width();
    scale.minValue = minValue_;
    scale.maxValue = maxValue_;
    scale.increment = increment_;
    scale.snap = !(options_ & soSmooth);
    return scale;
}

int TRdCustomSlider::ThumbPos() const {
    return thumbDown_ ? dragPos_ : SliderValueToPos(Scale(), value_);
}

QRect TRdCustomSlider::ThumbRect() const {
    const QSize size = ThumbSize();
    const int pos = ThumbPos();
    if (Vertical()) return QRect(QPoint((width() - size.width()) / 2 + thumbOff_, pos), size);
    return QRect(QPoint(pos, (height() - size.height()) / 2 + thumbOff_), size);
}

void TRdCustomSlider::StepValue(TSliderAction action) {
    SetValue(SliderStepValue(value_, action, minValue_, maxValue_, increment_));
}

void TRdCustomSlider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!transparent_)
        FillSkinRect(painter, rect(), color_, color_, TGradientDirection::gdHorizontal);
    if (edgeSize_ > 0) qDrawShadePanel(&painter, rect(), palette(), true, edgeSize_);
    const QRect ruler = RulerRect();
    PaintRuler(painter, ruler);
    if ((options_ & soShowFocusRect) && hasFocus()) {
        const QRect focus = ruler.adjusted(2, 2, -2, -2);
        if (focus.isValid()) {
            painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
            painter.drawRect(focus.adjusted(0, 0, -1, -1));
        }
    }
    if (options_ & soShowPoints) PaintPoints(painter, ruler);
    PaintThumb(painter);
}

void TRdCustomSlider::PaintRuler(QPainter& painter, const QRect& ruler) const {
    if (maxValue_ == minValue_ || RulerPicture()->Empty()) return;
    RulerPicture()->Graphic()->DrawAlpha(painter, ruler, DrawAlpha());
    if (maxValue_ <= minValue_ || rulerSelect_->Empty()) return;
    // The selected part runs from the minimum end to just under the thumb.
    const QRect thumb = ThumbRect();
    QRect selected = ruler;
    if (Vertical())
        selected.setTop(thumb.bottom() + 1 - rulerSelectAdd_);
    else
        selected.setRight(thumb.left() - 1 + rulerSelectAdd_);
    painter.save();
    painter.setClipRect(selected);
    rulerSelect_->Graphic()->DrawAlpha(painter, ruler, DrawAlpha());
    painter.restore();
}

void TRdCustomSlider::PaintPoints(QPainter& painter, const QRect& ruler) {
    if (OnDrawPoints) {
        OnDrawPoints(*this, painter, ruler);
        return;
    }
    const TSliderScale scale = Scale();
    const long long steps =
        (static_cast<long long>(maxValue_) - minValue_) / std::max(increment_, 1);
    // More ticks than pixels would only paint a solid bar, and slowly.
    if (steps <= 0 || steps > std::max(scale.travel, 1)) return;
    const QSize thumb = ThumbSize();
    painter.setPen(palette().color(QPalette::WindowText));
    for (long long i = 0; i <= steps; ++i) {
        const int value = static_cast<int>(minValue_ + i * std::max(increment_, 1));
        const int pos = SliderValueToPos(scale, value);
        if (Vertical()) {
            const int y = pos + thumb.height() / 2;
            const int x = ruler.right() + 1 + kTickGap;
            painter.drawLine(x, y, x + kTickLength - 1, y);
        } else {
            const int x = pos + thumb.width() / 2;
            const int y = ruler.bottom() + 1 + kTickGap;
            painter.drawLine(x, y, x, y + kTickLength - 1);
        }
    }
}

void TRdCustomSlider::PaintThumb(QPainter& painter) const {
    const QRect thumb = ThumbRect();
    if (ThumbPicture()->Empty()) {
        painter.fillRect(thumb, palette().color(thumbHot_ || thumbDown_ ? QPalette::Highlight
                                                                        : QPalette::Button));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawRect(thumb.adjusted(0, 0, -1, -1));
        return;
    }
    const bool lit = numThumbStates_ == 2 && (thumbHot_ || thumbDown_);
    const QRect source(QPoint(lit ? thumb.width() : 0, 0), thumb.size());
    ThumbPicture()->Graphic()->DrawPart(painter, thumb, source, DrawAlpha(), !isEnabled(),
                                        TPngSmoothFilter::psfDefault);
}

void TRdCustomSlider::SetThumbHot(bool value) {
    Change(thumbHot_, value);
}

void TRdCustomSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (focusPolicy() & Qt::ClickFocus) setFocus(Qt::MouseFocusReason);
    if (!Editable()) return;
    const QPoint point = event->position().toPoint();
    const QRect thumb = ThumbRect();
    if (thumb.contains(point)) {
        dragPos_ = Along(thumb.topLeft());
        dragOffset_ = Along(point) - dragPos_;
        thumbDown_ = true;
        update();
        return;
    }
    const QRect grip = Vertical() ? RulerRect().adjusted(-kRulerGrip, 0, kRulerGrip, 0)
                                  : RulerRect().adjusted(0, -kRulerGrip, 0, kRulerGrip);
    if (!grip.contains(point)) return;
    rulerHeld_ = true;
    heldPoint_ = point;
    heldDirection_ = SliderPointDirection(thumb, point, Vertical());
    RepeatStep();
}

// The second press of a double click is no new press.
void TRdCustomSlider::mouseDoubleClickEvent(QMouseEvent*) {}

void TRdCustomSlider::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    SetThumbHot(ThumbRect().contains(point));
    if (thumbDown_ && (event->buttons() & Qt::LeftButton)) DragTo(point);
    if (rulerHeld_ && point != heldPoint_) {
        heldDirection_ = SliderPointDirection(ThumbRect(), point, Vertical());
        // Sideways movement decides on either orientation.
        if (point.x() > heldPoint_.x()) heldDirection_ = TSliderAction::Up;
        if (point.x() < heldPoint_.x()) heldDirection_ = TSliderAction::Down;
        heldPoint_ = point;
    }
}

void TRdCustomSlider::DragTo(const QPoint& point) {
    const TSliderScale scale = Scale();
    const int pos =
        std::clamp(Along(point) - dragOffset_, std::min(scale.start, scale.start + scale.travel),
                   std::max(scale.start, scale.start + scale.travel));
    const int value = SliderPosToValue(scale, pos);
    dragPos_ = scale.snap ? SliderValueToPos(scale, value) : pos;
    update();
    SetValue(value);
}

void TRdCustomSlider::mouseReleaseEvent(QMouseEvent* event) {
    if (rulerHeld_) {
        StopRepeat();
        if (OnChanged) OnChanged(*this);
    }
    if (thumbDown_ && event->button() == Qt::LeftButton) {
        thumbDown_ = false;
        update();
        if (Editable() && OnChanged) OnChanged(*this);
    }
}

void TRdCustomSlider::leaveEvent(QEvent* event) {
    if (!thumbDown_) SetThumbHot(false);
    TRdCustomControl::leaveEvent(event);
}

void TRdCustomSlider::RepeatStep() {
    const TSliderAction direction = SliderPointDirection(ThumbRect(), heldPoint_, Vertical());
    if (direction == TSliderAction::None || direction != heldDirection_) return;
    StepValue(direction);
    if (repeatTimer_->Enabled()) return;
    repeatTimer_->SetEnabled(true);
    repeatStart_ = GetTickCount();
}

void TRdCustomSlider::RepeatTick() {
    if (repeatStart_) {
        if (GetTickCount() - *repeatStart_ < static_cast<uint32_t>(kRepeatDelay)) return;
        repeatStart_.reset();
    }
    RepeatStep();
}

void TRdCustomSlider::StopRepeat() {
    repeatTimer_->SetEnabled(false);
    repeatStart_.reset();
    rulerHeld_ = false;
}

void TRdCustomSlider::keyPressEvent(QKeyEvent* event) {
    TSliderAction action = TSliderAction::None;
    if (!(event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier))) {
        switch (event->key()) {
            case Qt::Key_Home:
                action = TSliderAction::ToMin;
                break;
            case Qt::Key_End:
                action = TSliderAction::ToMax;
                break;
            case Qt::Key_Right:
                if (!Vertical()) action = TSliderAction::Up;
                break;
            case Qt::Key_Left:
                if (!Vertical()) action = TSliderAction::Down;
                break;
            case Qt::Key_Up:
                if (Vertical()) action = TSliderAction::Up;
                break;
            case Qt::Key_Down:
                if (Vertical()) action = TSliderAction::Down;
                break;
            default:
                break;
        }
    }
    if (action == TSliderAction::None) {
        TRdCustomControl::keyPressEvent(event);
        return;
    }
    if (!Editable()) return;
    StepValue(action);
    if (OnChanged) OnChanged(*this);
}

}  // namespace qpt
