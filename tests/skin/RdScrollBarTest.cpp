#include <gtest/gtest.h>

#include <QApplication>
#include <vector>

#include "skin/RdScrollBar.h"
#include "skin/RdScrollBarEx.h"
#include "skin/RdTimer.h"
#include "skin/SkinReader.h"
#include "tests/skin/SendInput.h"
#include "tests/skin/SolidPicture.h"

namespace qpt {
namespace {

using namespace qpt::testing;

constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kGreen = 0xFF00FF00;

// A vertical bar 17 by 200 over a range of 1000 with a page of 100: the
// thumb is 20 pixels long and travels 180.
class ScrollBar : public ::testing::Test {
protected:
    void SetUp() override {
        parent.resize(100, 300);
        bar = new TRdScrollBar(&parent);
        bar->SetKind(TScrollBarModel::sbVertical);
        bar->setGeometry(0, 0, 17, 200);
        bar->SetParams(0, 999, 100, 0);
        bar->SetLargeChange(100);
        bar->SetSmallChange(10);
        SetSolidPicture(*bar->AllSkinImage()->TrackCenter(), 4, 4, kRed);
        SetSolidPicture(*bar->AllSkinImage()->TrackCenterHot(), 4, 4, kGreen);
        bar->OnScroll = [this](TScrollCode code, int&) { codes.push_back(code); };
    }
    // The rows the thumb covers, read from the pixels in the bar's middle.
    std::pair<int, int> ThumbRows(QRgb color = kRed) {
        const QImage shot = RenderWidget(*bar);
        int first = -1, last = -1;
        for (int y = 0; y < shot.height(); ++y)
            if (shot.pixel(8, y) == color) {
                if (first < 0) first = y;
                last = y;
            }
        return {first, last};
    }
    QWidget parent;
    TRdScrollBar* bar = nullptr;
    std::vector<TScrollCode> codes;
};

TEST_F(ScrollBar, ThumbIsProportionalToThePageAndExactAtBothEnds) {
    EXPECT_EQ(ThumbRows(), std::make_pair(0, 19));
    bar->SetPosition(5000);
    EXPECT_EQ(bar->Position(), 900) << "the last page starts at Max - PageSize + 1";
    EXPECT_EQ(ThumbRows(), std::make_pair(180, 199));
    bar->SetPosition(450);
    EXPECT_EQ(ThumbRows(), std::make_pair(90, 109));

    // Arrows take the bar's thickness at each end; the track is between.
    bar->SetAllowArrow(true);
    bar->SetAutoArrow(false);
    bar->SetPosition(0);
    EXPECT_EQ(ThumbRows(), std::make_pair(17, 17 + 16));
    bar->SetPosition(900);
    EXPECT_EQ(ThumbRows(), std::make_pair(199 - 17 - 16, 199 - 17));
    // On a bar too short for arrows and a thumb, AutoArrow drops them.
    bar->SetAutoArrow(true);
    bar->resize(17, 40);
    EXPECT_TRUE(bar->Bar().Layout().arrowLow.isEmpty());
    EXPECT_EQ(ThumbRows(), std::make_pair(40 - TScrollBarCore::kMinThumb, 39));
}

TEST_F(ScrollBar, ATinyPageKeepsAThumbYouCanGrabAndAHorizontalBarLiesAcross) {
    bar->SetParams(0, 1000000, 1, 1000000);
    const TScrollBarLayout layout = bar->Bar().Layout();
    EXPECT_EQ(layout.thumb,
              QRect(0, 200 - TScrollBarCore::kMinThumb, 17, TScrollBarCore::kMinThumb));

    bar->SetKind(TScrollBarModel::sbHorizontal);
    bar->setGeometry(0, 0, 200, 17);
    bar->SetParams(0, 999, 100, 900);
    EXPECT_EQ(bar->Bar().Layout().thumb, QRect(180, 0, 20, 17));
    const QImage shot = RenderWidget(*bar);
    EXPECT_NE(shot.pixel(179, 8), kRed);
    EXPECT_EQ(shot.pixel(180, 8), kRed);
    EXPECT_EQ(shot.pixel(199, 16), kRed);

    // AutoCenter keeps the thumb as thick as its picture, in the middle.
    bar->SetAutoCenter(true);
    const QImage centred = RenderWidget(*bar);
    EXPECT_NE(centred.pixel(190, 5), kRed);
    EXPECT_EQ(centred.pixel(190, 6), kRed);
    EXPECT_EQ(centred.pixel(190, 9), kRed);
    EXPECT_NE(centred.pixel(190, 10), kRed);
}

TEST_F(ScrollBar, ThumbLightsUnderTheMouseAndFollowsADrag) {
    MouseMove(*bar, QPoint(8, 5));
    EXPECT_EQ(bar->Bar().HotPart(), TScrollBarPart::spThumb);
    EXPECT_EQ(ThumbRows(kGreen), std::make_pair(0, 19));
    MouseMove(*bar, QPoint(8, 100));
    EXPECT_EQ(ThumbRows(), std::make_pair(0, 19)) << "back to the plain picture off the thumb";

    int changes = 0, trackEnds = 0;
    bar->OnChange = [&] { ++changes; };
    bar->OnTrackEnd = [&] { ++trackEnds; };
    Press(*bar, QPoint(8, 5));
    MoveHeld(*bar, QPoint(8, 95));  // thumb top at 90: the middle of 180
    EXPECT_EQ(bar->Position(), 450);
    MoveHeld(*bar, QPoint(8, 500));
    EXPECT_EQ(bar->Position(), 900) << "dragged past the end";
    EXPECT_EQ(ThumbRows(kGreen), std::make_pair(180, 199)) << "hot while held";
    MoveHeld(*bar, QPoint(8, -300));
    EXPECT_EQ(bar->Position(), 0);
    Release(*bar, QPoint(8, -300));
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(trackEnds, 1);
    EXPECT_EQ(codes.front(), TScrollCode::scTrack);
    EXPECT_EQ(codes.back(), TScrollCode::scEndScroll);
    EXPECT_EQ(bar->Bar().HotPart(), TScrollBarPart::spNone);
}

TEST_F(ScrollBar, AHeldTrackPagesAfterTheWaitUntilTheThumbReachesTheMouse) {
    TRdTimer* timer = bar->Bar().RepeatTimer();
    Press(*bar, QPoint(8, 75));
    EXPECT_EQ(bar->Position(), 100);
    EXPECT_TRUE(timer->Enabled());
    EXPECT_EQ(timer->Interval(), TScrollBarCore::kDefaultWait);
    timer->Tick();
    EXPECT_EQ(bar->Position(), 200);
    EXPECT_EQ(timer->Interval(), TScrollBarCore::kRepeatInterval);
    timer->Tick();  // from 40..59, still above the mouse, to 60..79
    timer->Tick();  // the thumb covers row 75: paging ends there
    EXPECT_EQ(bar->Position(), 300);
    Release(*bar, QPoint(8, 75));
    EXPECT_FALSE(timer->Enabled());

    Press(*bar, QPoint(8, 2));
    EXPECT_EQ(bar->Position(), 200);
    Release(*bar, QPoint(8, 2));
    EXPECT_EQ(std::count(codes.begin(), codes.end(), TScrollCode::scPageDown), 3);
    EXPECT_EQ(std::count(codes.begin(), codes.end(), TScrollCode::scPageUp), 1);
}

TEST_F(ScrollBar, ArrowsStepBySmallChangeAndTheWheelByLines) {
    bar->SetAllowArrow(true);
    bar->SetAutoArrow(false);
    Press(*bar, QPoint(8, 195));
    bar->Bar().RepeatTimer()->Tick();
    Release(*bar, QPoint(8, 195));
    EXPECT_EQ(bar->Position(), 20);
    Press(*bar, QPoint(8, 3));
    Release(*bar, QPoint(8, 3));
    EXPECT_EQ(bar->Position(), 10);

    const int lines = QApplication::wheelScrollLines();
    Wheel(*bar, QPoint(8, 100), -2);
    EXPECT_EQ(bar->Position(), 10 + 2 * lines * 10);
    Wheel(*bar, QPoint(8, 100), 50);
    EXPECT_EQ(bar->Position(), 0);

    // OnScroll has the last word on where the bar goes.
    bar->OnScroll = [](TScrollCode, int& position) { position = position / 100 * 100; };
    Wheel(*bar, QPoint(8, 100), -5);
    EXPECT_EQ(bar->Position(), lines >= 2 ? 100 : 0);
}

TEST_F(ScrollBar, AutoHideHidesTheBarWhileTheRangeFitsAPage) {
    parent.show();
    bar->SetAutoHide(true);
    EXPECT_TRUE(bar->isVisible());
    bar->SetParams(0, 99, 100, 0);
    EXPECT_FALSE(bar->isVisible());
    bar->SetPageSize(99);
    EXPECT_TRUE(bar->isVisible()) << "one pixel left to scroll";
    bar->SetAutoHide(false);
    bar->SetPageSize(100);
    EXPECT_TRUE(bar->isVisible());
}

TEST_F(ScrollBar, SkinLinesReachTheBarAndItsPictures) {
    EXPECT_EQ(TSkinReader::SetPropertyText(bar, "AutoHide", "True"), TSkinReader::TResult::Applied);
    EXPECT_EQ(TSkinReader::SetPropertyText(bar, "AllSkinImage.Track_Option.Left", "3"),
              TSkinReader::TResult::Applied);
    EXPECT_EQ(TSkinReader::SetPropertyText(bar, "Kind", "sbHorizontal"),
              TSkinReader::TResult::Applied);
    EXPECT_TRUE(bar->AllSkinImage()->AutoHide());
    EXPECT_EQ(bar->AllSkinImage()->Track_Option()->Left(), 3);
    EXPECT_EQ(bar->Kind(), TScrollBarModel::sbHorizontal);

    // A set of pictures travels from bar to bar through the clipboard.
    TRdScrollBarEx other;
    EXPECT_EQ(TSkinReader::SetPropertyText(bar, "AllSkinImage.PropertyCopy", "True"),
              TSkinReader::TResult::Applied);
    other.AllSkinImage()->SetPropertyPaste(true);
    EXPECT_TRUE(other.AutoHide());
    EXPECT_EQ(other.AllSkinImage()->Track_Option()->Left(), 3);
    EXPECT_EQ(other.AllSkinImage()->TrackCenterHot()->Data(),
              bar->AllSkinImage()->TrackCenterHot()->Data());
    EXPECT_FALSE(other.AllSkinImage()->TrackCenterHot()->Empty());

    // AutoSize makes the bar as thick as its thumb picture.
    bar->SetAutoSize(true);
    SetSolidPicture(*bar->AllSkinImage()->TrackCenter(), 4, 6, kRed);
    EXPECT_EQ(bar->height(), 6);
}

TEST(ScrollBarEx, OwnerDrawsInsteadOrOnTopAndTheWaitIsItsOwn) {
    TRdScrollBarEx bar;
    bar.resize(100, 10);
    bar.SetParams(0, 99, 50, 0);
    bar.SetWaitInterval(150);
    bar.SetLargeChange(30);
    SetSolidPicture(*bar.AllSkinImage()->TrackCenter(), 2, 2, kRed);
    bar.OnPaintEnd = [](TRdScrollBarEx&, QPainter& p) { p.fillRect(0, 0, 1, 1, Qt::blue); };
    QImage shot = RenderWidget(bar);
    EXPECT_EQ(shot.pixel(10, 5), kRed);
    EXPECT_EQ(shot.pixel(0, 0), 0xFF0000FFu);
    EXPECT_EQ(shot.pixel(60, 5), 0u) << "windowless: the track shows what lies behind";

    bar.SetOwnerDraw(true);
    bar.OnDrawControl = [](TRdScrollBarEx& b, QPainter& p) { p.fillRect(b.rect(), Qt::green); };
    shot = RenderWidget(bar);
    EXPECT_EQ(shot.pixel(10, 5), kGreen);
    EXPECT_EQ(shot.pixel(0, 0), 0xFF0000FFu);

    int enabledChanges = 0;
    bar.OnEnabledChange = [&](TRdScrollBarEx&) { ++enabledChanges; };
    bar.setEnabled(false);
    bar.setEnabled(true);
    EXPECT_EQ(enabledChanges, 2);

    Press(bar, QPoint(80, 5));
    EXPECT_EQ(bar.Bar().RepeatTimer()->Interval(), 150);
    Release(bar, QPoint(80, 5));
    EXPECT_EQ(bar.Position(), 30);
}

}  // namespace
}  // namespace qpt
