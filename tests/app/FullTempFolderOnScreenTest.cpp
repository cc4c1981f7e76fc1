// Each undo step writes the whole picture to the private temporary folder,
// which is usually a small memory-backed file system. The real program is
// started with such a folder, almost full, and drawn on with the mouse.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/statvfs.h>

#include <QDir>
#include <csignal>
#include <iostream>

#include "support/Paths.h"
#include "tests/app/AnnotateOnScreen.h"

namespace qpt {
namespace {

using testing::WaitFor;

// Room for the hand-over picture of 400 by 300 and for one undo step of it
// (each some 352 KiB), and not for two.
constexpr int kFolderKiB = 800;

// The hand-over is kept aside, the folder is mounted over by a small tmpfs
// (seen by the program alone), the hand-over goes back in, and the program
// takes the place of the shell.
constexpr const char* kMountAndStart = R"(set -e
folder=$1 kept=$2 size=$3
shift 3
cp "$folder/QPTPinTemp.bmp" "$kept"
mount -t tmpfs -o "size=$size,mode=0700" tmpfs "$folder"
cp "$kept" "$folder/QPTPinTemp.bmp"
exec "$@")";

class FullTempFolder : public AnnotateOnScreen {
protected:
    // A private user and mount namespace with a tmpfs as the temporary
    // folder, where the system allows it. Elsewhere a file size limit on the
    // program makes every step's write fail the same way, but leaves no room
    // for any step.
    void PinInSmallFolder(const QImage& picture) {
        const QString folder = GetTempFolder();
        ASSERT_FALSE(folder.isEmpty());
        ownMount_ = MountsAllowed();
        std::cout << "[   NOTE   ] the temporary folder is "
                  << (ownMount_ ? "a tmpfs of " + std::to_string(kFolderKiB) + " KiB"
                                : std::string("limited by RLIMIT_FSIZE"))
                  << '\n';
        if (!ownMount_) {
            program_.setChildProcessModifier([] {
                std::signal(SIGXFSZ, SIG_IGN);
                const rlimit limit{200 * 1024, 200 * 1024};
                setrlimit(RLIMIT_FSIZE, &limit);
            });
            PinAndShowBar(picture);
            return;
        }
        PinAndShowBar(picture, "unshare",
                      {"-rm", "sh", "-c", kMountAndStart, "sh", folder, env_.root() + "kept.bmp",
                       QString::number(kFolderKiB) + 'k', QPT_PROGRAM_DIR "/QptPin", "/QPTMain"});
        seenFolder_ = QStringLiteral("/proc/%1/root%2").arg(program_.processId()).arg(folder);
        ASSERT_LE(FolderBytes(&statvfs::f_blocks), kFolderKiB * 1024u) << "the small folder";
    }
    // The size or the room of the folder as the program sees it.
    unsigned long FolderBytes(fsblkcnt_t statvfs::*field) {
        struct statvfs seen {};
        if (statvfs(QFile::encodeName(seenFolder_).constData(), &seen) != 0) return 0;
        return seen.*field * seen.f_frsize;
    }
    bool MountsAllowed() {
        const QString probe = env_.root() + "probe";
        return QDir().mkpath(probe) &&
               QProcess::execute("unshare", {"-rm", "mount", "-t", "tmpfs", "tmpfs", probe}) == 0;
    }
    // Whether the folder had room for the first step.
    bool ownMount_ = false;
    QString seenFolder_;
};

// The first rectangle fills the folder; the pixelation and the second
// rectangle find no room, so the one undo step left goes back to the
// picture as it was before the first. With the room it frees, the next
// rectangle is recorded again.
TEST_F(FullTempFolder, DrawingAndUndoGoOnAndOnlyRecordedStepsAreUndone) {
    PinInSmallFolder(testing::Pattern(400, 300));
    const QRect first(110, 110, 80, 60), pixelated(320, 160, 60, 30), second(290, 290, 140, 90),
        whole(100, 100, 400, 300);
    Tool(kRect);
    Drag(QPoint(120, 120), QPoint(180, 160));
    ASSERT_TRUE(WaitFor([&] { return RedIn(first) > 60; }));
    if (ownMount_) {
        EXPECT_TRUE(WaitFor([&] { return FolderBytes(&statvfs::f_bavail) < 400u * 300 * 3; }))
            << "full after one step";
    }
    Tool(kMosaic);
    Drag(QPoint(300, 150), QPoint(400, 200));
    ASSERT_TRUE(WaitFor([&] { return !Plain(pixelated); }));
    Tool(kRect);
    Drag(QPoint(300, 300), QPoint(420, 370));
    ASSERT_TRUE(WaitFor([&] { return RedIn(second) > 100; })) << "drawing goes on";

    Key("ctrl+z");
    if (ownMount_) {
        EXPECT_TRUE(WaitFor([&] { return Plain(whole); }, 8000));
    } else {
        QThread::msleep(500);
        EXPECT_GT(RedIn(first), 60) << "no step was recorded, so none is undone";
        EXPECT_GT(RedIn(second), 100);
        EXPECT_FALSE(Plain(pixelated));
    }
    const QImage afterUndo = Screen(whole);
    Key("ctrl+z");
    QThread::msleep(500);
    EXPECT_EQ(Screen(whole), afterUndo) << "nothing more to undo";
    ASSERT_EQ(program_.state(), QProcess::Running);

    const QRect third(140, 240, 100, 80);
    Drag(QPoint(150, 250), QPoint(230, 310));
    ASSERT_TRUE(WaitFor([&] { return RedIn(third) > 60; }));
    Key("ctrl+z");
    if (ownMount_) {
        EXPECT_TRUE(WaitFor([&] { return RedIn(third) == 0; }, 8000)) << "recorded again";
    }
    Key("Escape");
    Key("Escape");
    EXPECT_TRUE(Ended()) << program_.exitCode();
}

}  // namespace
}  // namespace qpt
