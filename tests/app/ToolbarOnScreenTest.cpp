// The toolbar of the real program on a private X server: when it shows,
// where it stands against the picture and the screen, and where its
// controls are at both sizes of the interface.
#include <gtest/gtest.h>

#include "tests/app/PinnedProgram.h"

namespace qpt {
namespace {

using testing::Pattern;
using testing::WaitFor;

class ToolbarOnScreen : public testing::PinnedProgram {
protected:
    using PinnedProgram::PinnedProgram;

    // Pins the picture and clicks it once without moving: the bar's first
    // appearance.
    QRect PinAndClick(const QRect& rect, const QStringList& arguments = {"/QPTMain"}) {
        Pin(Pattern(rect.width(), rect.height()), rect, arguments);
        EXPECT_TRUE(ToolbarRect().isEmpty()) << "no bar before the first click";
        const QRect window = PinnedWindowRect();
        ClickAt(window.topLeft() + QPoint(window.width() / 2, 10));
        QRect bar;
        EXPECT_TRUE(WaitFor([&] { return !(bar = ToolbarRect()).isEmpty(); }));
        return bar;
    }
};

TEST_F(ToolbarOnScreen, AClickOnThePictureBringsTheBarUnderItsLowerRightCorner) {
    EXPECT_EQ(PinAndClick(QRect(800, 300, 400, 300)), QRect(1200 - 811, 602, 811, 40));
}

// A drag hides the bar; at the release it comes back, placed for where the
// picture now is.
TEST_F(ToolbarOnScreen, TheBarGoesDuringADragAndComesBackLaidOutAnew) {
    PinAndClick(QRect(800, 300, 400, 300));
    Xdotool({"mousemove", "1000", "450", "mousedown", "1", "mousemove", "1010", "440", "mousemove",
             "1050", "420"});
    EXPECT_TRUE(WaitFor([&] { return ToolbarRect().isEmpty(); }));
    Xdotool({"mousemove", "1100", "400", "sleep", "0.2", "mouseup", "1"});
    EXPECT_TRUE(WaitFor([&] { return ToolbarRect() == QRect(1300 - 811, 552, 811, 40); }))
        << ToolbarRect().x() << "," << ToolbarRect().y();
}

TEST_F(ToolbarOnScreen, AtTheRightEdgeAndPastItTheBarIsFlushWithTheScreen) {
    EXPECT_EQ(PinAndClick(QRect(1620, 300, 300, 200)).topLeft(), QPoint(1109, 502));
    program_.kill();
    program_.waitForFinished();
    EXPECT_EQ(PinAndClick(QRect(1700, 300, 400, 200)).topLeft(), QPoint(1109, 502));
}

TEST_F(ToolbarOnScreen, ANarrowPictureGetsTheBarFromTheScreensLeftEdge) {
    EXPECT_EQ(PinAndClick(QRect(100, 300, 200, 100)).topLeft(), QPoint(0, 402));
}

TEST_F(ToolbarOnScreen, AtTheBottomTheBarGoesAbove) {
    EXPECT_EQ(PinAndClick(QRect(600, 880, 500, 200)).topLeft(), QPoint(1100 - 811, 838));
}

// A picture that touches the top has its bar below it. One that runs from
// the top to the bottom is pinned cut at 80% of the screen's height with
// its scroll bar beside it, which leaves room for the bar under the window.
TEST_F(ToolbarOnScreen, TouchingTheTopAndTouchingBothTheBarGoesUnderTheWindow) {
    EXPECT_EQ(PinAndClick(QRect(600, 0, 500, 300)).topLeft(), QPoint(1100 - 811, 302));
    program_.kill();
    program_.waitForFinished();
    EXPECT_EQ(PinAndClick(QRect(300, 0, 800, 1080)).topLeft(), QPoint(1109 - 811, 864 + 2));
    EXPECT_EQ(PinnedWindowRect(), QRect(300, 0, 809, 864));
}

// A picture of the whole monitor has its bar at once, inside its top edge.
TEST_F(ToolbarOnScreen, AWholeMonitorPictureHasItsBarAtOnceInsideItsTop) {
    const QImage picture = Pattern(1920, 1080);
    Pin(picture, QRect(0, 0, 1920, 1080));
    QRect bar;
    EXPECT_TRUE(WaitFor([&] { return !(bar = ToolbarRect()).isEmpty(); }));
    EXPECT_EQ(bar, QRect(1109, 2, 811, 40));
    EXPECT_TRUE(WaitFor([&] {
        return Shows(picture, QRect(0, 0, 1109, 864), QPoint(0, 0)) &&
               Shows(picture, QRect(0, 42, 1911, 822), QPoint(0, 42));
    }));
}

// Two monitors side by side, the second one taller than the primary: the
// bar is flush with the primary screen's right edge once the picture
// reaches past it, and goes below the picture as far down as the desktop
// reaches.
class ToolbarOnTwoMonitors : public ToolbarOnScreen {
protected:
    ToolbarOnTwoMonitors()
        : ToolbarOnScreen({QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1440)}) {}
    QPoint BarFor(const QRect& picture) {
        const QPoint at = PinAndClick(picture).topLeft();
        program_.kill();
        program_.waitForFinished();
        return at;
    }
};

TEST_F(ToolbarOnTwoMonitors, PastThePrimaryScreenTheBarIsFlushWithItsRightEdge) {
    EXPECT_EQ(BarFor(QRect(2400, 500, 400, 300)), QPoint(1109, 802)) << "in the middle";
    EXPECT_EQ(BarFor(QRect(2900, 300, 300, 200)), QPoint(1109, 502)) << "at the desktop's edge";
    EXPECT_EQ(BarFor(QRect(1700, 300, 400, 200)), QPoint(1109, 502)) << "across the boundary";
    EXPECT_EQ(BarFor(QRect(1000, 300, 400, 200)), QPoint(1400 - 811, 502)) << "on the primary";
}

// Lower than the primary screen's bottom there is still room on the taller
// monitor; only the desktop's bottom sends the bar above.
TEST_F(ToolbarOnTwoMonitors, TheDesktopsBottomDecidesBelowOrAbove) {
    EXPECT_EQ(BarFor(QRect(2400, 1000, 400, 300)), QPoint(1109, 1302));
    EXPECT_EQ(BarFor(QRect(2400, 1140, 400, 300)), QPoint(1109, 1098));
}

// A picture of the whole second monitor is one too: its bar comes at once.
TEST_F(ToolbarOnTwoMonitors, AWholeSecondMonitorPictureHasItsBarAtOnce) {
    Pin(Pattern(1280, 1440), QRect(1920, 0, 1280, 1440));
    QRect bar;
    EXPECT_TRUE(WaitFor([&] { return !(bar = ToolbarRect()).isEmpty(); }));
    EXPECT_EQ(bar, QRect(1109, 2, 811, 40));
}

// Each control stands where the one before it ends plus its gap, at twice
// the design sizes when the interface is doubled: a control shows on the
// plain bar at its place, and between controls the bar is plain.
class ToolbarLayoutOnScreen : public testing::PinnedProgram,
                              public ::testing::WithParamInterface<int> {
protected:
    // Left edge and width of each control along the middle row, at 1x.
    struct TSpan {
        int left, width;
    };
    static constexpr TSpan kSpans[] = {{16, 18},  {88, 18},  {225, 2},  {246, 18}, {276, 18},
                                       {306, 18}, {336, 18}, {366, 18}, {396, 18}, {426, 18},
                                       {463, 2},  {484, 18}, {514, 18}, {551, 2},  {572, 18},
                                       {602, 18}, {632, 89}, {722, 89}};
};

TEST_P(ToolbarLayoutOnScreen, ControlsStandAtTheirPlacesAlongTheBar) {
    const int scale = GetParam();
    QStringList arguments{"/QPTMain"};
    if (scale == 2) arguments.prepend("/Scale");
    Pin(Pattern(900, 300), QRect(200, 200, 900, 300), arguments);
    ClickAt(QPoint(650, 210));
    QRect bar;
    ASSERT_TRUE(WaitFor([&] { return !(bar = ToolbarRect()).isEmpty(); }));
    EXPECT_EQ(bar.size(), QSize(811, 40) * scale);
    Xdotool({"mousemove", "5", "5"});
    const QImage row = Screen(QRect(bar.x(), bar.y() + 20 * scale, bar.width(), 1));
    const QRgb plain = row.pixel(4 * scale, 0);
    const auto drawn = [&](int from, int to) {
        for (int x = from; x < to; ++x)
            if (row.pixel(x, 0) != plain) return true;
        return false;
    };
    int end = 8 * scale;
    for (const TSpan& span : kSpans) {
        const int left = span.left * scale, right = (span.left + span.width) * scale;
        // The zoom label stands between the zoom buttons, the size label
        // after them: those gaps carry text.
        if (span.left != 88 && span.left != 225) {
            EXPECT_FALSE(drawn(end, left)) << "plain before " << span.left << " at " << scale;
        }
        EXPECT_TRUE(drawn(left, right)) << "control at " << span.left << " at " << scale;
        end = right;
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, ToolbarLayoutOnScreen, ::testing::Values(1, 2));

}  // namespace
}  // namespace qpt
