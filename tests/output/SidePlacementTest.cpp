// Where the path panel and the toolbar stand: the toolbar next to the
// picture, the panel next to the toolbar, away from the picture when there
// is room.
#include <gtest/gtest.h>

#include "output/SidePlacement.h"

namespace qpt {
namespace {

constexpr int kScreenHeight = 1080;

TEST(SidePlacement, ABarOpensAwayFromThePictureWhenThereIsRoom) {
    // Toolbar under the picture (its top at or below the picture's).
    EXPECT_EQ(SideBarTop(QRect(300, 600, 700, 40), 88, 200, kScreenHeight, 0), 642);
    EXPECT_EQ(SideBarTop(QRect(300, 200, 700, 40), 88, 200, kScreenHeight, 0), 242)
        << "a toolbar inside the picture's top edge counts as under it";
    // No room below on the primary screen: above the toolbar.
    EXPECT_EQ(SideBarTop(QRect(300, 960, 700, 40), 88, 200, kScreenHeight, 0), 870);
    EXPECT_EQ(SideBarTop(QRect(300, 950, 700, 40), 88, 200, kScreenHeight, 0), 992)
        << "exactly fitting is room enough";
    // Toolbar over the picture: above it while the desktop reaches there.
    EXPECT_EQ(SideBarTop(QRect(300, 400, 700, 40), 88, 442, kScreenHeight, 0), 310);
    EXPECT_EQ(SideBarTop(QRect(300, 60, 700, 40), 88, 102, kScreenHeight, 0), 102);
    EXPECT_EQ(SideBarTop(QRect(300, 60, 700, 40), 88, 102, kScreenHeight, -1080), -30)
        << "a monitor above the primary one has room";
}

TEST(SidePlacement, TheToolbarGoesBackBelowAboveOrInsideThePicture) {
    EXPECT_EQ(ToolbarBackTop(QRect(100, 100, 400, 300), 40, kScreenHeight), 402);
    EXPECT_EQ(ToolbarBackTop(QRect(100, 700, 400, 338), 40, kScreenHeight), 1040)
        << "exactly fitting below";
    EXPECT_EQ(ToolbarBackTop(QRect(100, 700, 400, 339), 40, kScreenHeight), 658);
    EXPECT_EQ(ToolbarBackTop(QRect(0, 42, 1920, 1000), 40, kScreenHeight), 0)
        << "above while it stays on the screen";
    EXPECT_EQ(ToolbarBackTop(QRect(0, 41, 1920, 1000), 40, kScreenHeight), 43);
}

}  // namespace
}  // namespace qpt
