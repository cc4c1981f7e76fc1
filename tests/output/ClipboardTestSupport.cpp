#include "tests/output/ClipboardTestSupport.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include "support/Paths.h"
#include "tests/common/ScratchHome.h"

namespace qpt::testing {

QByteArray RunProgram(const QString& program, const QStringList& arguments, int* exitCode,
                      int timeoutMs) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(timeoutMs) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        if (exitCode) *exitCode = -1;
        return {};
    }
    if (exitCode) *exitCode = process.exitCode();
    return process.readAllStandardOutput();
}

ClipboardManagerDaemon::ClipboardManagerDaemon() {
    pid_ = ::fork();
    if (pid_ != 0) return;
    ::setsid();
    // No accessibility bus: the daemon is here for its clipboard alone.
    ::setenv("NO_AT_BRIDGE", "1", 1);
    ::execlp("dbus-run-session", "dbus-run-session", "--", "xfsettingsd", "--no-daemon",
             "--disable-wm-check", static_cast<char*>(nullptr));
    ::_exit(127);
}

ClipboardManagerDaemon::~ClipboardManagerDaemon() {
    if (pid_ <= 0) return;
    ::kill(-pid_, SIGTERM);
    ::waitpid(pid_, nullptr, 0);
}

int HolderProcesses(const QString& display) {
    const QString holder = QStringLiteral(QPT_PROGRAM_DIR "/QptClipboard");
    const QByteArray wanted = "DISPLAY=" + display.toLatin1();
    int count = 0;
    for (const QString& pid : QDir("/proc").entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (QFile::symLinkTarget("/proc/" + pid + "/exe") != holder) continue;
        QFile environ("/proc/" + pid + "/environ");
        if (environ.open(QIODevice::ReadOnly) && environ.readAll().split('\0').contains(wanted))
            ++count;
    }
    return count;
}

void ClipboardTest::SetUp() {
    DisplayTest::SetUp();
    if (IsSkipped()) return;
    client_ = std::make_unique<PasteClient>(display_.name());
    ASSERT_TRUE(client_->IsConnected());
}

int ClipboardTest::CopyPicture(int width, int height, int seed) {
    int code = -1;
    RunProgram(QStringLiteral(QPT_COPY_DRIVER),
               {"picture", QString::number(width), QString::number(height), QString::number(seed)},
               &code);
    return code;
}

int ClipboardTest::CopyText(const QString& text) {
    int code = -1;
    RunProgram(QStringLiteral(QPT_COPY_DRIVER), {"text", text}, &code);
    return code;
}

QByteArray ClipboardTest::Xclip(const char* target) {
    return RunProgram("xclip", {"-o", "-selection", "clipboard", "-t", target});
}

QString ClipboardTest::LogText() const {
    return ReadLogText(SettingsFolder() + "log/QptHost.log");
}

}  // namespace qpt::testing
