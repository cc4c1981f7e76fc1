// The toolbar in process, on the offscreen platform: its layout at both
// scales, its labels and settings, the controls that act as one, and the
// zoom clicks with what they ask of the pinned window.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>
#include <cmath>
#include <memory>

#include "annotate/FormTools.h"
#include "app/session/FirstPaint.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionMessages.h"
#include "app/session/SessionState.h"
#include "imaging/view/IEImageView.h"
#include "skin/RdImage.h"
#include "skin/RdImageButton.h"
#include "skin/RdMenuForm.h"
#include "skin/RdSkinMenu.h"
#include "support/MainIni.h"
#include "support/ProductStat.h"
#include "support/Scale.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

// Stands in for the pinned window: keeps the messages it is sent.
class TMessageSink : public QWidget {
public:
    bool event(QEvent* event) override {
        if (const TSessionMessage* m = AsSessionMessage(event)) {
            received << QStringLiteral("%1 %2").arg(m->Id).arg(m->WParam);
            return true;
        }
        return QWidget::event(event);
    }
    QStringList received;
};

class FormToolsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ZoomStep = 10;
        FolderDialogOpen = 0;
    }
    void TearDown() override { SetScaleEnabled(false); }
    std::unique_ptr<TFormTools> MakeBar() {
        auto bar = std::make_unique<TFormTools>();
        bar->FormCreate();
        return bar;
    }
    testing::ScratchHome home;
};

TEST_F(FormToolsTest, EveryControlFollowsTheOneBeforeItAtBothScales) {
    const std::pair<const char*, int> lefts[] = {
        {"lbl_Porportion", 43},
        {"Btn_Rd_Rect", 246},
        {"Btn_Rd_Ellip", 276},
        {"Btn_Rd_Line", 306},
        {"Btn_Rd_Arrow", 336},
        {"Btn_Rd_Brush", 366},
        {"Btn_Rd_Mosaic", 396},
        {"Btn_Rd_Font", 426},
        {"Image_BarDiv2", 463},
        {"Btn_Rd_Return", 484},
        {"Btn_Rd_Del", 514},
        {"Image_BarDiv3", 551},
        {"Btn_Rd_Share", 572},
        {"Btn_Rd_Google", 602},
        {"Btn_Rd_Copy", 632},
        {"Rd_WordCopy", 664},
        {"Rd_Save", 722},
        {"Rd_WordSave", 754},
        {"btn_save_drop", 784},
        // These keep their design places.
        {"Rdbtn_shrink", 16},
        {"Rdbtn_enlarge", 88},
        {"lbl_WinSize", 117},
        {"Image_BarDiv1", 225},
    };
    for (const int scale : {1, 2}) {
        SetScaleEnabled(scale == 2);
        auto bar = MakeBar();
        bar->UpdateBarLayout(QRect(100, 100, 900, 500));
        for (const auto& [name, left] : lefts) {
            const auto* control = bar->findChild<QWidget*>(QLatin1StringView(name));
            ASSERT_NE(control, nullptr) << name;
            EXPECT_EQ(control->x(), left * scale) << name << " at " << scale << "x";
        }
        EXPECT_EQ(bar->size(), QSize(811, 40) * scale);
        EXPECT_EQ(bar->Panel_Tools->width(), 811 * scale);
        EXPECT_EQ(bar->Btn_Rd_Copy->size(), QSize(89, 40) * scale);
        EXPECT_EQ(bar->PictureRect, QRect(100, 100, 900, 500));
    }
}

TEST_F(FormToolsTest, TheDropArrowShowsOnlyWhileTheAlwaysSaveSettingIsOff) {
    auto bar = MakeBar();
    const std::pair<const char*, bool> settings[] = {{"0", true}, {"1", false}, {"2", false}};
    for (const auto& [value, shown] : settings) {
        WriteMainIni("Screenshot", "CaptureSave", value);
        bar->UpdateBarLayout(QRect(0, 0, 10, 10));
        EXPECT_EQ(bar->btn_save_drop->Visible(), shown) << value;
    }
}

TEST_F(FormToolsTest, TheLabelsTellTheViewsSizeAndTheZoom) {
    TIEImageView view;
    view.resize(640, 360);
    Image_Front = &view;
    auto bar = MakeBar();
    ZoomStep = 25;
    bar->UpdateBarLayout(QRect(0, 0, 10, 10));
    Image_Front = nullptr;
    EXPECT_EQ(bar->lbl_WinSize->text(), "640 x 360");
    EXPECT_EQ(bar->lbl_Porportion->text(), "250%");
    EXPECT_EQ(bar->lbl_WinSize->width(), 110);
    EXPECT_GE(bar->lbl_Porportion->width(), 36);
    EXPECT_LE(bar->lbl_Porportion->width(), 110);
}

// Each test runs in a process of its own, so the first paint is still to come.
TEST_F(FormToolsTest, TheLabelsAreMadeAfterTheFirstPaintOrWhenLaidOutFirstInTheirPlaces) {
    AwaitFirstPaint();
    SetScaleEnabled(true);
    const double factor = GetScaleFactor();
    auto waiting = MakeBar();
    EXPECT_EQ(waiting->lbl_WinSize, nullptr);
    EXPECT_EQ(waiting->lbl_Porportion, nullptr);
    auto laidOut = MakeBar();
    laidOut->UpdateBarLayout(QRect(0, 0, 10, 10));
    ASSERT_NE(laidOut->lbl_Porportion, nullptr);
    EXPECT_EQ(laidOut->lbl_Porportion->text(), "100%");

    FirstPaintDone();
    QCoreApplication::processEvents();
    ASSERT_NE(waiting->lbl_WinSize, nullptr);
    // Made last, they still lie where the form stacks them among the others.
    const QObjectList& stack = waiting->Panel_Tools->children();
    EXPECT_EQ(stack.indexOf(waiting->lbl_WinSize) + 1, stack.indexOf(waiting->Image_BarDiv1));
    EXPECT_EQ(stack.indexOf(waiting->lbl_WinSize) - 1, stack.indexOf(waiting->Image_BarDiv3));
    EXPECT_EQ(stack.last(), waiting->lbl_Porportion);
    const auto scaled = [factor](int design) { return int(std::lround(design * factor)); };
    EXPECT_EQ(waiting->lbl_WinSize->geometry(),
              QRect(scaled(117), scaled(8), scaled(110), scaled(20)));
    EXPECT_EQ(waiting->lbl_WinSize->maximumWidth(), scaled(110));
    EXPECT_EQ(waiting->lbl_Porportion->font().pixelSize(), scaled(15));
}

TEST_F(FormToolsTest, TheRedDotStaysUntilTheSearchHasBeenSeen) {
    EXPECT_EQ(MakeBar()->Btn_Rd_Google->DnNormalIcon()->Text(),
              "imgname=images/redpoint_small.png");
    WriteMainIni("Main", "GsearchRed", "1");
    EXPECT_EQ(MakeBar()->Btn_Rd_Google->DnNormalIcon()->Text(), "");
}

TEST_F(FormToolsTest, TheHintsComeFromTheMessagesWithTheirKeys) {
    auto bar = MakeBar();
    EXPECT_EQ(bar->Btn_Rd_Rect->Hint(), "Rectangle");
    EXPECT_EQ(bar->Btn_Rd_Return->Hint(), "Restore (Ctrl+Z)");
    EXPECT_EQ(bar->Rd_WordCopy->Hint(), "Copy to clipboard (Ctrl+C)");
    EXPECT_EQ(bar->btn_save_drop->Hint(), "Save (Ctrl+S)");
    EXPECT_EQ(bar->Rdbtn_shrink->Hint(), "Zoom Out");
    EXPECT_EQ(bar->MenuFacebook->Caption(), "Facebook");
}

// Pressing the word presses the blue button under it, and the other way
// round; the Save button, its word and its arrow go down together.
TEST_F(FormToolsTest, AButtonAndThePicturesOnItActAsOne) {
    auto bar = MakeBar();
    bar->Rd_WordCopy->OnMouseDown(*bar->Rd_WordCopy, Qt::LeftButton);
    EXPECT_EQ(bar->Btn_Rd_Copy->ButtonState(), TRdImageButton::bsDown);
    bar->Rd_WordCopy->OnMouseUp(*bar->Rd_WordCopy, Qt::LeftButton);
    EXPECT_EQ(bar->Btn_Rd_Copy->ButtonState(), TRdImageButton::bsNormal);
    bar->Btn_Rd_Copy->OnMouseDown(*bar->Btn_Rd_Copy, Qt::LeftButton);
    EXPECT_EQ(bar->Rd_WordCopy->IconState(), TRdImageButton::isDown);
    bar->Btn_Rd_Copy->OnMouseUp(*bar->Btn_Rd_Copy, Qt::LeftButton);
    EXPECT_EQ(bar->Rd_WordCopy->IconState(), TRdImageButton::isNormal);

    bar->btn_save_drop->OnMouseDown(*bar->btn_save_drop, Qt::LeftButton);
    EXPECT_EQ(bar->Rd_Save->ButtonState(), TRdImageButton::bsDown);
    EXPECT_EQ(bar->Rd_Save->IconState(), TRdImageButton::isDown);
    EXPECT_EQ(bar->Rd_WordSave->IconState(), TRdImageButton::isDown);
    bar->btn_save_drop->OnMouseUp(*bar->btn_save_drop, Qt::LeftButton);
    EXPECT_EQ(bar->Rd_Save->ButtonState(), TRdImageButton::bsNormal);
    bar->Rd_Save->OnMouseDown(*bar->Rd_Save, Qt::LeftButton);
    EXPECT_EQ(bar->btn_save_drop->IconState(), TRdImageButton::isDown);
    EXPECT_EQ(bar->Rd_WordSave->IconState(), TRdImageButton::isDown);

    bar->Rd_WordSave->OnMouseEnter(*bar->Rd_WordSave);
    EXPECT_TRUE(bar->Rd_Save->MouseIn());
    bar->Rd_WordCopy->OnMouseEnter(*bar->Rd_WordCopy);
    EXPECT_TRUE(bar->Btn_Rd_Copy->MouseIn());
}

TEST_F(FormToolsTest, ResettingTheButtonsWaitsWhileTheStyleBarIsUp) {
    auto bar = MakeBar();
    QWidget styleBar;
    FormSmallTools = &styleBar;
    styleBar.show();
    RectOpen = 1;
    bar->Btn_Rd_Rect->SetState(TRdImageButton::bsSelected);
    bar->Btn_Rd_Share->SetState(TRdImageButton::bsSelected);
    SendSessionMessage(bar.get(), kMsgResetToolButtons, 1, 0);
    EXPECT_EQ(RectOpen, 1);
    EXPECT_EQ(bar->Btn_Rd_Rect->ButtonState(), TRdImageButton::bsSelected);
    styleBar.hide();
    SendSessionMessage(bar.get(), kMsgResetToolButtons, 1, 0);
    FormSmallTools = nullptr;
    EXPECT_EQ(RectOpen, 0);
    EXPECT_EQ(bar->Btn_Rd_Rect->ButtonState(), TRdImageButton::bsNormal);
    EXPECT_EQ(bar->Btn_Rd_Share->ButtonState(), TRdImageButton::bsNormal);
}

// Each click takes its step at once and reports its code; the resize is
// only asked for, and reaches the window after the click has returned.
TEST_F(FormToolsTest, ZoomClicksStepReportAndAskThePinnedWindowLater) {
    const QString record = home.root() + "stat.txt";
    home.setEnv("QPT_STAT_STANDIN_LOG", record.toStdString());
    ASSERT_TRUE(LoadProductStat(QStringLiteral(QPT_STAT_STANDIN)));
    auto bar = MakeBar();
    TMessageSink pinned;
    FormPinned = &pinned;
    bar->Rdbtn_enlargeClick();
    EXPECT_EQ(ZoomStep, 11);
    EXPECT_TRUE(pinned.received.isEmpty()) << "posted, not sent";
    QCoreApplication::sendPostedEvents(&pinned);
    EXPECT_EQ(pinned.received, QStringList{"1131 1"});
    ZoomStep = 2;
    bar->Rdbtn_shrinkClick();
    QCoreApplication::sendPostedEvents(&pinned);
    FormPinned = nullptr;
    EXPECT_EQ(ZoomStep, 1);
    EXPECT_FALSE(bar->Rdbtn_shrink->isEnabled());
    EXPECT_EQ(pinned.received, QStringList({"1131 1", "1131 0"}));
    EXPECT_EQ(testing::ReadFile(record), "DoStatistic qpt1 a318 0\nDoStatistic qpt1 a317 0\n");
}

TEST_F(FormToolsTest, TheShareMenuOpensUnderTheButtonUnlessTheFolderDialogIsUp) {
    auto bar = MakeBar();
    bar->UpdateBarLayout(QRect(20, 20, 900, 300));
    bar->move(30, 322);
    FolderDialogOpen = 1;
    bar->Btn_Rd_ShareClick();
    EXPECT_FALSE(bar->Menu_Share->Showing());
    FolderDialogOpen = 0;
    bar->Btn_Rd_ShareClick();
    ASSERT_TRUE(bar->Menu_Share->Showing());
    const QRect popup = bar->Menu_Share->Forms().first()->geometry();
    EXPECT_EQ(popup.topLeft(), QPoint(30 + 572, 322 + 40 + 2));
    bar->Menu_Share->CloseMenu();
}

}  // namespace
}  // namespace qpt
