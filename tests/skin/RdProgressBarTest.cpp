#include "skin/RdProgressBar.h"

#include <gtest/gtest.h>

#include "skin/RdTimer.h"
#include "tests/skin/SolidPicture.h"

namespace qpt {
namespace {

using testing::RenderWidget;
using testing::SetSolidPicture;

constexpr QRgb kBack = qRgb(0, 0, 255);
constexpr QRgb kBar = qRgb(0, 255, 0);
constexpr QRgb kBooster = qRgb(255, 0, 0);

class RdProgressBarTest : public ::testing::Test {
protected:
    void SetUp() override {
        bar.resize(100, 10);
        SetSolidPicture(*bar.ImgBackground(), 6, 6, kBack);
        SetSolidPicture(*bar.ImgBar(), 30, 6, kBar);
    }

    // The first column, from the left, that is not the bar.
    int BarEnd() {
        const QImage shot = RenderWidget(bar);
        int x = 0;
        while (x < shot.width() && shot.pixel(x, 5) == kBar)
            ++x;
        if (x < shot.width()) {
            EXPECT_EQ(shot.pixel(x, 5), kBack) << "at " << x;
        }
        return x;
    }

    TRdProgressBar bar;
};

TEST_F(RdProgressBarTest, BarWidthIsRoundedUpAndStaysInside) {
    bar.SetMax(3);
    EXPECT_EQ(BarEnd(), 0);
    bar.SetPosition(1);  // 33.3 pixels
    EXPECT_EQ(BarEnd(), 34);
    bar.SetPosition(2);  // 66.7 pixels
    EXPECT_EQ(BarEnd(), 67);
    bar.SetPosition(3);
    EXPECT_EQ(BarEnd(), 100);
    bar.SetPosition(300);
    EXPECT_EQ(bar.BarRect(), QRect(0, 0, 100, 10));

    // Below the minimum, or without a range, there is no bar.
    bar.SetMin(5);
    bar.SetMax(10);
    bar.SetPosition(4);
    EXPECT_EQ(BarEnd(), 0);
    bar.SetMax(5);
    bar.SetPosition(7);
    EXPECT_TRUE(bar.BarRect().isEmpty());
    bar.SetMin(-10);
    bar.SetMax(10);
    bar.SetPosition(-9);  // 5 pixels
    EXPECT_EQ(BarEnd(), 5);
}

TEST_F(RdProgressBarTest, BarIsAtLeastItsSlicedEnds) {
    bar.ImgBarOption()->Rect().Set(10, 0, 12, 0, TSuperStretchMode::sdmDefault);
    bar.SetMax(1000);
    bar.SetPosition(1);
    EXPECT_EQ(BarEnd(), 22);
    bar.resize(15, 10);
    EXPECT_EQ(bar.BarRect(), QRect(0, 0, 15, 10));
}

TEST_F(RdProgressBarTest, DefaultSlicingIsAThirdOfThePicture) {
    bar.ImgBarOption()->Rect().SetEmpty(false);
    EXPECT_EQ(bar.ImgBarOption()->Left(), 10);
    EXPECT_EQ(bar.ImgBarOption()->Top(), 2);
}

TEST_F(RdProgressBarTest, BoosterSlidesAlongTheBarWhileWorkRuns) {
    bar.SetMax(100);
    bar.SetPosition(40);
    bar.SetImgInterval(25);
    bar.SetImgBoosterY(2);
    EXPECT_EQ(bar.BoosterTimer(), nullptr);
    SetSolidPicture(*bar.ImgBooster(), 10, 4, kBooster);
    TRdTimer* timer = bar.BoosterTimer();
    ASSERT_NE(timer, nullptr);
    EXPECT_EQ(timer->Interval(), 25);
    EXPECT_TRUE(timer->Enabled());

    QImage shot = RenderWidget(bar);
    EXPECT_EQ(shot.pixel(0, 2), kBooster);
    EXPECT_EQ(shot.pixel(9, 5), kBooster);
    EXPECT_EQ(shot.pixel(10, 5), kBar);
    EXPECT_EQ(shot.pixel(0, 1), kBar);
    EXPECT_EQ(shot.pixel(0, 6), kBar);

    timer->Tick();
    EXPECT_EQ(bar.BoosterOffset(), TRdProgressBar::kBoosterStep);
    shot = RenderWidget(bar);
    EXPECT_EQ(shot.pixel(TRdProgressBar::kBoosterStep - 1, 3), kBar);
    EXPECT_EQ(shot.pixel(TRdProgressBar::kBoosterStep, 3), kBooster);

    // It never runs past the bar's end: the last offset leaves it inside,
    // the next tick starts it over.
    int last = 0;
    for (int i = 0; i < 20 && bar.BoosterOffset() != 0; ++i) {
        last = bar.BoosterOffset();
        timer->Tick();
    }
    EXPECT_EQ(bar.BoosterOffset(), 0);
    EXPECT_LE(last + 10, 40);
    EXPECT_GT(last + TRdProgressBar::kBoosterStep + 10, 40);

    // At the end of the range it is not drawn; without work the timer stops.
    bar.SetPosition(100);
    EXPECT_TRUE(bar.BoosterRect().isEmpty());
    bar.SetPosition(0);
    EXPECT_FALSE(timer->Enabled());

    bar.ImgBooster()->Clear();
    EXPECT_EQ(bar.BoosterTimer(), nullptr);
    EXPECT_EQ(bar.BoosterOffset(), 0);
}

TEST_F(RdProgressBarTest, BoosterWaitsForTheEndOfLoading) {
    bar.BeginLoad();
    SetSolidPicture(*bar.ImgBooster(), 10, 4, kBooster);
    EXPECT_EQ(bar.BoosterTimer(), nullptr);
    bar.EndLoad();
    EXPECT_NE(bar.BoosterTimer(), nullptr);
    EXPECT_FALSE(bar.BoosterTimer()->Enabled());
}

}  // namespace
}  // namespace qpt
