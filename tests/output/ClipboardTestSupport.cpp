#include "tests/output/ClipboardTestSupport.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include "support/Paths.h"
#include "tests/common/ProgramRun.h"
#include "tests/common/ScratchHome.h"

namespace qpt::testing {

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
    return RunProgram(
               QStringLiteral(QPT_COPY_DRIVER),
               {"picture", QString::number(width), QString::number(height), QString::number(seed)})
        .exitCode;
}

int ClipboardTest::CopyText(const QString& text) {
    return RunProgram(QStringLiteral(QPT_COPY_DRIVER), {"text", text}).exitCode;
}

QByteArray ClipboardTest::Xclip(const char* target) {
    const ProgramRun run = RunProgram("xclip", {"-o", "-selection", "clipboard", "-t", target});
    return run.finished && !run.crashed ? run.output : QByteArray();
}

QString ClipboardTest::LogText() const {
    return ReadLogText(SettingsFolder() + "log/QptHost.log");
}

}  // namespace qpt::testing
