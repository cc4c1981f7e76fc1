#include "skin/RdTimer.h"

namespace qpt {

TRdTimer::TRdTimer(QObject* owner) : QObject(owner) {
    timer_.setInterval(1000);
    connect(&timer_, &QTimer::timeout, this, &TRdTimer::Tick);
    Update();
}

void TRdTimer::SetEnabled(bool value) {
    if (enabled_ == value) return;
    enabled_ = value;
    Update();
}

void TRdTimer::SetInterval(int value) {
    timer_.setInterval(qMax(value, 0));
    Update();
}

void TRdTimer::Tick() {
    if (OnTimer) OnTimer();
}

void TRdTimer::Update() {
    if (enabled_ && timer_.interval() > 0)
        timer_.start();
    else
        timer_.stop();
}

}  // namespace qpt
