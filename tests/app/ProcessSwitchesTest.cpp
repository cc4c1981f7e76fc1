// Runs the real program with a private home and reads what it leaves behind.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include "support/Paths.h"
#include "tests/common/ProgramRun.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ChangedEnvironment;
using testing::OffscreenWithoutDisplay;
using testing::ProgramRun;
using testing::ReadFile;
using testing::ScratchHome;
using testing::WriteFile;

ProgramRun RunOffscreen(const QString& program, const QStringList& arguments) {
    return testing::RunProgram(program, arguments, OffscreenWithoutDisplay());
}

ProgramRun RunQptPin(const QStringList& arguments) {
    return RunOffscreen(QPT_PROGRAM_DIR "/QptPin", arguments);
}

class ProcessSwitches : public ::testing::Test {
protected:
    ScratchHome env;
    // Made here as the program would make it: private to the user.
    QString temp = GetTempFolder();
    QString bugReport() const { return temp + "bugreport_new.txt"; }
    QString handOverPicture() const { return temp + "QPTPinTemp.bmp"; }
};

TEST_F(ProcessSwitches, WithoutQptMainTheProcessEndsNormallyAfterStartUp) {
    for (const QStringList& arguments : {QStringList{}, QStringList{"/Scale"}}) {
        const ProgramRun run = RunQptPin(arguments);
        EXPECT_FALSE(run.crashed);
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    }
    EXPECT_FALSE(QFile::exists(bugReport()));
    // Start-up ran all the same: the settings object left its file behind.
    EXPECT_TRUE(QFile::exists(env.configHome() + "Zelk Screenshot/Main.ini"));
}

TEST_F(ProcessSwitches, QptMainWithoutPictureEndsWithCodeZero) {
    const ProgramRun run = RunQptPin({"/qptmain"});
    EXPECT_FALSE(run.crashed);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_FALSE(run.errors.contains("pinned window")) << "a window step ran without a picture";
}

TEST_F(ProcessSwitches, QptMainWithPictureStaysUpWithItsWindow) {
    WriteFile(handOverPicture(), "BM");
    QProcess process;
    process.setProcessEnvironment(ChangedEnvironment(OffscreenWithoutDisplay()));
    process.start(QPT_PROGRAM_DIR "/QptPin", {"/QPTMain"});
    ASSERT_TRUE(process.waitForStarted());
    // The pinned window runs the message loop until the user ends it.
    EXPECT_FALSE(process.waitForFinished(1500)) << process.readAllStandardError().toStdString();
    process.kill();
    process.waitForFinished();
}

TEST_F(ProcessSwitches, TestBugReportComesFirstAndTakesTheCrashPath) {
    for (const QStringList& arguments :
         {QStringList{"/testbugreport"}, QStringList{"/TestBugReport", "/QPTMain"}}) {
        QFile::remove(bugReport());
        WriteFile(handOverPicture(), "BM");
        const ProgramRun run = RunQptPin(arguments);
        EXPECT_NE(run.exitCode, 0);
        EXPECT_FALSE(run.errors.contains("pinned window")) << "forms were created";
        const QByteArray report = ReadFile(bugReport());
        EXPECT_TRUE(report.contains("/testbugreport")) << report.toStdString();
        EXPECT_TRUE(report.contains("QptPin 1.0.0.0"));
    }
}

TEST_F(ProcessSwitches, TestBugReportInSecondPlaceIsIgnored) {
    const ProgramRun run = RunQptPin({"/QPTMain", "/testbugreport"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_FALSE(QFile::exists(bugReport()));
}

TEST_F(ProcessSwitches, CrashStartsTheReportSenderBesideTheProgram) {
    // A copy of the program in a folder of its own, with a sender that
    // records how it was called and a host version file.
    const QString folder = env.root() + "program/";
    QDir().mkpath(folder);
    ASSERT_TRUE(QFile::copy(QPT_PROGRAM_DIR "/QptPin", folder + "QptPin"));
    QFile::setPermissions(folder + "QptPin", QFile::ReadOwner | QFile::ExeOwner);
    const QString calls = env.root() + "sender-calls.txt";
    WriteFile(folder + "SendBugReport", ("#!/bin/sh\necho \"$@\" >> '" + calls + "'\n").toUtf8());
    QFile::setPermissions(folder + "SendBugReport", QFile::ReadOwner | QFile::ExeOwner);
    WriteFile(folder + "QptHost.version", "2.5.0.9\n");

    const ProgramRun run = RunOffscreen(folder + "QptPin", {"/testbugreport"});
    EXPECT_NE(run.exitCode, 0);
    EXPECT_TRUE(ReadFile(bugReport()).contains("QptPin 2.5.0.9"));
    for (int i = 0; i < 50 && !QFile::exists(calls); ++i)
        QThread::msleep(100);
    const QByteArray senderArguments = ReadFile(calls);
    EXPECT_TRUE(senderArguments.contains("/Exception /testbugreport"))
        << senderArguments.toStdString();
    EXPECT_TRUE(senderArguments.contains(bugReport().toUtf8()));
}

}  // namespace
}  // namespace qpt
