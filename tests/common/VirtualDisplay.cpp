#include "tests/common/VirtualDisplay.h"

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

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

}  // namespace

VirtualDisplay::VirtualDisplay(int width, int height) {
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
    if (pid_ <= 0) return;
    ::kill(pid_, SIGTERM);
    ::waitpid(pid_, nullptr, 0);
}

}  // namespace qpt::testing
