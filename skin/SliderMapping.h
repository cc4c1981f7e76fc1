#pragma once

#include <QPoint>
#include <QRect>

namespace qpt {

// What a slider step does: nothing, to either end, or one increment up or
// down. A point away from the thumb asks for the step towards it.
enum class TSliderAction : int { None = 0, ToMin = 1, ToMax = 2, Up = 3, Down = 4 };

// Everything the value and pixel conversions depend on. Start and travel are
// along the slider's axis; a vertical slider has MaxValue at the top.
struct TSliderScale {
    int start = 0;
    int travel = 0;
    int minValue = 0;
    int maxValue = 0;
    int increment = 1;
    bool snap = true;
    bool vertical = false;
};

// Where the thumb's leading edge sits for a value.
int SliderValueToPos(const TSliderScale& scale, int value);
// The value a thumb edge at `pos` stands for, snapped to the increment unless
// the scale says otherwise, and held within the range.
int SliderPosToValue(const TSliderScale& scale, int pos);
// The value after a step from `value`, held within the range.
int SliderStepValue(int value, TSliderAction action, int minValue, int maxValue, int increment);
// Which step brings the thumb towards the point; None on the thumb.
TSliderAction SliderPointDirection(const QRect& thumb, const QPoint& point, bool vertical);

}  // namespace qpt
