#include "tests/common/VirtualDisplay.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

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

// Runs a program to its end, its reports on standard output dropped; true
// when it exits with 0.
bool Run(const std::vector<std::string>& arguments) {
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        const int null = ::open("/dev/null", O_WRONLY);
        if (null >= 0) ::dup2(null, STDOUT_FILENO);
        ::execvp(argv[0], argv.data());
        ::_exit(127);
    }
    int status = 0;
    return pid > 0 && ::waitpid(pid, &status, 0) == pid && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

// A monitor as the server is told it: width/millimetres x height/millimetres
// + x + y, at 96 dots per inch.
std::string MonitorGeometry(const QRect& r) {
    const auto mm = [](int pixels) { return std::to_string(pixels * 254 / 960); };
    return std::to_string(r.width()) + '/' + mm(r.width()) + 'x' + std::to_string(r.height()) +
           '/' + mm(r.height()) + '+' + std::to_string(r.x()) + '+' + std::to_string(r.y());
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
    std::vector<std::string> xrandr{"xrandr", "-display", name_.toStdString()};
    for (int i = 0; i < monitors.size(); ++i) {
        xrandr.insert(xrandr.end(), {"--setmonitor", (i == 0 ? "*M" : "M") + std::to_string(i),
                                     MonitorGeometry(monitors[i]), i == 0 ? "screen" : "none"});
    }
    return Run(xrandr);
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
