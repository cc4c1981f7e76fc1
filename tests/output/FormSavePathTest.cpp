// The save-path panel: the folder and the tick it shows and stores, the
// folder browser with its gate and its refusal, closing, and its controls
// waiting for the picture's first paint in a session.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include "app/session/FirstPaint.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "output/FormSavePath.h"
#include "skin/RdEdit.h"
#include "skin/RdImageButton.h"
#include "support/MainIni.h"
#include "support/QptMessages.h"
#include "tests/common/ScratchHome.h"
#include "tests/output/ScriptedDialogs.h"

namespace qpt {
namespace {

using testing::WriteFile;

QString Setting(const char* key) {
    return ReadMainIni("Screenshot", key, "unset");
}

class SavePathPanel : public ::testing::Test {
protected:
    void SetUp() override {
        WriteFile(home_.configHome() + "user-dirs.dirs", "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
    }
    // The panel as the session makes it, with the settings as they are now.
    TFormSavePath& Panel() {
        panel_ = std::make_unique<TFormSavePath>();
        panel_->FormCreate();
        return *panel_;
    }
    static void ClickTheTick(TFormSavePath& panel) {
        // On the caption, away from the box itself.
        QTest::mouseClick(panel.chbtn_always, Qt::LeftButton, {},
                          QPoint(panel.chbtn_always->width() - 4, 8));
    }

    testing::ScratchHome home_;
    testing::ScriptedDialogs dialogs_;
    std::unique_ptr<TFormSavePath> panel_;
};

TEST_F(SavePathPanel, ShowsTheStoredFolderWithADelimiterOrThePicturesFolder) {
    EXPECT_EQ(Panel().SavePathText(), home_.home() + "Bilder/Zelk Screenshot/");
    EXPECT_FALSE(panel_->AlwaysSave());
    EXPECT_EQ(Setting("CapturePath"), "unset") << "the default is shown, not stored";
    EXPECT_EQ(FormSavePath, panel_.get());

    WriteMainIni("Screenshot", "CapturePath", "  /srv/shots  ");
    WriteMainIni("Screenshot", "CaptureSave", "1");
    EXPECT_EQ(Panel().SavePathText(), "/srv/shots/");
    EXPECT_TRUE(panel_->AlwaysSave());
    WriteMainIni("Screenshot", "CapturePath", "/srv/shots/");
    WriteMainIni("Screenshot", "CaptureSave", "2");
    EXPECT_EQ(Panel().SavePathText(), "/srv/shots/") << "a delimiter is not doubled";
    EXPECT_FALSE(panel_->AlwaysSave()) << "only \"1\" ticks";
    EXPECT_EQ(panel_->size(), QSize(470, 88));
    EXPECT_TRUE(panel_->windowFlags() & Qt::WindowStaysOnTopHint);
}

TEST_F(SavePathPanel, TheTickIsStoredAtOnceWhereverItIsClicked) {
    TFormSavePath& panel = Panel();
    ClickTheTick(panel);
    EXPECT_TRUE(panel.AlwaysSave());
    EXPECT_EQ(Setting("CaptureSave"), "1");
    ClickTheTick(panel);
    EXPECT_FALSE(panel.AlwaysSave());
    EXPECT_EQ(Setting("CaptureSave"), "0");
}

TEST_F(SavePathPanel, BrowsingHoldsEveryOtherClickAndStoresTheFolderAsChosen) {
    TFormSavePath& panel = Panel();
    const QString chosen = home_.root() + "elsewhere";
    QDir().mkpath(chosen);
    dialogs_.folderAnswers = {chosen};
    bool heldWhileOpen = false;
    dialogs_.whileOpen = [&] {
        heldWhileOpen = FolderDialogOpen == 1 && !(panel.windowFlags() & Qt::WindowStaysOnTopHint);
    };
    panel.btn_browseSavePathClick();
    EXPECT_TRUE(heldWhileOpen) << "the gate is shut and the panel lets the browser above it";
    EXPECT_EQ(dialogs_.folderTitles, QStringList({"Zelk Screenshot"}));
    EXPECT_EQ(FolderDialogOpen, 0);
    EXPECT_TRUE(panel.windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_EQ(panel.SavePathText(), chosen) << "as chosen, without a delimiter";
    EXPECT_EQ(Setting("CapturePath"), chosen);
}

TEST_F(SavePathPanel, ACancelledBrowserStoresTheFolderShown) {
    TFormSavePath& panel = Panel();
    panel.btn_browseSavePathClick();
    EXPECT_EQ(panel.SavePathText(), home_.home() + "Bilder/Zelk Screenshot/");
    EXPECT_EQ(Setting("CapturePath"), panel.SavePathText());
    EXPECT_EQ(FolderDialogOpen, 0);
}

TEST_F(SavePathPanel, AFolderOffTheLocalDisksIsRefusedWithAMessageAndNothingStored) {
    TFormSavePath& panel = Panel();
    dialogs_.folderAnswers = {"   "};  // no disk at all behind it
    panel.btn_browseSavePathClick();
    EXPECT_EQ(dialogs_.messages, QStringList({QptMessages().Text("M_PathWrongDesc")}));
    EXPECT_EQ(dialogs_.messageTitles, QStringList({"Zelk Screenshot"}));
    EXPECT_EQ(panel.SavePathText(), home_.home() + "Bilder/Zelk Screenshot/");
    EXPECT_EQ(Setting("CapturePath"), "unset");
    EXPECT_EQ(FolderDialogOpen, 0);
    EXPECT_TRUE(panel.windowFlags() & Qt::WindowStaysOnTopHint);
}

TEST_F(SavePathPanel, ClosingPutsTheToolbarBackUnderThePicture) {
    QWidget pinned(nullptr, Qt::FramelessWindowHint), tools(nullptr, Qt::FramelessWindowHint);
    RegisterForm(FormPinned, &pinned);
    RegisterForm(FormTools, &tools);
    pinned.setGeometry(100, 100, 300, 200);
    tools.setGeometry(60, 390, 340, 40);
    pinned.show();
    tools.show();
    TFormSavePath& panel = Panel();
    int pressed = 0;
    panel.OnBackgroundPress = [&] { ++pressed; };
    panel.show();
    QTest::mousePress(panel.RdBtn_SaveBarBg, Qt::LeftButton, {}, QPoint(200, 80));
    EXPECT_EQ(pressed, 1) << "a press on the background dismisses the share menu";
    tools.hide();
    QTest::mousePress(panel.RdBtn_SaveBarBg, Qt::LeftButton, {}, QPoint(200, 80));
    EXPECT_EQ(pressed, 1) << "not while the toolbar is away";
    tools.show();

    panel.btn_pthpnl_closeClick();
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(tools.pos(), QPoint(60, 302));
}

// Each test runs in a process of its own, so the first paint is still to come.
TEST_F(SavePathPanel, WaitsForTheFirstPaintUnlessShownFirstAndAnswersMeanwhile) {
    WriteMainIni("Screenshot", "CapturePath", "/srv/shots");
    WriteMainIni("Screenshot", "CaptureSave", "1");
    AwaitFirstPaint();
    TFormSavePath& waiting = Panel();
    EXPECT_EQ(waiting.edit_savepath, nullptr) << "no text field, so no fonts, before the picture";
    EXPECT_EQ(waiting.SavePathText(), "/srv/shots/");
    EXPECT_TRUE(waiting.AlwaysSave());

    TFormSavePath shown;
    shown.FormCreate();
    shown.show();
    ASSERT_NE(shown.edit_savepath, nullptr) << "shown before the paint, it is whole";
    EXPECT_EQ(shown.edit_savepath->text(), "/srv/shots/");
    EXPECT_TRUE(shown.chbtn_always->Checked());
    EXPECT_TRUE(shown.btn_browseSavePath->isVisible());

    FirstPaintDone();
    QCoreApplication::processEvents();
    ASSERT_NE(waiting.edit_savepath, nullptr);
    EXPECT_EQ(waiting.edit_savepath->text(), "/srv/shots/");
    EXPECT_TRUE(waiting.chbtn_always->Checked());
    waiting.edit_savepath->setText("/srv/other/");
    EXPECT_EQ(waiting.SavePathText(), "/srv/other/") << "the field is what counts once made";
}

}  // namespace
}  // namespace qpt
