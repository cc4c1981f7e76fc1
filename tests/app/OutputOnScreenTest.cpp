// The ways out of the real program on a private X server: the copy leaves
// the picture on the clipboard after the process has ended, the save leaves
// a file, and the host hears of both.
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <optional>

#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/app/PinnedProgram.h"
#include "tests/common/HostStandIn.h"

namespace qpt {
namespace {

using testing::Pattern;
using testing::WaitFor;

class OutputOnScreen : public testing::PinnedProgram {
protected:
    void SetUp() override {
        PinnedProgram::SetUp();
        if (IsSkipped()) return;
        host_.emplace(c_);
        WriteMainIni("Format", "ScreenFmat", "1");  // PNG
    }

    // Pins the picture, brings the toolbar with a first click, and clicks
    // the copy or the save button on it.
    void PinAndClick(int buttonLeft, const QString& program = QPT_PROGRAM_DIR "/QptPin") {
        Pin(picture_, QRect(600, 300, picture_.width(), picture_.height()), {"/QPTMain"}, program);
        ClickAt(QPoint(700, 310));
        QRect bar;
        ASSERT_TRUE(WaitFor([&] { return !(bar = ToolbarRect()).isEmpty(); }));
        ClickAt(bar.topLeft() + QPoint(buttonLeft + 20, 20));
        Xdotool({"mousemove", "5", "5"});
    }
    void ClickCopy(const QString& program = QPT_PROGRAM_DIR "/QptPin") {
        PinAndClick(632, program);
    }
    bool Ended() { return program_.waitForFinished(30000) && program_.exitCode() == 0; }
    QImage PastedPng() {
        QProcess xclip;
        xclip.start("xclip", {"-o", "-selection", "clipboard", "-t", "image/png"});
        if (!xclip.waitForFinished(20000)) return {};
        return QImage::fromData(xclip.readAllStandardOutput(), "PNG");
    }
    // The host's notices, once the first has had time to arrive.
    QList<QPoint> Notices() {
        WaitFor([&] { return !host_->Notices().isEmpty(); }, 5000);
        return host_->Notices();
    }
    void ExpectThePicture(const QImage& image) {
        EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32),
                  picture_.convertToFormat(QImage::Format_RGB32));
    }

    QImage picture_ = Pattern(300, 200);
    std::optional<testing::HostStandIn> host_;
};

TEST_F(OutputOnScreen, CopyLeavesThePictureOnTheClipboardAfterTheEndAndTellsTheHost) {
    WriteMainIni("Screenshot", "ClipboardShow", "1");
    const QString record = env_.root() + "stat.txt";
    ClickCopy(ProgramBesideStatRecorder(record));
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    ExpectThePicture(PastedPng());
    EXPECT_EQ(Notices(), QList<QPoint>{QPoint(1, 1)});
    EXPECT_TRUE(testing::ReadFile(record).contains("DoStatistic qpt1 a311"));
}

// The tip stands in the pinned picture's place until it closes by itself;
// only then is the host told and the process ends.
TEST_F(OutputOnScreen, CopyWithTheTipTellsTheHostOnceTheTipHasGone) {
    ClickCopy();
    EXPECT_TRUE(WaitFor([&] { return PinnedWindowRect().isEmpty(); }, 10000));
    EXPECT_EQ(program_.state(), QProcess::Running);
    EXPECT_TRUE(host_->Notices().isEmpty());
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    EXPECT_EQ(Notices(), QList<QPoint>{QPoint(1, 1)});
    ExpectThePicture(PastedPng());
}

// A rectangle drawn with the toolbar, then Ctrl+C: the mark is in the
// pasted picture, an outline of the session's red four pixels wide, and the
// rest is the picture as it was.
TEST_F(OutputOnScreen, CopyByTheKeyBurnsTheMarkIntoThePastedPicture) {
    WriteMainIni("Screenshot", "ClipboardShow", "1");
    PinAndClick(255 - 20);  // the rectangle tool
    Xdotool({"mousemove", "620", "320", "mousedown", "1", "mousemove", "623", "323", "mousemove",
             "660", "350", "mousemove", "700", "380", "sleep", "0.2", "mouseup", "1"});
    ASSERT_TRUE(WaitFor([&] { return Screen(QRect(660, 321, 1, 1)).pixel(0, 0) == 0xFFFF0000; }));
    Xdotool({"mousemove", "750", "450", "key", "ctrl+c"});
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    const QImage pasted = PastedPng().convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(pasted.size(), picture_.size());
    int red = 0;
    for (int y = 14; y < 28; ++y)
        red += (pasted.pixel(60, y) & 0xFFFFFF) == 0xFF0000;
    EXPECT_EQ(red, 4);
    QImage expected = picture_.convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(pasted.copy(0, 100, 300, 100), expected.copy(0, 100, 300, 100));
    EXPECT_EQ(pasted.copy(30, 30, 60, 40), expected.copy(30, 30, 60, 40)) << "inside the outline";
}

TEST_F(OutputOnScreen, AlwaysSaveWritesTheFileNamesItAndTellsTheHost) {
    const QString folder = env_.root() + "shots/";
    ASSERT_TRUE(QDir().mkpath(folder));
    WriteMainIni("Screenshot", "CapturePath", folder);
    WriteMainIni("Screenshot", "CaptureSave", "1");
    const QString record = env_.root() + "stat.txt";
    PinAndClick(722, ProgramBesideStatRecorder(record));
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    const QStringList files = QDir(folder).entryList(QDir::Files);
    ASSERT_EQ(files.size(), 1);
    EXPECT_TRUE(QRegularExpression("^ScreenShot_20\\d{12}\\.png$").match(files[0]).hasMatch())
        << files[0].toStdString();
    ExpectThePicture(QImage(folder + files[0]));
    EXPECT_EQ(ReadMainIni("TempPath", "ImgPath", {}), folder + files[0]);
    EXPECT_EQ(Notices(), QList<QPoint>{QPoint(2, 1)});
    EXPECT_TRUE(testing::ReadFile(record).contains("DoStatistic qpt1 a312"));
    const QString log = testing::ReadLogText(SettingsFolder() + "log/QptHost.log");
    EXPECT_TRUE(log.contains("[SaveNewBitmap]filepath:ExtractFileIconToFile,succ"))
        << log.toStdString();
}

// A folder the program may not write into: the save ends as usual, the
// picture is kept in the recovery folder and the log says where.
TEST_F(OutputOnScreen, ASaveIntoAReadOnlyFolderKeepsThePictureForRecovery) {
    QString folder = env_.root() + "locked/";
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
    // The superuser writes into any folder whatever its mode, but never
    // makes a file in /proc.
    if (::geteuid() == 0) folder = QStringLiteral("/proc/");
    WriteMainIni("Screenshot", "CapturePath", folder);
    WriteMainIni("Screenshot", "CaptureSave", "1");
    PinAndClick(722);
    ASSERT_TRUE(Ended()) << errors_.toStdString();
    EXPECT_EQ(Notices(), QList<QPoint>{QPoint(2, 1)});
    const QString recovery = SettingsFolder() + "recovery/";
    const QStringList kept = QDir(recovery).entryList({"ScreenShot_*.png"}, QDir::Files);
    ASSERT_EQ(kept.size(), 1);
    ExpectThePicture(QImage(recovery + kept[0]));
    const QString log = testing::ReadLogText(SettingsFolder() + "log/QptHost.log");
    EXPECT_TRUE(log.contains(recovery + kept[0])) << log.toStdString();
}

}  // namespace
}  // namespace qpt
