#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>

#include "skin/RdGraphic.h"
#include "skin/RdScrollBox.h"
#include "tests/skin/RealSkin.h"
#include "tests/skin/SendInput.h"
#include "tests/skin/SolidPicture.h"

namespace qpt {
namespace {

using namespace qpt::testing;

constexpr QRgb kRed = 0xFFFF0000;

// A box 200 by 100 over a content 150 wide, 300 high: it scrolls down only.
class ScrollBox : public ::testing::Test {
protected:
    void SetUp() override {
        box.resize(200, 100);
        content = new QWidget;
        content->resize(150, 300);
        box.setWidget(content);
        box.show();
        QApplication::processEvents();
    }
    TRdScrollBox box;
    QWidget* content = nullptr;
};

TEST_F(ScrollBox, BarsFollowTheBoxRangeAndHideWhenTheContentFits) {
    TRdScrollBar* v = box.VScroll();
    EXPECT_EQ(v->objectName(), "VScroll");
    EXPECT_TRUE(v->isVisible());
    EXPECT_FALSE(box.HScroll()->isVisible());
    EXPECT_EQ(v->geometry(), QRect(183, 0, 17, 100));
    EXPECT_EQ(box.viewport()->geometry(), QRect(0, 0, 183, 100));
    EXPECT_EQ(v->PageSize(), 100);
    EXPECT_EQ(v->Bar().Model().MaxPosition(), 200);
    EXPECT_EQ(v->LargeChange(), 100) << "a page is the visible height";
    EXPECT_FALSE(box.verticalScrollBar()->isVisible()) << "the platform's bar never shows";

    box.verticalScrollBar()->setValue(120);
    EXPECT_EQ(v->Position(), 120);
    EXPECT_EQ(content->y(), -120);

    content->resize(150, 100);
    EXPECT_FALSE(v->isVisible());
    EXPECT_EQ(box.viewport()->width(), 200) << "the room of a hidden bar goes to the content";

    // Wider content brings the horizontal bar, which also takes height.
    content->resize(260, 100);
    EXPECT_TRUE(box.HScroll()->isVisible());
    EXPECT_TRUE(v->isVisible()) << "the horizontal bar left too little height";
    EXPECT_EQ(box.HScroll()->geometry(), QRect(0, 83, 200 - 17, 17)) << "short of the corner";
    EXPECT_EQ(box.HScroll()->Bar().Model().MaxPosition(), 260 - 183);
}

TEST_F(ScrollBox, ThicknessAndInnerModeDecideTheContentsRoom) {
    box.VScroll()->SetWidth(9);
    EXPECT_EQ(box.viewport()->width(), 191);
    EXPECT_EQ(box.VScroll()->geometry(), QRect(191, 0, 9, 100));
    box.SetScrollbarInnerMode(true);
    EXPECT_EQ(box.viewport()->width(), 200) << "the bar lies over the content";
    EXPECT_EQ(box.VScroll()->geometry(), QRect(191, 0, 9, 100));
    EXPECT_TRUE(box.VScroll()->isVisible());

    // Forced on without AutoHide: stays even when nothing is left to scroll.
    box.VScroll()->SetAutoHide(false);
    content->resize(150, 50);
    EXPECT_TRUE(box.VScroll()->isVisible());
}

TEST_F(ScrollBox, DraggingTheThumbMovesTheContent) {
    TRdScrollBar* v = box.VScroll();
    SetSolidPicture(*v->AllSkinImage()->TrackCenter(), 4, 4, kRed);
    // Thumb 100 * 100 / 300 = 33 long, 67 pixels of travel for 200 rows.
    EXPECT_EQ(v->Bar().Layout().thumb, QRect(0, 0, 17, 33));
    QImage shot = RenderWidget(box);
    EXPECT_EQ(shot.pixel(190, 0), kRed);
    EXPECT_EQ(shot.pixel(190, 32), kRed);
    EXPECT_NE(shot.pixel(190, 33), kRed);

    Press(*v, QPoint(8, 10));
    MoveHeld(*v, QPoint(8, 10 + 67));
    EXPECT_EQ(v->Position(), 200);
    EXPECT_EQ(content->y(), -200);
    shot = RenderWidget(box);
    EXPECT_EQ(shot.pixel(190, 99), kRed) << "dragged to the end the thumb meets the bottom";
    EXPECT_NE(shot.pixel(190, 66), kRed);
    MoveHeld(*v, QPoint(8, 10 + 34));
    Release(*v, QPoint(8, 10 + 34));
    EXPECT_EQ(v->Position(), 101) << "34 of 67 pixels";
    EXPECT_EQ(content->y(), -101);
}

TEST_F(ScrollBox, PagingOnTheTrackAndTheWheelOverTheContentScroll) {
    TRdScrollBar* v = box.VScroll();
    Press(*v, QPoint(8, 90));
    Release(*v, QPoint(8, 90));
    EXPECT_EQ(content->y(), -100) << "a page is the visible height";

    Wheel(*box.viewport(), QPoint(50, 50), 1);
    const int lines = QApplication::wheelScrollLines() * box.verticalScrollBar()->singleStep();
    EXPECT_EQ(content->y(), -100 + lines);
    EXPECT_EQ(v->Position(), 100 - lines);

    Wheel(*v, QPoint(8, 50), -100);
    EXPECT_EQ(content->y(), -200) << "the wheel on the bar itself, to the end";
}

// Dressed as the pinned window dresses its bar, under the packages the build
// makes: the skin's "scrollbar" class applies and the thumb is its picture.
TEST(ScrollBoxOnTheRealSkin, TheThumbIsTheSkinsPictureAndLightsUnderTheMouse) {
    RealSkin skin;

    TRdScrollBox box(&skin.form);
    box.setGeometry(0, 0, 200, 100);
    auto* content = new QWidget;
    content->resize(150, 300);
    box.setWidget(content);
    TRdScrollBar* v = box.VScroll();
    v->SetAutoHide(false);
    v->AllSkinImage()->TrackCenter()->SetText("imgname=images/scrollbar_normal.png");
    v->AllSkinImage()->TrackCenterHot()->SetText("imgname=images/scrollbar_over.png");
    v->AllSkin()->SetSkinClass("scrollbar");
    skin.form.show();
    EXPECT_TRUE(v->AutoHide()) << "from the skin class";
    EXPECT_EQ(v->AllSkinImage()->Track_Option()->Bottom(), 3);
    ASSERT_FALSE(v->AllSkinImage()->TrackCenter()->Empty());
    EXPECT_EQ(v->AllSkinImage()->TrackCenter()->Graphic()->Width(), 12);

    // The thumb is 17 by 33 at the top; its middle is the picture's ink.
    EXPECT_EQ(RenderWidget(*v).pixel(8, 16), 0xFF5E6471u);
    MouseMove(*v, QPoint(8, 16));
    EXPECT_EQ(RenderWidget(*v).pixel(8, 16), 0xFF7F8797u);
}

}  // namespace
}  // namespace qpt
