#include "skin/ButtonFade.h"

#include <QPainter>

#include "skin/SkinDraw.h"

namespace qpt {

TButtonFade::TButtonFade(QObject* owner) : timer_(owner) {
    timer_.SetEnabled(false);
    timer_.SetInterval(kInterval);
    timer_.OnTimer = [this] { Step(); };
}

void TButtonFade::Start(TMode mode) {
    mode_ = mode;
    alpha_ = kStartAlpha;
    timer_.SetEnabled(true);
}

void TButtonFade::Stop() {
    timer_.SetEnabled(false);
    mode_ = fmNone;
    alpha_ = 0;
}

void TButtonFade::Step() {
    alpha_ += kStep;
    if (alpha_ >= kEndAlpha || !CanRun || !CanRun()) Stop();
    if (OnStep) OnStep();
}

void TButtonFade::Draw(QPainter& painter, const QRect& rect, TRdGraphic* normal, TRdGraphic* over,
                       const TDesignRect* slicing, TAniEffect effect) const {
    TRdGraphic* first = mode_ == fmIn ? over : normal;
    TRdGraphic* second = mode_ == fmIn ? normal : over;
    const qreal opacity = painter.opacity();
    const int firstAlpha = effect == TImageButtonTypes::ibeDouble ? alpha_ : 255;
    painter.setOpacity(opacity * firstAlpha / 255.0);
    SkinDraw(painter, rect, first, slicing);
    painter.setOpacity(opacity * (255 - alpha_) / 255.0);
    SkinDraw(painter, rect, second, slicing);
    painter.setOpacity(opacity);
}

}  // namespace qpt
