#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>

#include "support/SafeFileIo.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ReadFile;
using testing::WriteFile;

struct stat StatOf(const QString& path) {
    struct stat st {};
    ::lstat(QFile::encodeName(path).constData(), &st);
    return st;
}

bool MakeFifo(const QString& path) {
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

// Runs `body` in a child process and returns its exit code, so that limits
// and signals set for the test stay out of the test program.
int InChild(const std::function<int()>& body) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(body());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class SafeFileIo : public ::testing::Test {
protected:
    QString Path(const QString& name) const { return dir_.path() + '/' + name; }
    QStringList Entries() const {
        return QDir(dir_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System);
    }
    QTemporaryDir dir_;
};

TEST_F(SafeFileIo, OnlyRegularFilesWithinTheCapAreRead) {
    QByteArray bytes = "stale";
    WriteFile(Path("small"), "12345");
    EXPECT_EQ(ReadRegularFile(Path("small"), 5, &bytes), 0);
    EXPECT_EQ(bytes, "12345");
    EXPECT_EQ(ReadRegularFile(Path("small"), 4, &bytes), EFBIG);
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_EQ(ReadRegularFile(Path("missing"), 100, &bytes), ENOENT);
    ASSERT_TRUE(QDir().mkpath(Path("folder")));
    EXPECT_EQ(ReadRegularFile(Path("folder"), 100, &bytes), EISDIR);

    // A pipe nobody writes to would block a plain open for ever; endless
    // devices would fill the memory.
    ASSERT_TRUE(MakeFifo(Path("pipe")));
    EXPECT_EQ(ReadRegularFile(Path("pipe"), 100, &bytes), EINVAL);
    for (const char* device : {"/dev/zero", "/dev/urandom"}) {
        const QString link = Path(QFileInfo(device).fileName());
        ASSERT_TRUE(QFile::link(device, link));
        EXPECT_EQ(ReadRegularFile(link, 1 << 20, &bytes), EINVAL) << device;
    }
    ASSERT_TRUE(QFile::link(Path("small"), Path("link")));
    EXPECT_EQ(ReadRegularFile(Path("link"), 100, &bytes), 0);
    EXPECT_EQ(bytes, "12345");
}

TEST_F(SafeFileIo, WriteReplacesTheLinkTargetAndKeepsItsMode) {
    ASSERT_TRUE(QDir().mkpath(Path("real")));
    const QString target = Path("real/Main.ini");
    WriteFile(target, "old");
    ::chmod(QFile::encodeName(target).constData(), 0640);
    ASSERT_TRUE(QFile::link("real/Main.ini", Path("Main.ini")));  // relative, as users make them

    ASSERT_EQ(WriteFileAtomically(Path("Main.ini"), "new content"), 0);
    EXPECT_TRUE(S_ISLNK(StatOf(Path("Main.ini")).st_mode));
    EXPECT_EQ(ReadFile(target), "new content");
    EXPECT_EQ(StatOf(target).st_mode & 07777, 0640u);
    EXPECT_EQ(QDir(Path("real")).entryList(QDir::Files), QStringList{"Main.ini"});

    // A link to a file that is not there yet makes the file.
    ASSERT_TRUE(QFile::link(Path("real/later.ini"), Path("later.ini")));
    ASSERT_EQ(WriteFileAtomically(Path("later.ini"), "made"), 0);
    EXPECT_EQ(ReadFile(Path("real/later.ini")), "made");
}

TEST_F(SafeFileIo, UnchangedContentIsNotRewritten) {
    const QString path = Path("same.ini");
    WriteFile(path, "content");
    const struct stat before = StatOf(path);
    ASSERT_EQ(WriteFileAtomically(path, "content"), 0);
    const struct stat after = StatOf(path);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    ASSERT_EQ(WriteFileAtomically(path, "content, longer"), 0);
    EXPECT_NE(StatOf(path).st_ino, before.st_ino);
}

// A full disk, played by a file size limit: the write fails, the old file
// is whole and no temporary file is left beside it.
TEST_F(SafeFileIo, FailedWriteLeavesTheOldFileWhole) {
    const QString path = Path("Main.ini");
    const QByteArray old(3000, 'o');
    WriteFile(path, old);
    const int code = InChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1024, 1024};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return WriteFileAtomically(path, QByteArray(4096, 'n')) == 0 ? 0 : 1;
    });
    EXPECT_EQ(code, 1);
    EXPECT_EQ(ReadFile(path), old);
    EXPECT_EQ(Entries(), QStringList{"Main.ini"});
}

TEST_F(SafeFileIo, WhatIsNoRegularFileIsNeverReplaced) {
    ASSERT_TRUE(MakeFifo(Path("pipe")));
    EXPECT_EQ(WriteFileAtomically(Path("pipe"), "x"), EINVAL);
    EXPECT_TRUE(S_ISFIFO(StatOf(Path("pipe")).st_mode));
    ASSERT_TRUE(QDir().mkpath(Path("folder")));
    EXPECT_EQ(WriteFileAtomically(Path("folder"), "x"), EISDIR);
    ASSERT_TRUE(QFile::link("/dev/null", Path("null")));
    EXPECT_EQ(WriteFileAtomically(Path("null"), "x"), EINVAL);
    EXPECT_TRUE(S_ISLNK(StatOf(Path("null")).st_mode));

    ASSERT_TRUE(QFile::link(Path("loop-b"), Path("loop-a")));
    ASSERT_TRUE(QFile::link(Path("loop-a"), Path("loop-b")));
    EXPECT_EQ(WriteFileAtomically(Path("loop-a"), "x"), ELOOP);
    EXPECT_TRUE(ResolveLinkTarget(Path("loop-a")).isEmpty());
}

}  // namespace
}  // namespace qpt
