// The two notices: the tip after a copy and the exit hint after Esc.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QTimer>

#include "app/session/FirstPaint.h"
#include "output/FormMsg.h"
#include "output/TipForm.h"
#include "skin/RdImageButton.h"
#include "skin/RdLabel.h"
#include "skin/RdPanel.h"
#include "support/Language.h"
#include "support/MainIni.h"
#include "support/QptMessages.h"
#include "support/Scale.h"
#include "support/TickCount.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

uint32_t g_now = 0;
uint32_t Now() {
    return g_now;
}

class Notice : public ::testing::Test {
protected:
    void SetUp() override { SetTickCountSource(&Now); }
    void TearDown() override {
        SetTickCountSource(nullptr);
        SetScaleEnabled(false);
    }
    testing::ScratchHome home_;
};

QString ClipboardShow() {
    return ReadMainIni("Screenshot", "ClipboardShow", "unset");
}

TEST_F(Notice, TheExitHintNamesTheKeyAndMakesRoomForASecondLineWhenLong) {
    EXPECT_EQ(ExitTipCaption("Press %s again to exit this screenshot."),
              "Press \"ESC\" again to exit this screenshot.");
    TFormMsg msg;
    msg.FormCreate();
    EXPECT_EQ(msg.lbl_ExitTipCap->Caption(), "Press \"ESC\" again to exit this screenshot.");
    EXPECT_EQ(msg.lbl_ExitTipCap->y(), 15) << "41 characters stay on one line";
    EXPECT_EQ(msg.size(), QSize(300, 49));
    EXPECT_TRUE(msg.windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(msg.windowFlags() & Qt::WindowDoesNotAcceptFocus);
}

TEST_F(Notice, TheExitHintGoesAfterThreeSecondsAcrossTheTickWrap) {
    TFormMsg msg;
    msg.FormCreate();
    g_now = 0xFFFFFF00u;  // 256 ms before the tick count wraps
    msg.ShowExitTip();
    ASSERT_TRUE(msg.isVisible());
    EXPECT_TRUE(msg.Panel_ExitTip->isVisible());
    EXPECT_TRUE(msg.tmr_ExitTip->isActive());
    g_now += 3000;
    msg.tmr_ExitTipTimer();
    EXPECT_TRUE(msg.isVisible()) << "exactly three seconds is not yet over";
    g_now += 1;
    msg.tmr_ExitTipTimer();
    EXPECT_FALSE(msg.isVisible());
    EXPECT_FALSE(msg.Panel_ExitTip->isVisible());
    EXPECT_FALSE(msg.tmr_ExitTip->isActive());
}

// More than 45 characters moves the caption up, even where it would fit on
// one line; the form and its parts double with the interface.
TEST_F(Notice, ALongTranslationOfTheHintIsRaisedAtBothScales) {
    testing::WriteFile(
        home_.root() + "Language/English.lng",
        "[QPT_M]\nM_Screen_ExitTipCap=Press %s one more time to leave the picture\n");
    TLanguage language("QPT", home_.root() + "Language");
    language.SetLanguage("English");
    FetchMessageTexts(language);
    ASSERT_EQ(ExitTipCaption(QptMessages().Text("M_Screen_ExitTipCap")).length(), 46)
        << "one character over";
    for (const int factor : {1, 2}) {
        SetScaleEnabled(factor == 2);
        TFormMsg msg;
        msg.FormCreate();
        EXPECT_EQ(msg.size(), QSize(300, 49) * factor);
        EXPECT_EQ(msg.lbl_ExitTipCap->pos(), QPoint(0, 5) * factor);
        EXPECT_EQ(msg.lbl_ExitTipCap->width(), 270 * factor);
    }
    QptMessages() = TQptMessages();
}

// Each test runs in a process of its own, so the first paint is still to come.
TEST_F(Notice, TheExitHintWrapsItsCaptionAfterTheFirstPaintOrWhenShownFirst) {
    testing::WriteFile(home_.root() + "Language/English.lng",
                       "[QPT_M]\nM_Screen_ExitTipCap=Press %s one more time to leave the picture "
                       "that is pinned here\n");
    TLanguage language("QPT", home_.root() + "Language");
    language.SetLanguage("English");
    FetchMessageTexts(language);
    TFormMsg plain;
    plain.FormCreate();
    const int twoLines = plain.lbl_ExitTipCap->height();
    AwaitFirstPaint();
    TFormMsg waiting;
    waiting.FormCreate();
    TFormMsg shown;
    shown.FormCreate();
    shown.ShowExitTip();
    EXPECT_EQ(shown.lbl_ExitTipCap->height(), twoLines);
    EXPECT_GT(twoLines, 19) << "the caption wraps";

    FirstPaintDone();
    QCoreApplication::processEvents();
    EXPECT_EQ(waiting.lbl_ExitTipCap->geometry(), plain.lbl_ExitTipCap->geometry());
    QptMessages() = TQptMessages();
}

void Press(QWidget* on, QPoint at, QEvent::Type type, Qt::MouseButtons buttons) {
    const QPointF global = on->mapToGlobal(QPointF(at));
    QMouseEvent event(type, QPointF(at), global, Qt::LeftButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(on, &event);
}

TEST_F(Notice, OkWithTheBoxCheckedSwitchesTheTipOffForGood) {
    TTipForm tip;
    QTimer::singleShot(0, &tip, [&] { tip.Rd_btnOk->OnClick(*tip.Rd_btnOk); });
    EXPECT_EQ(tip.ShowModal(), QDialog::Accepted);
    EXPECT_FALSE(tip.isVisible());
    EXPECT_EQ(ClipboardShow(), "1");
}

TEST_F(Notice, OkWithTheBoxClearedLeavesTheSettingAsItWas) {
    WriteMainIni("Screenshot", "ClipboardShow", "0");
    TTipForm tip;
    QTimer::singleShot(0, &tip, [&] {
        tip.RdBtn_Check->SetChecked(false);
        tip.Rd_btnOk->OnClick(*tip.Rd_btnOk);
    });
    tip.ShowModal();
    EXPECT_EQ(ClipboardShow(), "0");
}

TEST_F(Notice, ATipLeftAloneClosesByItselfAndCountsAsOk) {
    TTipForm tip;
    EXPECT_EQ(tip.tmrClose->interval(), 10000);
    EXPECT_FALSE(tip.tmrClose->isActive()) << "the time runs from the show";
    tip.tmrClose->setInterval(20);
    EXPECT_EQ(tip.ShowModal(), QDialog::Accepted);
    EXPECT_EQ(ClipboardShow(), "1") << "the box is checked from the start";
}

TEST_F(Notice, TheMouseOnTheTipHoldsTheTimeOutAndLeavingStartsItAfresh) {
    TTipForm tip;
    tip.show();
    ASSERT_TRUE(tip.tmrClose->isActive());
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(tip.pnlMain, &enter);
    EXPECT_FALSE(tip.tmrClose->isActive());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(tip.pnlMain, &leave);
    EXPECT_TRUE(tip.tmrClose->isActive());
    EXPECT_EQ(tip.tmrClose->remainingTime() > 9000, true);
}

TEST_F(Notice, TheTipIsDraggedByItsPanelAndItsText) {
    TTipForm tip;
    tip.move(100, 100);
    tip.show();
    for (QWidget* handle :
         {static_cast<QWidget*>(tip.Label_Tip), static_cast<QWidget*>(tip.RdBtn_MainBg)}) {
        const QPoint before = tip.pos();
        Press(handle, QPoint(5, 5), QEvent::MouseButtonPress, Qt::LeftButton);
        Press(handle, QPoint(35, 25), QEvent::MouseMove, Qt::LeftButton);
        Press(handle, QPoint(35, 25), QEvent::MouseButtonRelease, Qt::NoButton);
        EXPECT_EQ(tip.pos(), before + QPoint(30, 20));
    }
    const QPoint rest = tip.pos();
    Press(tip.Label_Tip, QPoint(50, 20), QEvent::MouseMove, Qt::NoButton);
    EXPECT_EQ(tip.pos(), rest) << "the move ends with the release";
}

TEST_F(Notice, TheTipLaysOutFromItsEdgesAtBothScales) {
    for (const int factor : {1, 2}) {
        SetScaleEnabled(factor == 2);
        TTipForm tip;
        tip.show();
        EXPECT_EQ(tip.size(), QSize(380, 120) * factor);
        EXPECT_EQ(tip.Rd_btnOk->geometry(),
                  QRect(QPoint(285, 76) * factor, QSize(85, 34) * factor));
        EXPECT_EQ(tip.Label_Tip->pos(), QPoint(15, 15) * factor);
        EXPECT_EQ(tip.Label_Tip->width(), factor == 1 ? 348 : 760 - 60);
        EXPECT_EQ(tip.RdBtn_Check->x(), 15 * factor);
        EXPECT_EQ(tip.RdBtn_Check->geometry().bottom() + 1, (120 - 15) * factor);
        EXPECT_LT(tip.RdBtn_Check->geometry().right(), tip.Rd_btnOk->x());
        EXPECT_EQ(tip.Label_Tip->Caption(), QptMessages().Text("M_Screen_TipInfo"));
        EXPECT_EQ(tip.RdBtn_Check->Caption(), "Don't show this message again");
        tip.Rd_btnOkClick();
    }
}

}  // namespace
}  // namespace qpt
