// The save and the copy as the toolbar starts them, in process with every
// form of a session: where the file goes, what is asked, what a refusal or a
// failure leaves behind.
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QImage>

#include "imaging/IEShapeLayer.h"
#include "imaging/view/IEImageView.h"
#include "output/CopyFlow.h"
#include "output/FormStyle.h"
#include "skin/RdEdit.h"
#include "skin/RdImageButton.h"
#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/app/WholeSession.h"
#include "tests/output/ScriptedDialogs.h"

namespace qpt {
namespace {

using testing::ScriptedDialogs;
using testing::SessionEnded;

class SaveFlow : public testing::WholeSession {
protected:
    void SetUp() override {
        WholeSession::SetUp();
        DefaultImageExt = QStringLiteral(".png");
        folder_ = home_.root() + "shots/";
        ASSERT_TRUE(QDir().mkpath(folder_));
        AddMark();
    }

    void SetPanel(const QString& folder, bool always) {
        Panel().edit_savepath->setText(folder);
        Panel().chbtn_always->SetChecked(always);
    }
    void AddMark() {
        auto* mark = static_cast<TIEShapeLayer*>(
            Image_Front->Layers().LayersAdd(ielkShape, QPointF(10, 10), QSizeF(40, 30), false));
        mark->Shape = iesRectangle;
        mark->FillColor = mark->BorderColor = 0x0000FF;  // red
        mark->Changed();
    }
    int Layers() const { return Image_Front->Layers().LayersCount(); }
    // Runs the save; true when the session ended on the way.
    bool Save() {
        try {
            Tools().Rd_SaveClick();
        } catch (const SessionEnded& ended) {
            EXPECT_EQ(ended.code, 0);
            return true;
        }
        return false;
    }
    // The session is back as it was before the save: gates open, the mark
    // still a layer of its own, the bar above other windows again.
    void ExpectBackInTheSession() {
        EXPECT_EQ(SaveInProgress, 0);
        EXPECT_EQ(Layers(), 2);
        EXPECT_EQ(Tools().Rd_Save->ButtonState(), TRdImageButton::bsNormal);
        EXPECT_TRUE(Tools().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }

    QString folder_;
};

// The saved picture has the mark burnt in.
void ExpectFlattenedPicture(const QString& path) {
    const QImage saved(path);
    ASSERT_FALSE(saved.isNull()) << path.toStdString();
    EXPECT_EQ(saved.size(), QSize(200, 100));
    EXPECT_EQ(saved.pixel(30, 20) & 0xFFFFFF, 0xFF0000u);
}

TEST_F(SaveFlow, AlwaysSaveWritesTheGeneratedNameIntoTheFolderWithoutAsking) {
    ScriptedDialogs dialogs;
    SetPanel(folder_, true);
    const QDateTime before = QDateTime::currentDateTime();
    ASSERT_TRUE(Save());
    const QStringList files = QDir(folder_).entryList(QDir::Files);
    ASSERT_EQ(files.size(), 1);
    const QDateTime at =
        QDateTime::fromString(files[0], QStringLiteral("'ScreenShot_'yyyyMMddHHmmss'.png'"));
    ASSERT_TRUE(at.isValid()) << files[0].toStdString();
    EXPECT_LE(std::abs(at.secsTo(before)), 2);
    EXPECT_TRUE(dialogs.saveRequests.empty());
    ExpectFlattenedPicture(folder_ + files[0]);
    EXPECT_EQ(ReadMainIni("TempPath", "ImgPath", {}), folder_ + files[0]);
    EXPECT_EQ(SaveInProgress, 0);
}

// A folder chosen in the browser has no trailing delimiter; the name runs
// on from it, and the file lands beside the folder.
TEST_F(SaveFlow, AlwaysSaveGluesTheNameToAFolderWithoutDelimiter) {
    SetPanel(home_.root() + "shots", true);
    ASSERT_TRUE(Save());
    const QStringList beside = QDir(home_.root()).entryList({"shotsScreenShot_*.png"}, QDir::Files);
    EXPECT_EQ(beside.size(), 1);
}

TEST_F(SaveFlow, TheDialogIsOfferedTheGeneratedNameAndWritesTheChosenFormat) {
    ScriptedDialogs dialogs;
    SetPanel(" " + folder_ + " ", false);
    const QString chosen = folder_ + "chosen.bmp";
    dialogs.saveAnswers.push_back({true, chosen, 1});
    ASSERT_TRUE(Save());
    ASSERT_EQ(dialogs.saveRequests.size(), 1u);
    const TSaveDialogRequest& asked = dialogs.saveRequests[0];
    EXPECT_EQ(asked.FilterIndex, 3) << "PNG, the default format";
    EXPECT_EQ(asked.InitialDir, folder_) << "trimmed";
    EXPECT_EQ(asked.DefaultExt, ".jpeg");
    EXPECT_TRUE(asked.FileName.startsWith("ScreenShot_")) << asked.FileName.toStdString();
    EXPECT_EQ(asked.FileName.size(), 11 + 14);
    EXPECT_EQ(testing::ReadFile(chosen).left(2), "BM") << "the extension names the format";
    ExpectFlattenedPicture(chosen);
    EXPECT_EQ(ReadMainIni("TempPath", "ImgPath", {}), chosen);
}

TEST_F(SaveFlow, ACancelledDialogReturnsToTheSessionWithTheMarksStillLayers) {
    ScriptedDialogs dialogs;
    SetPanel(folder_, false);
    SetStayOnTop(FormPinned, true);
    EXPECT_FALSE(Save());
    ExpectBackInTheSession();
    EXPECT_TRUE(FormPinned->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(QDir(folder_).isEmpty());
}

// Refused, the old file stays and the session goes on; asked again and
// accepted, the file is replaced.
TEST_F(SaveFlow, AnExistingFileIsReplacedOnlyWhenTheUserSaysYes) {
    ScriptedDialogs dialogs;
    SetPanel(folder_, false);
    const QString chosen = folder_ + "old.png";
    testing::WriteFile(chosen, "older picture");
    ToolArmed = 1;
    dialogs.saveAnswers = {{true, chosen, 3}, {true, chosen, 3}};
    dialogs.messageAnswers = {TMessageAnswer::No, TMessageAnswer::Yes};

    EXPECT_FALSE(Save());
    ExpectBackInTheSession();
    EXPECT_EQ(ToolArmed, 0) << "the question disarmed the tool";
    EXPECT_EQ(testing::ReadFile(chosen), "older picture");
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_EQ(dialogs.messages[0], "old.png already exists. Do you want to replace it?");
    EXPECT_EQ(dialogs.messageTitles[0], "Zelk Screenshot");

    EXPECT_TRUE(Save());
    ExpectFlattenedPicture(chosen);
}

// The folder browser holds every other click: the save does nothing, and
// the gate stays shut behind it.
TEST_F(SaveFlow, WhileTheFolderBrowserIsUpTheSaveOnlyRaisesThePanel) {
    ScriptedDialogs dialogs;
    FolderDialogOpen = 1;
    EXPECT_FALSE(Save());
    EXPECT_TRUE(dialogs.saveRequests.empty());
    EXPECT_EQ(SaveInProgress, 1);
    EXPECT_EQ(Layers(), 2);
    FolderDialogOpen = 0;
    EXPECT_FALSE(Save()) << "nor a later one";
    EXPECT_TRUE(dialogs.saveRequests.empty());
}

// A folder this process cannot write into. The superuser writes into any
// folder whatever its mode, but never makes a file in /proc.
QString ReadOnlyFolder(const QString& made) {
    QFile::setPermissions(made, QFile::ReadOwner | QFile::ExeOwner);
    return ::geteuid() == 0 ? QStringLiteral("/proc/") : made;
}

// A file that cannot be written does not stop the way out, and the picture
// is kept in the settings folder's "recovery" folder.
TEST_F(SaveFlow, APictureThatCannotBeWrittenIsKeptForRecovery) {
    ScriptedDialogs dialogs;
    const QString readOnly = ReadOnlyFolder(folder_);
    SetPanel(readOnly, true);
    ASSERT_TRUE(Save());
    const QString recovery = SettingsFolder() + "recovery/";
    const QStringList kept = QDir(recovery).entryList({"ScreenShot_*.png"}, QDir::Files);
    ASSERT_EQ(kept.size(), 1);
    ExpectFlattenedPicture(recovery + kept[0]);
    EXPECT_TRUE(ReadMainIni("TempPath", "ImgPath", {}).startsWith(readOnly));
}

// A name that is a folder fails the same way; an older copy of that name in
// the recovery folder is kept too.
TEST_F(SaveFlow, ANameThatIsAFolderIsKeptForRecoveryBesideOlderCopies) {
    ScriptedDialogs dialogs;
    const QString recovery = SettingsFolder() + "recovery/";
    testing::WriteFile(recovery + "taken.png", "an older copy");
    ASSERT_TRUE(QDir().mkpath(folder_ + "taken.png"));
    SetPanel(folder_, false);
    dialogs.saveAnswers.push_back({true, folder_ + "taken.png", 3});
    ASSERT_TRUE(Save());
    EXPECT_TRUE(dialogs.messages.isEmpty()) << "a folder is no file to replace";
    ExpectFlattenedPicture(recovery + "taken_2.png");
    EXPECT_EQ(testing::ReadFile(recovery + "taken.png"), "an older copy");
}

using CopyFlow = SaveFlow;

// A holder that never gets the clipboard leaves the session open, the
// picture flattened and the toolbar where it was; the save's gate keeps the
// copy out altogether.
TEST_F(CopyFlow, ACopyThatNeverReachesTheClipboardKeepsTheSession) {
    SaveInProgress = 1;
    CopyToClipboard(home_.root() + "no-holder");
    EXPECT_EQ(Layers(), 2) << "held off by a running save";
    SaveInProgress = 0;
    CopyToClipboard(home_.root() + "no-holder");
    EXPECT_EQ(Layers(), 1);
    EXPECT_TRUE(FormTools->isVisible());
    EXPECT_TRUE(FormPinned->isVisible());
}

}  // namespace
}  // namespace qpt
