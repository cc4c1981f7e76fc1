#pragma once

#include <optional>

namespace qpt {

// One click on a zoom button: the new step in tenths (10 is 100%) and what
// becomes of each button's Enabled; an empty value leaves it as it is.
struct TZoomClick {
    int step;
    std::optional<bool> enlargeEnabled;
    std::optional<bool> shrinkEnabled;
    bool operator==(const TZoomClick&) const = default;
};

// The steps run 1 to 15 one by one, then 20, 25, 30 and 40. The two rules
// differ on purpose: below 16 enlarging leaves its own button alone, and
// shrinking disables at 1 or less while enlarging enables from 1 on.
TZoomClick EnlargeStep(int step);
TZoomClick ShrinkStep(int step);

}  // namespace qpt
