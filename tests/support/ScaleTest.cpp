#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "support/Scale.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

TEST(Scale, HighDpiNeedsALongSideAbove1920AndBelow3000AlsoADenseScreen) {
    EXPECT_FALSE(IsHighDPIScreen({1920, 1040}, 144));
    EXPECT_FALSE(IsHighDPIScreen({1040, 1920}, 192));
    EXPECT_FALSE(IsHighDPIScreen({2560, 1400}, 96));
    EXPECT_FALSE(IsHighDPIScreen({2999, 1400}, 125));
    EXPECT_TRUE(IsHighDPIScreen({2560, 1400}, 144));
    EXPECT_TRUE(IsHighDPIScreen({2560, 1400}, 126));
    EXPECT_TRUE(IsHighDPIScreen({3840, 2100}, 96));
    EXPECT_TRUE(IsHighDPIScreen({1400, 3000}, 96));
}

TEST(Scale, DoubleSizeSkinOnlyWhenScaledAndPresent) {
    QTemporaryDir program;
    const QString folder = program.path() + '/';
    EXPECT_EQ(ChooseSkinRccFile(true, folder), "classic.rcc");
    testing::WriteFile(folder + "skin/classic2.rcc", "x");
    EXPECT_EQ(ChooseSkinRccFile(true, folder), "classic2.rcc");
    EXPECT_EQ(ChooseSkinRccFile(false, folder), "classic.rcc");
}

}  // namespace
}  // namespace qpt
