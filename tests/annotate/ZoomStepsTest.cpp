// The zoom buttons' step table, walked from end to end as a user clicks.
#include <gtest/gtest.h>

#include <vector>

#include "annotate/ZoomSteps.h"

namespace qpt {
namespace {

// Enabled states as the buttons show them after each click, both starting
// enabled at 100%.
struct TButtons {
    bool enlarge = true, shrink = true;
    void Take(const TZoomClick& click) {
        if (click.enlargeEnabled) enlarge = *click.enlargeEnabled;
        if (click.shrinkEnabled) shrink = *click.shrinkEnabled;
    }
};

TEST(ZoomSteps, EnlargingRunsOneByOneTo150ThenJumpsTo400AndStops) {
    TButtons buttons;
    std::vector<int> steps;
    int step = 10;
    while (buttons.enlarge) {
        const TZoomClick click = EnlargeStep(step);
        buttons.Take(click);
        step = click.step;
        steps.push_back(step);
    }
    EXPECT_EQ(steps, (std::vector<int>{11, 12, 13, 14, 15, 20, 25, 30, 40}));
    EXPECT_TRUE(buttons.shrink);
}

TEST(ZoomSteps, ShrinkingFrom400JumpsBackTo150ThenRunsDownTo10AndStops) {
    TButtons buttons;
    buttons.enlarge = false;
    std::vector<int> steps;
    int step = 40;
    while (buttons.shrink) {
        const TZoomClick click = ShrinkStep(step);
        buttons.Take(click);
        step = click.step;
        steps.push_back(step);
    }
    EXPECT_EQ(steps,
              (std::vector<int>{30, 25, 20, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1}));
    EXPECT_TRUE(buttons.enlarge) << "enabled again on the first step down";
}

// Below 16 enlarging never touches its own button: one that shrinking left
// enabled stays so, and from 1 the shrink button comes back.
TEST(ZoomSteps, TheTwoRulesDifferOnPurpose) {
    EXPECT_EQ(EnlargeStep(1), (TZoomClick{2, {}, true}));
    EXPECT_EQ(EnlargeStep(14), (TZoomClick{15, {}, true}));
    EXPECT_EQ(EnlargeStep(15), (TZoomClick{20, true, true}));
    EXPECT_EQ(EnlargeStep(30), (TZoomClick{40, false, {}}));
    EXPECT_EQ(ShrinkStep(2), (TZoomClick{1, {}, false}));
    EXPECT_EQ(ShrinkStep(3), (TZoomClick{2, true, true}));
    EXPECT_EQ(ShrinkStep(20), (TZoomClick{15, true, true}));
}

}  // namespace
}  // namespace qpt
