// The zoom buttons of the real program on a private X server: the window's
// size and place after every step of the table, up to 400% and down to 10%,
// the buttons that stop at the ends, and the codes each click reports.
#include <gtest/gtest.h>

#include <QThread>
#include <functional>

#include "tests/app/PinnedProgram.h"

namespace qpt {
namespace {

using testing::Pattern;
using testing::WaitFor;

const int kUp[] = {11, 12, 13, 14, 15, 20, 25, 30, 40};
const int kDown[] = {30, 25, 20, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1};

// The zoom buttons' centres on the bar, at their design places.
const QPoint kShrink(25, 20);
const QPoint kEnlarge(97, 20);

class ZoomOnScreen : public testing::PinnedProgram {
protected:
    explicit ZoomOnScreen(int width = 1920, int height = 1080) : PinnedProgram(width, height) {}
    explicit ZoomOnScreen(const QList<QRect>& monitors) : PinnedProgram(monitors) {}

    void ShowBar() {
        const QRect window = PinnedWindowRect();
        ClickAt(window.topLeft() + QPoint(window.width() / 2, window.height() / 2));
        ASSERT_TRUE(WaitFor([&] { return !ToolbarRect().isEmpty(); }));
    }
    // Clicks a zoom button and waits for the window to take the expected
    // place; the bar is looked up anew, since it places itself after each
    // step.
    void Click(QPoint button, const QRect& expected, int step) {
        const QRect bar = ToolbarRect();
        ClickAt(bar.topLeft() + button);
        EXPECT_TRUE(WaitFor([&] { return PinnedWindowRect() == expected; }))
            << "at " << step * 10 << "%: " << PinnedWindowRect().x() << ","
            << PinnedWindowRect().y() << " " << PinnedWindowRect().width() << "x"
            << PinnedWindowRect().height();
    }
    // Every step up, one more click that the disabled button ignores, every
    // step down, and again one click too many.
    void WalkTheTable(const std::function<QRect(int)>& expected) {
        WalkTheTable(expected, expected);
    }
    void WalkTheTable(const std::function<QRect(int)>& up, const std::function<QRect(int)>& down) {
        for (int step : kUp)
            Click(kEnlarge, up(step), step);
        ClickAt(ToolbarRect().topLeft() + kEnlarge);
        QThread::msleep(300);
        EXPECT_EQ(PinnedWindowRect(), up(40)) << "enlarging stops at 400%";
        for (int step : kDown)
            Click(kShrink, down(step), step);
        ClickAt(ToolbarRect().topLeft() + kShrink);
        QThread::msleep(300);
        EXPECT_EQ(PinnedWindowRect(), down(1)) << "shrinking stops at 10%";
    }
};

// The window grows up and to the left from its lower right corner, next to
// which the bar hangs, and shrinks back to it.
TEST_F(ZoomOnScreen, ASmallPictureKeepsItsLowerRightCornerAtEveryStep) {
    Pin(Pattern(200, 100), QRect(860, 440, 200, 100));
    ShowBar();
    WalkTheTable([](int step) {
        const int w = 200 * step / 10, h = 100 * step / 10;
        return QRect(1060 - w, 540 - h, w, h);
    });
}

class TallZoomOnScreen : public ZoomOnScreen {
protected:
    TallZoomOnScreen() : ZoomOnScreen(1600, 1000) {}
};

// 700 high on a screen 1000 high, where the limit is 800: from 120% the
// window stays 800 high and the picture scrolls, until it fits again.
TEST_F(TallZoomOnScreen, ATallPictureStopsAtTheLimitAndScrolls) {
    Pin(Pattern(300, 700), QRect(600, 250, 300, 700));
    ShowBar();
    WalkTheTable([](int step) {
        const int w = 300 * step / 10, h = std::min(700 * step / 10, 800);
        return QRect(900 - w, 950 - h, w, h);
    });
}

// The primary screen, 1080 high, and a taller monitor to its right.
class ZoomOnTwoMonitors : public ZoomOnScreen {
protected:
    ZoomOnTwoMonitors() : ZoomOnScreen({QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1440)}) {}
};

// On the taller monitor the limit is still 80% of the primary screen's
// height, 864, though 1152 would fit there. Growing left, the window
// reaches over the primary screen; the bar stands flush with the primary
// screen's right edge, and the first step down brings the window's right
// edge to the bar's, where it stays.
TEST_F(ZoomOnTwoMonitors, OnTheTallerMonitorThePrimaryScreenSetsTheLimit) {
    Pin(Pattern(300, 700), QRect(2400, 300, 300, 700));
    ShowBar();
    EXPECT_EQ(ToolbarRect(), QRect(1109, 1002, 811, 40));
    // The window at a step, its lower right corner just inside `corner`.
    const auto endingAt = [](QPoint corner) {
        return [corner](int step) {
            const QSize size(30 * step, std::min(70 * step, 864));
            return QRect(corner - QPoint(size.width(), size.height()), size);
        };
    };
    WalkTheTable(endingAt(QPoint(2700, 1000)), endingAt(QPoint(1920, 1000)));
}

// A copy of the program beside a statistics library that writes down what
// it is told.
TEST_F(ZoomOnScreen, EachClickReportsItsUsageCode) {
    const QString record = env_.root() + "stat.txt";
    Pin(Pattern(200, 100), QRect(860, 440, 200, 100), {"/QPTMain"},
        ProgramBesideStatRecorder(record));
    ShowBar();
    Click(kEnlarge, QRect(840, 430, 220, 110), 11);
    Click(kEnlarge, QRect(820, 420, 240, 120), 12);
    Click(kShrink, QRect(840, 430, 220, 110), 11);
    const QStringList codes =
        QString::fromUtf8(testing::ReadFile(record)).split('\n').filter("DoStatistic");
    EXPECT_EQ(codes, QStringList({"DoStatistic qpt1 a318 0", "DoStatistic qpt1 a318 0",
                                  "DoStatistic qpt1 a317 0"}));
}

}  // namespace
}  // namespace qpt
