// The real program started as a careful tester would on a broken desktop: no
// display, a private folder that someone else made, relative folders in the
// environment, a host that writes extreme rectangles, and kills while the
// settings file is rewritten.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <algorithm>
#include <atomic>
#include <thread>

#include "support/Paths.h"
#include "tests/app/PinnedProgram.h"
#include "tests/common/ProgramRun.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ChangedEnvironment;
using testing::EnvironmentChanges;
using testing::OffscreenWithoutDisplay;
using testing::ProgramRun;
using testing::ReadFile;
using testing::ScratchHome;
using testing::WriteFile;

ProgramRun RunQptPin(const QStringList& arguments, const EnvironmentChanges& changes,
                     const QString& folder = {}) {
    return testing::RunProgram(QPT_PROGRAM_DIR "/QptPin", arguments, changes, folder);
}

TEST(HostileStart, WithoutADisplayOneLineSaysWhatIsMissing) {
    ScratchHome env;
    WriteFile(GetTempFolder() + "QPTPinTemp.bmp", "BM");
    for (const QString& display : {QString(), QStringLiteral(":987")}) {
        SCOPED_TRACE(display.toStdString());
        const ProgramRun run =
            RunQptPin({"/QPTMain"}, {{"DISPLAY", display}, {"QT_QPA_PLATFORM", ""}});
        EXPECT_FALSE(run.crashed);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.errors,
                  "QptPin needs an X11 display (under Wayland: XWayland); none could be opened.\n");
    }
    // Without a window to show, start-up needs no display.
    EXPECT_EQ(RunQptPin({}, {{"DISPLAY", ""}, {"QT_QPA_PLATFORM", ""}}).exitCode, 0);
}

TEST(HostileStart, ARefusedPrivateFolderIsExplainedOnceAndInTheLog) {
    ScratchHome env;
    const QString folder = env.runtimeDir() + "qpt";
    ASSERT_TRUE(QDir().mkpath(folder));
    ::chmod(QFile::encodeName(folder).constData(), 0755);
    const ProgramRun run = RunQptPin({"/QPTMain"}, OffscreenWithoutDisplay());
    EXPECT_EQ(run.exitCode, 0);
    const QString line = "QptPin: the private temporary folder " + folder +
                         " is refused: its mode is 0755, not 0700\n";
    EXPECT_EQ(run.errors, line);
    const QByteArray log = ReadFile(env.configHome() + "Zelk Screenshot/log/QptHost.log");
    EXPECT_TRUE(
        QString::fromUtf16(reinterpret_cast<const char16_t*>(log.constData()), log.size() / 2)
            .contains(line.trimmed()));
}

TEST(HostileStart, RelativeFoldersInTheEnvironmentAreIgnored) {
    ScratchHome env;
    const QString current = env.root() + "current/";
    QDir().mkpath(current);
    const ProgramRun run = RunQptPin({},
                                     {{"DISPLAY", ""},
                                      {"QT_QPA_PLATFORM", "offscreen"},
                                      {"XDG_RUNTIME_DIR", "run"},
                                      {"XDG_CONFIG_HOME", "config"},
                                      {"XDG_DATA_HOME", "data"}},
                                     current);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(QDir(current).isEmpty()) << QDir(current).entryList().join(' ').toStdString();
    EXPECT_TRUE(QFile::exists(env.configHome() + "Zelk Screenshot/Main.ini"));
}

// The real program on a private X server, started with a hand-over as a host
// of another version might leave it.
using HostileHandOver = testing::PinnedProgram;

// Left 2^31 - 2^16 and Right -2^31: the width overflows 32 bits (and wraps
// to 2^16, which X11 would take as 0). The window must still appear (here as
// the single pixel of an empty rectangle), so that the user can reach it and
// end the session.
TEST_F(HostileHandOver, AnOverflowingRectangleStillGetsAWindow) {
    QImage picture(40, 30, QImage::Format_RGB888);
    picture.fill(Qt::darkCyan);
    ASSERT_TRUE(WriteHandOver(picture, {"2147418112", "1", "-2147483648", "31"}));
    EXPECT_TRUE(StartPinned()) << errors_.toStdString();
}

TEST_F(HostileHandOver, APictureOfOnePixelIsShown) {
    QImage picture(1, 1, QImage::Format_RGB888);
    picture.fill(qRgb(200, 30, 90));
    ASSERT_TRUE(WriteHandOver(picture, {"300", "200", "301", "201"}));
    ASSERT_TRUE(StartPinned()) << errors_.toStdString();
    EXPECT_TRUE(
        testing::WaitFor([&] { return Shows(picture, picture.rect(), QPoint(300, 200)); }, 10000));
}

// Settings as the host leaves them: UTF-8 with comments, about 4 KB, so that
// every start rewrites them (as UTF-16, without the comments).
QByteArray HostSettings() {
    QByteArray text = "; written by the host\n[Main]\nLanguage=English\n[StartPin]\n";
    for (int i = 0; text.size() < 4096; ++i)
        text += "[Extra" + QByteArray::number(i) + "]\n; note\nKey=" + QByteArray(40, 'v') + "\n";
    return text;
}

// Puts the file in place at once, as the host would do it well.
void PutWhole(const QString& path, const QByteArray& bytes) {
    WriteFile(path + ".put", bytes);
    ASSERT_EQ(
        ::rename(QFile::encodeName(path + ".put").constData(), QFile::encodeName(path).constData()),
        0);
}

// Kills start-ups, each of which would rewrite Main.ini, while a reader polls
// the file all along: every look finds the old file or the new one whole,
// never an empty or a cut one. The moment of the kill follows a staircase:
// later after a kill that came before the rewrite, earlier after one that
// came after it, so that the kills gather round the rewrite however fast
// the machine is.
TEST(HostileStart, KillsDuringTheSettingsRewriteLeaveTheOldOrTheNewFileWhole) {
    ScratchHome env;
    const QString path = env.configHome() + "Zelk Screenshot/Main.ini";
    const QByteArray host = HostSettings();
    PutWhole(path, host);
    QElapsedTimer clock;
    clock.start();
    ASSERT_EQ(RunQptPin({}, OffscreenWithoutDisplay()).exitCode, 0);
    const qint64 startUs = clock.nsecsElapsed() / 1000;
    const QByteArray rewritten = ReadFile(path);
    ASSERT_TRUE(rewritten.startsWith("\xFF\xFE"));

    std::atomic<bool> stop = false;
    std::atomic<int> looks = 0, torn = 0;
    std::thread reader([&] {
        while (!stop) {
            const QByteArray now = ReadFile(path);
            ++looks;
            if (now != host && now != rewritten) ++torn;
        }
    });
    constexpr int kKills = 40;
    const qint64 stepUs = std::max<qint64>(startUs / 20, 200);
    qint64 delayUs = startUs / 2;
    int killedBefore = 0, killedAfter = 0;
    for (int i = 0; i < kKills; ++i) {
        PutWhole(path, host);
        QProcess process;
        process.setProcessEnvironment(ChangedEnvironment(OffscreenWithoutDisplay()));
        process.start(QPT_PROGRAM_DIR "/QptPin", {});
        ASSERT_TRUE(process.waitForStarted());
        ::usleep(useconds_t(delayUs));
        process.kill();
        process.waitForFinished();
        const QByteArray after = ReadFile(path);
        if (after == host) {
            ++killedBefore;
            delayUs += stepUs;
        } else if (after == rewritten) {
            ++killedAfter;
            delayUs = std::max<qint64>(delayUs - stepUs, 0);
        }
    }
    stop = true;
    reader.join();
    EXPECT_EQ(killedBefore + killedAfter, kKills) << "a kill left a damaged file";
    EXPECT_EQ(torn, 0) << "of " << looks << " looks";
    // Both outcomes occurred, so the kills did span the moment of the rewrite.
    EXPECT_GT(killedBefore, 0);
    EXPECT_GT(killedAfter, 0);
}

}  // namespace
}  // namespace qpt
