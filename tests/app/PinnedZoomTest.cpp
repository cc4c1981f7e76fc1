// The window's size and place at each zoom step, against screens made up for
// the test: the whole table up and down for a small picture and a tall one,
// the scroll bar's 9 pixels, and the corner next to the bar.
#include <gtest/gtest.h>

#include "app/PinnedZoom.h"
#include "tests/common/QtPrinters.h"

namespace qpt {
namespace {

const int kUp[] = {11, 12, 13, 14, 15, 20, 25, 30, 40};
const int kDown[] = {30, 25, 20, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1};

TScreenLayout Screen(int width, int height) {
    return {QRect(0, 0, width, height), {QRect(0, 0, width, height)}, QRect(0, 0, width, height)};
}

// A session that zooms one picture step by step; the toolbar stays where it
// stood at 100%, as it does while the window keeps the corner next to it.
struct TZoomRun {
    TZoomRun(QSize picture, QRect window, QRect toolbar, TScreenLayout screens)
        : input{picture, window.width(), window.height(), 10, true, toolbar, screens},
          sizes{window, window.size(), picture, 0} {}
    QRect Step(int zoomStep, bool up) {
        input.zoomStep = zoomStep;
        input.up = up;
        sizes = ZoomStepSizes(sizes, input);
        return sizes.window;
    }
    TZoomStepInput input;
    TZoomSizes sizes;
};

TEST(PinnedZoom, ASmallPictureGrowsAndShrinksAboutTheCornerAboveTheBar) {
    // 200 by 100 at 860,440 on 1920 by 1080; the bar hangs below at 542.
    TZoomRun run(QSize(200, 100), QRect(860, 440, 200, 100), QRect(249, 542, 811, 40),
                 Screen(1920, 1080));
    const auto expected = [](int step) {
        const int w = 200 * step / 10, h = 100 * step / 10;
        return QRect(1060 - w, 540 - h, w, h);
    };
    for (int step : kUp) {
        EXPECT_EQ(run.Step(step, true), expected(step)) << step;
        EXPECT_EQ(run.sizes.view, expected(step).size());
    }
    for (int step : kDown)
        EXPECT_EQ(run.Step(step, false), expected(step)) << step;
    EXPECT_EQ(run.sizes.zoomBaseWidth, 200);
}

// 700 high on a screen 1000 high: the limit is 800. At 110% the window is
// 770; from 120% it stays at 800 and the box scrolls, and it comes down
// again only once the picture fits.
TEST(PinnedZoom, ATallPictureStopsAtTheLimitAndScrolls) {
    TZoomRun run(QSize(300, 700), QRect(600, 250, 300, 700), QRect(89, 952, 811, 40),
                 Screen(1600, 1000));
    const auto expected = [](int step) {
        const int w = 300 * step / 10, h = std::min(700 * step / 10, 800);
        return QRect(900 - w, 950 - h, w, h);
    };
    for (int step : kUp) {
        EXPECT_EQ(run.Step(step, true), expected(step)) << step;
        EXPECT_EQ(run.sizes.box.height(), expected(step).height());
        EXPECT_EQ(run.sizes.view.height(), 70 * step) << "the view keeps the whole picture";
    }
    for (int step : kDown)
        EXPECT_EQ(run.Step(step, false), expected(step)) << step;
    EXPECT_EQ(run.sizes.zoomBaseWidth, 300) << "no scroll bar room at its starting width";
}

// A picture cut at the start keeps the 9 pixels of its bar in the width the
// zoom multiplies. They are added once more only at a step where the view,
// scrolling, is exactly as wide as the window was at the start, and given
// back once the picture fits again.
// On a taller second monitor the picture still stops at 80% of the primary
// screen's height: 864 of 1080, though its own monitor is 1440 high.
TEST(PinnedZoom, OnASecondMonitorThePrimaryScreenSetsTheLimit) {
    const TScreenLayout two{QRect(0, 0, 1920, 1080),
                            {QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1440)},
                            QRect(0, 0, 3200, 1440)};
    TZoomRun run(QSize(300, 700), QRect(2400, 300, 300, 700), QRect(1109, 1002, 811, 40), two);
    EXPECT_EQ(run.Step(12, true), QRect(2700 - 360, 1000 - 840, 360, 840));
    EXPECT_EQ(run.Step(13, true), QRect(2700 - 390, 1000 - 864, 390, 864));
    EXPECT_EQ(run.sizes.view, QSize(390, 910));
    EXPECT_EQ(run.Step(12, false).size(), QSize(360, 840)) << "it fits again below the limit";
}

TEST(PinnedZoom, TheScrollBarsNinePixelsFollowTheStartingWidth) {
    TZoomRun cut(QSize(300, 900), QRect(600, 100, 309, 800), QRect(98, 902, 811, 40),
                 Screen(1600, 1000));
    EXPECT_EQ(cut.Step(11, true), QRect(909 - 339, 100, 339, 800));
    EXPECT_EQ(cut.sizes.zoomBaseWidth, 309);
    EXPECT_EQ(cut.Step(10, false).width(), 309);

    // 90 wide, cut: at 110% the view is 99 wide, the window's first width.
    TZoomRun narrow(QSize(90, 1000), QRect(600, 100, 99, 800), QRect(0, 902, 811, 40),
                    Screen(1600, 1000));
    EXPECT_EQ(narrow.Step(11, true).size(), QSize(118, 800));
    EXPECT_EQ(narrow.sizes.zoomBaseWidth, 108);
    EXPECT_EQ(narrow.Step(12, true).width(), 129);

    TZoomRun fits(QSize(200, 100), QRect(860, 440, 200, 100), QRect(249, 542, 811, 40),
                  Screen(1920, 1080));
    fits.sizes.zoomBaseWidth = 209;
    EXPECT_EQ(fits.Step(9, false).width(), 180);
    EXPECT_EQ(fits.sizes.zoomBaseWidth, 200);
}

TEST(PinnedZoom, ShrinkingMovesAWindowWhoseTopHoldsTheBarDownPastIt) {
    // The window fills the screen's height; the bar lies inside its top.
    TZoomRun run(QSize(600, 800), QRect(500, 0, 600, 800), QRect(289, 2, 811, 40),
                 Screen(1600, 1000));
    EXPECT_EQ(run.Step(9, false), QRect(560, 42, 540, 720));
    // Bar and window tops more than 2 apart, the bar lower: the bottom stays.
    run.input.toolbar = QRect(289, 100, 811, 40);
    EXPECT_EQ(run.Step(8, false), QRect(620, 122, 480, 640));
}

TEST(PinnedZoom, AShrunkWindowAsWideAsTheScreenGoesToItsLeftEdge) {
    TZoomRun run(QSize(1000, 100), QRect(300, 400, 1000, 100), QRect(489, 502, 811, 40),
                 Screen(1200, 1000));
    EXPECT_EQ(run.Step(20, true), QRect(-700, 300, 2000, 200)) << "enlarging has no such rule";
    EXPECT_EQ(run.Step(15, false), QRect(0, 350, 1500, 150));
    // Narrower than the screen again: its right edge meets the bar's.
    EXPECT_EQ(run.Step(11, false), QRect(1300 - 1100, 390, 1100, 110));
}

}  // namespace
}  // namespace qpt
