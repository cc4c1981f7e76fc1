#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "support/LogManage.h"
#include "support/LogObj.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ReadFile;
using testing::WriteFile;

QString DecodeUtf16(const QByteArray& bytes) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()),
                              bytes.size() / 2);
}

class LogTest : public ::testing::Test {
protected:
    QString LogPath() const { return dir_.path() + "/log/QptHost.log"; }
    QTemporaryDir dir_;
};

TEST_F(LogTest, FirstLineMakesFolderAndFileWithBomStampAndCrLf) {
    TLogManage manage(LogPath());
    manage.WriteLog(QStringLiteral("[SaveNewBitmap]ForceDirectories done \u00e9"), false);
    const QByteArray bytes = ReadFile(LogPath());
    ASSERT_GE(bytes.size(), 2);
    EXPECT_EQ(bytes.left(2), QByteArray("\xFF\xFE", 2));
    const QString text = DecodeUtf16(bytes.mid(2));
    const QRegularExpression line(QStringLiteral(
        R"(^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}  \[SaveNewBitmap\]ForceDirectories done é\r\n$)"));
    EXPECT_TRUE(line.match(text).hasMatch()) << text.toStdString();
}

TEST_F(LogTest, LinesAppendAcrossObjectsWithoutStampWhenOff) {
    TLogManage manage(LogPath());
    manage.SetTimeStamp(false);
    manage.WriteLog(QStringLiteral("one"), false);
    manage.WriteLog(QStringLiteral("two"), false);
    const QByteArray bytes = ReadFile(LogPath());
    EXPECT_EQ(bytes.count(QByteArray("\xFF\xFE", 2)), 1);
    EXPECT_EQ(DecodeUtf16(bytes.mid(2)), QStringLiteral("one\r\ntwo\r\n"));
}

TEST_F(LogTest, RotationKeepsBackupCountCopies) {
    TLogManage manage(LogPath());
    manage.SetTimeStamp(false);
    manage.SetMaxSize(10);
    manage.SetBackupCount(2);
    // Each line is 2 (BOM) + 2 * 6 bytes, over the limit at once, so every
    // further line starts a new file.
    for (const char* text : {"line1", "line2", "line3", "line4"})
        manage.WriteLog(QString::fromLatin1(text), false);
    EXPECT_EQ(DecodeUtf16(ReadFile(LogPath()).mid(2)), QStringLiteral("line4\r\n"));
    EXPECT_EQ(DecodeUtf16(ReadFile(LogPath() + ".bak1").mid(2)), QStringLiteral("line3\r\n"));
    EXPECT_EQ(DecodeUtf16(ReadFile(LogPath() + ".bak2").mid(2)), QStringLiteral("line2\r\n"));
    EXPECT_FALSE(QFileInfo::exists(LogPath() + ".bak3"));
}

TEST_F(LogTest, DetailLinesNeedTheMarkerFile) {
    TLogManage manage(LogPath());
    manage.SetTimeStamp(false);
    manage.WriteLog(QStringLiteral("hidden"), true);
    // A dropped line on a fresh log leaves no file at all.
    EXPECT_FALSE(QFileInfo::exists(LogPath()));
    WriteFile(dir_.path() + "/log/detaillog.ldt", {});
    manage.WriteLog(QStringLiteral("shown"), true);
    EXPECT_EQ(DecodeUtf16(ReadFile(LogPath()).mid(2)), QStringLiteral("shown\r\n"));
}

TEST_F(LogTest, ObjectWithoutLinesLeavesNoFileButKeepsExistingContent) {
    { TLogObj obj(LogPath()); }
    EXPECT_FALSE(QFileInfo::exists(LogPath()));
    EXPECT_TRUE(QDir(dir_.path() + "/log").exists());

    WriteFile(LogPath(), QByteArray("\xFF\xFE", 2) + QByteArray("o\0l\0d\0", 6));
    { TLogObj obj(LogPath()); }
    EXPECT_EQ(ReadFile(LogPath()).size(), 8);
}

TEST_F(LogTest, ChangingPathWhileKeptOpenMovesToTheNewFile) {
    TLogManage manage(LogPath());
    manage.SetCloseAfterWrite(false);
    manage.SetTimeStamp(false);
    manage.WriteLog(QStringLiteral("a"), false);
    const QString other = dir_.path() + "/other.log";
    manage.SetLogPath(other);
    manage.WriteLog(QStringLiteral("b"), false);
    EXPECT_EQ(DecodeUtf16(ReadFile(LogPath()).mid(2)), QStringLiteral("a\r\n"));
    EXPECT_EQ(DecodeUtf16(ReadFile(other).mid(2)), QStringLiteral("b\r\n"));
}

TEST_F(LogTest, UnwritableLocationLosesTheLineQuietly) {
    WriteFile(dir_.path() + "/blocker", "x");
    TLogManage manage(dir_.path() + "/blocker/sub/QptHost.log");
    manage.WriteLog(QStringLiteral("lost"), false);
    EXPECT_EQ(ReadFile(dir_.path() + "/blocker"), QByteArray("x"));
}

TEST_F(LogTest, PipesAndDevicesAreNeverWrittenOrWaitedOn) {
    QDir().mkpath(dir_.path() + "/log");
    ASSERT_EQ(::mkfifo(QFile::encodeName(LogPath()).constData(), 0600), 0);
    TLogManage manage(LogPath());
    manage.WriteLog(QStringLiteral("lost"), false);  // would block on a plain open
    struct stat st {};
    ::lstat(QFile::encodeName(LogPath()).constData(), &st);
    EXPECT_TRUE(S_ISFIFO(st.st_mode));

    const QString device = dir_.path() + "/null.log";
    ASSERT_TRUE(QFile::link("/dev/null", device));
    TLogManage toDevice(device);
    toDevice.WriteLog(QStringLiteral("lost"), false);
    EXPECT_TRUE(QFileInfo(device).isSymLink());
}

// A linked log is rotated where it really lies: the link stays, and the old
// lines move whole to the target's ".bak1".
TEST_F(LogTest, LinkedLogRotatesAtItsTarget) {
    const QString target = dir_.path() + "/real/QptHost.log";
    QDir().mkpath(dir_.path() + "/real");
    QDir().mkpath(dir_.path() + "/log");
    ASSERT_TRUE(QFile::link(target, LogPath()));
    TLogManage manage(LogPath());
    manage.SetTimeStamp(false);
    manage.SetMaxSize(10);
    manage.WriteLog(QStringLiteral("first"), false);
    manage.WriteLog(QStringLiteral("second"), false);
    EXPECT_TRUE(QFileInfo(LogPath()).isSymLink());
    EXPECT_EQ(DecodeUtf16(ReadFile(LogPath()).mid(2)), QStringLiteral("second\r\n"));
    EXPECT_EQ(DecodeUtf16(ReadFile(target + ".bak1").mid(2)), QStringLiteral("first\r\n"));
}

TEST_F(LogTest, GlobalWriteLogGoesToTheProcessManager) {
    CreateLogManage(LogPath());
    ASSERT_NE(LogManage(), nullptr);
    LogManage()->SetTimeStamp(false);
    WriteLog(QStringLiteral("global"));
    CreateLogManage(dir_.path() + "/moved.log");
    WriteLog(QStringLiteral("moved"));
    EXPECT_EQ(DecodeUtf16(ReadFile(LogPath()).mid(2)), QStringLiteral("global\r\n"));
    EXPECT_EQ(DecodeUtf16(ReadFile(dir_.path() + "/moved.log").mid(2)),
              QStringLiteral("moved\r\n"));
}

}  // namespace
}  // namespace qpt
