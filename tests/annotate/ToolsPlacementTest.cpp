// Where the toolbar and its share menu stand, against screens made up for
// the test.
#include <gtest/gtest.h>

#include "annotate/ToolsPlacement.h"
#include "tests/common/QtPrinters.h"

namespace qpt {
namespace {

const TScreenLayout kOne{
    QRect(0, 0, 1920, 1080), {QRect(0, 0, 1920, 1080)}, QRect(0, 0, 1920, 1080)};
// A taller second monitor to the right: the desktop reaches lower than the
// primary screen.
const TScreenLayout kTwo{QRect(0, 0, 1920, 1080),
                         {QRect(0, 0, 1920, 1080), QRect(1920, -200, 1200, 1600)},
                         QRect(0, -200, 3120, 1600)};
const QSize kBar(811, 40);

TEST(ToolsPlacement, TheBarHangsUnderTheLowerRightCornerWhenThereIsRoom) {
    EXPECT_EQ(PlaceToolBar(QRect(500, 300, 900, 400), kBar, kOne), QPoint(589, 702));
    // A picture narrower than the bar: the bar starts at the screen's edge,
    // never left of it; a left of exactly 1 stays.
    EXPECT_EQ(PlaceToolBar(QRect(100, 300, 200, 100), kBar, kOne), QPoint(0, 402));
    EXPECT_EQ(PlaceToolBar(QRect(12, 300, 800, 100), kBar, kOne), QPoint(1, 402));
    EXPECT_EQ(PlaceToolBar(QRect(11, 300, 800, 100), kBar, kOne), QPoint(0, 402));
}

TEST(ToolsPlacement, PastTheRightEdgeTheBarIsFlushWithTheScreen) {
    EXPECT_EQ(PlaceToolBar(QRect(1500, 300, 900, 400), kBar, kOne), QPoint(1109, 702));
    EXPECT_EQ(PlaceToolBar(QRect(1020, 300, 900, 400), kBar, kOne), QPoint(1109, 702));
}

TEST(ToolsPlacement, WithoutRoomBelowTheBarGoesAboveThenInsideTheTop) {
    // 40 rows below are enough, although the bar's two-pixel gap then
    // reaches past the desktop.
    EXPECT_EQ(PlaceToolBar(QRect(500, 300, 900, 740), kBar, kOne), QPoint(589, 1042));
    EXPECT_EQ(PlaceToolBar(QRect(500, 300, 900, 741), kBar, kOne), QPoint(589, 258));
    // Touching the bottom, with just no room above.
    EXPECT_EQ(PlaceToolBar(QRect(500, 41, 900, 1039), kBar, kOne), QPoint(589, 43));
    EXPECT_EQ(PlaceToolBar(QRect(500, 42, 900, 1038), kBar, kOne), QPoint(589, 0));
    // The whole screen: inside the picture's top edge.
    EXPECT_EQ(PlaceToolBar(QRect(0, 0, 1920, 1080), kBar, kOne), QPoint(1109, 2));
    // Dragged above the desktop and reaching its bottom: inside the desktop.
    EXPECT_EQ(PlaceToolBar(QRect(500, -100, 900, 1180), kBar, kOne), QPoint(589, 2));
}

// Below is measured against the whole desktop, left against the primary
// screen's width only.
TEST(ToolsPlacement, OnTwoMonitorsTheDesktopDecidesAboveAndBelow) {
    EXPECT_EQ(PlaceToolBar(QRect(0, 0, 1920, 1080), kBar, kTwo), QPoint(1109, 1082));
    EXPECT_EQ(PlaceToolBar(QRect(1920, -200, 1200, 1600), kBar, kTwo), QPoint(1109, -198));
    EXPECT_EQ(PlaceToolBar(QRect(2000, 100, 600, 300), kBar, kTwo), QPoint(1109, 402));
}

TEST(ToolsPlacement, TheShareMenuGoesAboveTheBarNearTheScreensBottom) {
    const QRect menu(600, 744, 180, 122);
    EXPECT_EQ(ShareMenuTop(QRect(500, 702, 811, 40), menu, kOne), 744);
    EXPECT_EQ(ShareMenuTop(QRect(500, 916, 811, 40), menu, kOne), 744);
    EXPECT_EQ(ShareMenuTop(QRect(500, 917, 811, 40), menu, kOne), 917 - 124);
}

}  // namespace
}  // namespace qpt
