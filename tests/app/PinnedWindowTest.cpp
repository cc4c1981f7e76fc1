// The real program on a private X server: a picture handed over as the host
// does, then what the screen shows, driven with XTest through xdotool.
#include <gtest/gtest.h>

#include "tests/app/PinnedProgram.h"

namespace qpt {
namespace {

using testing::Pattern;
using testing::WaitFor;

using PinnedWindow = testing::PinnedProgram;

TEST_F(PinnedWindow, StandsAtTheHandedOverRectangleWithThePicturesPixels) {
    const QImage picture = Pattern(320, 240);
    Pin(picture, QRect(200, 150, 320, 240));
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), QPoint(200, 150)); }));
    // Nothing of the window beside the rectangle: the screen there is bare.
    EXPECT_EQ(Screen(QRect(520, 150, 9, 240)).pixel(0, 0), Screen(QRect(0, 0, 1, 1)).pixel(0, 0));
}

// 80% of 1080 is 864: a taller picture is cut there, the window is 9 pixels
// wider for the bar, and the wheel scrolls the picture.
TEST_F(PinnedWindow, ARectangleTallerThanTheLimitIsCutAndScrolls) {
    const QImage picture = Pattern(300, 1000);
    Pin(picture, QRect(50, 40, 300, 1000));
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, QRect(0, 0, 300, 864), QPoint(50, 40)); }));
    const QRgb bare = Screen(QRect(1900, 1070, 1, 1)).pixel(0, 0);
    EXPECT_EQ(Screen(QRect(50, 40 + 864, 1, 1)).pixel(0, 0), bare) << "below the cut";
    EXPECT_NE(Screen(QRect(350, 40, 9, 864)),
              picture.copy(0, 0, 9, 864).convertToFormat(QImage::Format_RGB32));
    EXPECT_NE(Screen(QRect(354, 400, 1, 1)).pixel(0, 0), bare) << "the bar is part of the window";
    EXPECT_EQ(Screen(QRect(359, 400, 1, 1)).pixel(0, 0), bare) << "and no wider than 9";

    Xdotool({"mousemove", "150", "300"});
    Xdotool({"click", "--repeat", "5", "--delay", "30", "5"});
    ASSERT_TRUE(WaitFor([&] { return !Shows(picture, QRect(0, 0, 300, 50), QPoint(50, 40)); }));
    // Scrolled by whole rows: the top of the window shows a later row.
    const QImage top = Screen(QRect(50, 40, 300, 1));
    int row = -1;
    for (int y = 1; y <= 1000 - 864 && row < 0; ++y)
        if (top == picture.copy(0, y, 300, 1).convertToFormat(QImage::Format_RGB32)) row = y;
    EXPECT_GT(row, 0);
}

TEST_F(PinnedWindow, ALeftDragMovesTheWindowByTheMouseDelta) {
    const QImage picture = Pattern(200, 160);
    Pin(picture, QRect(300, 250, 200, 160));
    ASSERT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), QPoint(300, 250)); }));
    Xdotool({"mousemove", "350", "300", "mousedown", "1", "mousemove", "360", "310", "mousemove",
             "380", "330", "mousemove", "410", "345", "sleep", "0.2", "mouseup", "1"});
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), QPoint(360, 295)); }));
}

}  // namespace
}  // namespace qpt
