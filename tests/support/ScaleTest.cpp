#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
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

// A window keeps its place and grows; its children move and grow, and so do
// their own fonts and the limits set on their sizes.
TEST(Scale, ScaleControlDoublesChildrenWithTheirFontsAndLimits) {
    static int argc = 1;
    static char name[] = "support_tests";
    static char* argv[] = {name, nullptr};
    if (!QApplication::instance()) new QApplication(argc, argv);
    QWidget window;
    window.setGeometry(30, 40, 100, 50);
    auto* label = new QLabel("100%", &window);
    label->setGeometry(10, 5, 36, 20);
    label->setMaximumWidth(110);
    QFont font = label->font();
    font.setPixelSize(15);
    label->setFont(font);
    auto* fixed = new QLabel(&window);
    fixed->setGeometry(50, 5, 40, 20);
    fixed->setFixedWidth(40);

    ScaleControl(&window);
    EXPECT_EQ(window.geometry(), QRect(30, 40, 100, 50)) << "scaling is off";
    SetScaleEnabled(true);
    ScaleControl(&window);
    SetScaleEnabled(false);
    EXPECT_EQ(window.geometry(), QRect(30, 40, 200, 100));
    EXPECT_EQ(label->geometry(), QRect(20, 10, 72, 40));
    EXPECT_EQ(label->font().pixelSize(), 30);
    EXPECT_EQ(label->maximumWidth(), 220);
    EXPECT_EQ(label->minimumWidth(), 0);
    EXPECT_EQ(label->maximumHeight(), QWIDGETSIZE_MAX);
    EXPECT_EQ(fixed->geometry(), QRect(100, 10, 80, 40));
}

}  // namespace
}  // namespace qpt
