#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

namespace qpt {

// The framework's timer: a non-visual component that calls OnTimer every
// Interval milliseconds while Enabled. Changing Interval restarts the count,
// and a zero interval never fires, so a control can set it up disabled and
// switch it on when there is something to animate.
class TRdTimer : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(int Interval READ Interval WRITE SetInterval)

public:
    explicit TRdTimer(QObject* owner = nullptr);

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool value);
    int Interval() const { return timer_.interval(); }
    void SetInterval(int value);

    std::function<void()> OnTimer;

    // Runs one tick at once, as if the interval had passed: tests step
    // animations with it instead of waiting.
    void Tick();

private:
    void Update();

    QTimer timer_;
    bool enabled_ = true;
};

}  // namespace qpt
