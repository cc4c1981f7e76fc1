// The pinned window in process, on the offscreen platform: sizing from the
// hand-over, the drag and the activation rules, with the bars recorded.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QScreen>
#include <QScrollArea>
#include <QStringList>
#include <QTimer>

#include "app/FormPinned.h"
#include "app/ScreenLayout.h"
#include "app/session/SessionState.h"
#include "imaging/IEImageLayer.h"
#include "imaging/view/IEImageView.h"
#include "tests/app/InProcessPin.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

TEST(ScreenLayout, WholeScreenOnOneMonitorMeansTheScreenAtTheOrigin) {
    const TScreenLayout one{
        QRect(0, 0, 1920, 1080), {QRect(0, 0, 1920, 1080)}, QRect(0, 0, 1920, 1080)};
    EXPECT_TRUE(IsWholeScreenRect(QRect(0, 0, 1920, 1080), one));
    EXPECT_FALSE(IsWholeScreenRect(QRect(1, 0, 1920, 1080), one));
    EXPECT_FALSE(IsWholeScreenRect(QRect(0, 0, 1919, 1080), one));
    EXPECT_EQ(PinnedHeightLimit(one), 864);
}

TEST(ScreenLayout, WholeScreenOnTwoMonitorsMeansEitherMonitorOrTheDesktop) {
    const TScreenLayout two{QRect(0, 0, 1920, 1080),
                            {QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1024)},
                            QRect(0, 0, 3200, 1080)};
    EXPECT_TRUE(IsWholeScreenRect(QRect(1920, 0, 1280, 1024), two));
    EXPECT_FALSE(IsWholeScreenRect(QRect(1920, 0, 1279, 1024), two));
    EXPECT_TRUE(IsWholeScreenRect(QRect(0, 0, 3200, 1080), two));
    EXPECT_TRUE(IsWholeScreenRect(QRect(0, 0, 1920, 1080), two));
}

class FormPinnedTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::MakeTestApplication();
        limit = QGuiApplication::primaryScreen()->geometry().height() * 8 / 10;
        ToolArmed = 0;
        FolderDialogOpen = 0;
        SaveInProgress = 0;
    }
    std::unique_ptr<TFormPinned> Pin(QSize picture, QRect rect) {
        testing::WriteHandOver(testing::PlainPicture(picture), rect);
        auto form = std::make_unique<TFormPinned>(QStringList{"QptPin", "/QPTMain"});
        form->FormCreate();
        form->show();
        return form;
    }
    testing::ScratchHome env;
    int limit = 0;
};

TEST_F(FormPinnedTest, APictureLowerThanTheLimitGetsExactlyItsRectangle) {
    auto form = Pin(QSize(200, 100), QRect(30, 40, 200, 100));
    EXPECT_EQ(form->geometry(), QRect(30, 40, 200, 100));
    EXPECT_EQ(form->Image_Front->size(), QSize(200, 100)) << "the 17 are taken back";
    EXPECT_FALSE(ShowsVerticalBar(*form->RdSB_ImageFont));
    EXPECT_EQ(form->InitialWidth, 200);
    EXPECT_EQ(form->InitialHeight, 100);
    EXPECT_EQ(form->Image_Front->Cursor(), crSizeAll);
    EXPECT_EQ(form->Image_Front->Proc()->UndoLimit(), 100);
    EXPECT_FALSE(form->Image_Front->Layers().Background().Selectable);
    EXPECT_EQ(ZoomStep, 10);
    EXPECT_FALSE(DefaultImageExt.isEmpty());
}

TEST_F(FormPinnedTest, TallAndExactlyLimitHighPicturesShowTheBarNineWide) {
    for (int height : {limit + 200, limit}) {
        auto form = Pin(QSize(150, height), QRect(10, 0, 150, height));
        EXPECT_EQ(form->geometry(), QRect(10, 0, 159, limit)) << height;
        EXPECT_TRUE(ShowsVerticalBar(*form->RdSB_ImageFont)) << height;
        EXPECT_EQ(form->Image_Front->height(), height);
        EXPECT_EQ(form->RdSB_ImageFont->viewport()->width(), 150) << "the picture keeps its width";
    }
    auto form = Pin(QSize(150, limit - 1), QRect(10, 0, 150, limit - 1));
    EXPECT_EQ(form->width(), 150);
}

TEST_F(FormPinnedTest, AnEmptyRectangleGivesOnePixelAtTheOrigin) {
    auto form = Pin(QSize(20, 20), QRect(0, 0, 0, 0));
    EXPECT_EQ(form->geometry(), QRect(0, 0, 1, 1));
}

// A close request (Alt+F4 through the window manager) ends the session
// through the message loop with code 0, not with an invisible process.
TEST_F(FormPinnedTest, ACloseRequestEndsTheMessageLoopWithCodeZero) {
    auto form = Pin(QSize(60, 40), QRect(10, 10, 60, 40));
    QTimer::singleShot(0, form.get(), [&] { form->close(); });
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(&timeout, &QTimer::timeout, [] { QCoreApplication::exit(7); });
    timeout.start(5000);
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST_F(FormPinnedTest, LeftDragMovesTheWindowAndBringsTheBarBackAtRelease) {
    auto form = Pin(QSize(200, 100), QRect(100, 100, 200, 100));
    std::vector<QString> calls;
    form->Bars.ShowTools = [&] { calls.push_back("show"); };
    form->Bars.HideTools = [&] { calls.push_back("hide"); };
    form->Bars.UpdateBarLayout = [&](const QRect& r) {
        calls.push_back(QStringLiteral("layout %1,%2").arg(r.x()).arg(r.y()));
    };
    form->Image_FrontMouseDown(Qt::LeftButton, 20, 30);
    form->Image_FrontMouseMove(45, 20);
    EXPECT_EQ(form->pos(), QPoint(125, 90));
    form->Image_FrontMouseUp(Qt::LeftButton);
    EXPECT_FALSE(form->Dragging);
    EXPECT_EQ(calls, (std::vector<QString>{"hide", "layout 125,90", "show"}));

    // The right button starts no drag, and its release only frees the mouse.
    calls.clear();
    form->Image_FrontMouseDown(Qt::RightButton, 5, 5);
    form->Image_FrontMouseMove(50, 50);
    form->Image_FrontMouseUp(Qt::RightButton);
    EXPECT_EQ(form->pos(), QPoint(125, 90));
    EXPECT_TRUE(calls.empty());

    // With a tool's cursor the press draws instead of moving the window.
    form->Image_Front->SetCursor(crDefault);
    form->Image_FrontMouseDown(Qt::LeftButton, 20, 30);
    form->Image_FrontMouseMove(60, 60);
    EXPECT_EQ(form->pos(), QPoint(125, 90));
}

TEST_F(FormPinnedTest, LosingTheActivationBakesTheMarksOnlyWhileTheBarShows) {
    auto form = Pin(QSize(200, 100), QRect(0, 0, 200, 100));
    int baked = 0, resets = 0;
    bool toolsVisible = false;
    form->Bars.ShowTools = [&] { toolsVisible = true; };
    form->Bars.HideTools = [&] { toolsVisible = false; };
    form->Bars.ToolsVisible = [&] { return toolsVisible; };
    form->Bars.InitPicSave = [&] { ++baked; };
    form->Bars.ResetToolButtons = [&] { ++resets; };

    ToolArmed = 1;
    form->WMACTIVATEAPP(false);
    EXPECT_EQ(baked, 0) << "the bar was hidden: the layers stay";
    EXPECT_EQ(ToolArmed, 0);

    toolsVisible = true;
    ToolArmed = 1;
    form->Image_Front->SetCursor(crDefault);
    form->Image_Front->SetMouseInteractLayers(mlCreateShapeLayers);
    FolderDialogOpen = 1;
    form->WMACTIVATEAPP(false);
    EXPECT_EQ(baked, 0) << "the folder dialog took the activation on purpose";
    FolderDialogOpen = 0;
    form->WMACTIVATEAPP(false);
    EXPECT_EQ(baked, 1);
    EXPECT_EQ(resets, 1);
    EXPECT_FALSE(toolsVisible);
    EXPECT_EQ(form->Image_Front->Cursor(), crSizeAll);
    EXPECT_EQ(form->Image_Front->MouseInteractLayers(), mlResizeLayers);
    EXPECT_EQ(ToolArmed, 0);
}

}  // namespace
}  // namespace qpt
