#include "skin/SliderMapping.h"

#include <algorithm>
#include <cmath>

namespace qpt {

namespace {

// Integer maths in 64 bits: a range near the int limits times a long travel
// must not overflow.
long long RoundDiv(long long numerator, long long denominator) {
    return std::llround(static_cast<double>(numerator) / static_cast<double>(denominator));
}

// A zero or negative increment would divide by zero; one unit is the
// smallest step there is.
int StepOf(int increment) {
    return increment > 0 ? increment : 1;
}

}  // namespace

int SliderValueToPos(const TSliderScale& scale, int value) {
    const long long range = static_cast<long long>(scale.maxValue) - scale.minValue;
    const int travel = std::max(scale.travel, 0);
    long long offset = 0;
    if (range > 0)
        offset = RoundDiv(travel * (static_cast<long long>(value) - scale.minValue), range);
    const int along = static_cast<int>(std::clamp<long long>(offset, 0, travel));
    return scale.vertical ? scale.start + travel - along : scale.start + along;
}

int SliderPosToValue(const TSliderScale& scale, int pos) {
    if (scale.travel <= 0 || scale.maxValue <= scale.minValue) return scale.minValue;
    const long long range = static_cast<long long>(scale.maxValue) - scale.minValue;
    const long long offset = scale.vertical ? scale.start + scale.travel - pos : pos - scale.start;
    long long value = RoundDiv(offset * range, scale.travel);
    if (scale.snap) {
        const int step = StepOf(scale.increment);
        value = RoundDiv(value, step) * step;
    }
    value = std::max(value, 0LL) + scale.minValue;
    return static_cast<int>(std::min<long long>(value, scale.maxValue));
}

int SliderStepValue(int value, TSliderAction action, int minValue, int maxValue, int increment) {
    const int step = StepOf(increment);
    long long result = value;
    switch (action) {
        case TSliderAction::None:
            return value;
        case TSliderAction::ToMin:
            result = minValue;
            break;
        case TSliderAction::ToMax:
            result = maxValue;
            break;
        case TSliderAction::Up:
            result = RoundDiv(value, step) * step + step;
            break;
        case TSliderAction::Down:
            result = RoundDiv(value, step) * step - step;
            break;
    }
    result = std::min<long long>(result, maxValue);
    return static_cast<int>(std::max<long long>(result, minValue));
}

TSliderAction SliderPointDirection(const QRect& thumb, const QPoint& point, bool vertical) {
    if (vertical) {
        if (point.y() < thumb.top()) return TSliderAction::Up;
        if (point.y() > thumb.bottom()) return TSliderAction::Down;
    } else {
        if (point.x() < thumb.left()) return TSliderAction::Down;
        if (point.x() > thumb.right()) return TSliderAction::Up;
    }
    return TSliderAction::None;
}

}  // namespace qpt
