#include "skin/RdProgressBar.h"

#include "skin/RdGraphic.h"
#include "skin/RdTimer.h"
#include "skin/SkinDraw.h"

namespace qpt {

TRdProgressBar::TRdProgressBar(QWidget* parent)
    : TRdPaintBox(parent),
      background_(new TRdPictureProperty(this)),
      backgroundOption_(new TDesignRectProperty(this)),
      bar_(new TRdPictureProperty(this)),
      barOption_(new TDesignRectProperty(this)),
      booster_(new TRdPictureProperty(this)) {
    for (const TRdPictureProperty* picture : {background_, bar_})
        connect(picture, &TRdPictureProperty::Changed, this, &TRdProgressBar::Changed);
    for (const TDesignRectProperty* option : {backgroundOption_, barOption_})
        connect(option, &TDesignRectProperty::Changed, this, &TRdProgressBar::Changed);
    connect(booster_, &TRdPictureProperty::Changed, this, &TRdProgressBar::BoosterChanged);
    SetDefaultSlicing(backgroundOption_, background_);
    SetDefaultSlicing(barOption_, bar_);
}

void TRdProgressBar::SetDefaultSlicing(TDesignRectProperty* option,
                                       const TRdPictureProperty* picture) {
    option->Rect().OnDefaultRequested = [option, picture] {
        const TRdGraphic* graphic = picture->Graphic();
        const int w = graphic ? graphic->Width() / 3 : 0, h = graphic ? graphic->Height() / 3 : 0;
        option->Rect().Set(w, h, w, h, option->Rect().StretchMode());
    };
}

void TRdProgressBar::Changed() {
    update();
}

void TRdProgressBar::SetMax(int value) {
    if (max_ == value) return;
    max_ = value;
    Changed();
}

void TRdProgressBar::SetMin(int value) {
    if (min_ == value) return;
    min_ = value;
    UpdateTimer();
    Changed();
}

void TRdProgressBar::SetPosition(int value) {
    if (position_ == value) return;
    position_ = value;
    UpdateTimer();
    Changed();
}

void TRdProgressBar::SetImgBoosterY(int value) {
    if (boosterY_ == value) return;
    boosterY_ = value;
    Changed();
}

void TRdProgressBar::SetImgInterval(int value) {
    interval_ = qMax(value, 0);
    if (timer_) timer_->SetInterval(interval_);
}

void TRdProgressBar::EndLoad() {
    if (loading_ > 0 && --loading_ == 0) BoosterChanged();
}

void TRdProgressBar::BoosterChanged() {
    if (booster_->Empty()) {
        delete timer_;
        timer_ = nullptr;
        boosterOffset_ = 0;
    } else if (!timer_ && loading_ == 0) {
        timer_ = new TRdTimer(this);
        timer_->SetEnabled(false);
        timer_->SetInterval(interval_);
        timer_->OnTimer = [this] { StepBooster(); };
    }
    UpdateTimer();
    Changed();
}

void TRdProgressBar::UpdateTimer() {
    if (timer_) timer_->SetEnabled(position_ > min_);
}

// The booster slides right while it still ends inside the bar, then starts
// again at the left end.
void TRdProgressBar::StepBooster() {
    const QRect bar = BarRect();
    const TRdGraphic* graphic = booster_->Graphic();
    if (!graphic) return;
    const int next = boosterOffset_ + kBoosterStep;
    boosterOffset_ = next + graphic->Width() <= bar.width() ? next : 0;
    update();
}

QRect TRdProgressBar::BarRect() const {
    const qint64 range = qint64(max_) - min_;
    if (position_ <= min_ || range < 1) return {};
    const qint64 done = qint64(position_) - min_;
    qint64 barWidth = (qint64(width()) * done + range - 1) / range;
    barWidth = qMax<qint64>(barWidth, barOption_->Left() + barOption_->Right());
    barWidth = qMin<qint64>(barWidth, width());
    return QRect(0, 0, int(barWidth), height());
}

QRect TRdProgressBar::BoosterRect() const {
    const TRdGraphic* graphic = booster_->Graphic();
    if (!graphic || graphic->Empty() || position_ <= min_ || position_ >= max_) return {};
    const QRect bar = BarRect();
    const QRect booster(bar.left() + boosterOffset_, boosterY_, graphic->Width(),
                        graphic->Height());
    if (booster.right() > bar.right()) return {};
    return booster;
}

void TRdProgressBar::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setOpacity(DrawAlpha() / 255.0);
        if (!background_->Empty())
            SkinDraw(painter, rect(), background_->Graphic(), &backgroundOption_->Rect());
        const QRect bar = BarRect();
        if (!bar.isEmpty() && !bar_->Empty())
            SkinDraw(painter, bar, bar_->Graphic(), &barOption_->Rect());
        const QRect booster = BoosterRect();
        if (!booster.isEmpty()) booster_->Graphic()->Draw(painter, booster);
    }
    TRdPaintBox::paintEvent(event);
}

}  // namespace qpt
