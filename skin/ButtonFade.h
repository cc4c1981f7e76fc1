#pragma once

#include <QRect>
#include <functional>

#include "skin/ImageButtonTypes.h"
#include "skin/RdTimer.h"

class QPainter;

namespace qpt {

class TRdGraphic;
class TDesignRect;

// The cross-fade between a button's normal and hover pictures: a short run of
// ticks that blends one picture into the other.
class TButtonFade {
public:
    enum TMode { fmNone = 0, fmIn = 1, fmOut = 2 };
    static constexpr int kInterval = 10;
    static constexpr int kStartAlpha = 80;
    static constexpr int kStep = 10;
    static constexpr int kEndAlpha = 220;

    explicit TButtonFade(QObject* owner);

    int Mode() const { return mode_; }
    int Alpha() const { return alpha_; }
    bool Running() const { return mode_ != fmNone; }
    TRdTimer* Timer() { return &timer_; }

    // Starting again while running restarts from the beginning in the new
    // direction.
    void Start(TMode mode);
    void Stop();

    // Fading in the hover picture lies below and the normal one above it;
    // fading out the other way round.
    void Draw(QPainter& painter, const QRect& rect, TRdGraphic* normal, TRdGraphic* over,
              const TDesignRect* slicing, TAniEffect effect) const;

    // Asked at every tick: a fade that has become impossible ends.
    std::function<bool()> CanRun;
    // Told after every tick, to repaint.
    std::function<void()> OnStep;

private:
    void Step();

    TRdTimer timer_;
    int mode_ = fmNone;
    int alpha_ = 0;
};

}  // namespace qpt
