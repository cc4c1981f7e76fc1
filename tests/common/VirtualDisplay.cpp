#include "tests/common/VirtualDisplay.h"

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "tests/common/ProgramRun.h"

namespace qpt::testing {

namespace {

// Xvfb writes its display number to the descriptor once it accepts clients.
QString ReadDisplayNumber(int fd) {
    std::string number;
    pollfd p{fd, POLLIN, 0};
    while (::poll(&p, 1, 15000) > 0) {
        char c = 0;
        if (::read(fd, &c, 1) != 1 || c == '\n') break;
        number += c;
    }
    return number.empty() ? QString() : ':' + QString::fromStdString(number);
}

// A monitor as the server is told it: width/millimetres x height/millimetres
// + x + y, at 96 dots per inch.
QString MonitorGeometry(const QRect& r) {
    const auto mm = [](int pixels) { return pixels * 254 / 960; };
    return QString::asprintf("%d/%dx%d/%d+%d+%d", r.width(), mm(r.width()), r.height(),
                             mm(r.height()), r.x(), r.y());
}

}  // namespace

VirtualDisplay::VirtualDisplay(int width, int height) {
    Start(width, height);
}

VirtualDisplay::VirtualDisplay(const QList<QRect>& monitors) {
    QRect desktop;
    for (const QRect& monitor : monitors)
        desktop |= monitor;
    Start(desktop.right() + 1, desktop.bottom() + 1);
    if (isRunning()) monitorsSet_ = SetMonitors(monitors);
}

// The server's only output is given to the first monitor, so that the
// monitor it would otherwise make of the whole screen goes; the others
// have no output of their own. The server keeps them because it never
// resets (-noreset): at a reset, when its last client leaves, they would go.
bool VirtualDisplay::SetMonitors(const QList<QRect>& monitors) {
    QStringList arguments{"-display", name_};
    for (int i = 0; i < monitors.size(); ++i) {
        arguments << "--setmonitor" << (i == 0 ? "*M" : "M") + QString::number(i)
                  << MonitorGeometry(monitors[i]) << (i == 0 ? "screen" : "none");
    }
    const ProgramRun run = RunProgram(QStringLiteral("xrandr"), arguments);
    return run.finished && run.exitCode == 0;
}

void VirtualDisplay::Start(int width, int height) {
    int fds[2];
    if (::pipe(fds) != 0) return;
    const std::string screen = std::to_string(width) + 'x' + std::to_string(height) + "x24";
    const std::string fd = std::to_string(fds[1]);
    pid_ = ::fork();
    if (pid_ == 0) {
        ::close(fds[0]);
        ::execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen.c_str(),
                 "-noreset", "-nolisten", "tcp", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    ::close(fds[1]);
    if (pid_ > 0) name_ = ReadDisplayNumber(fds[0]);
    ::close(fds[0]);
}

VirtualDisplay::~VirtualDisplay() {
    Stop();
}

void VirtualDisplay::Stop() {
    if (pid_ > 0) {
        ::kill(pid_, SIGTERM);
        ::waitpid(pid_, nullptr, 0);
    }
    pid_ = -1;
    name_.clear();
}

}  // namespace qpt::testing
