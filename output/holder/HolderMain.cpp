#include "output/holder/HolderMain.h"

#include <errno.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QString>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "output/holder/HeldContent.h"
#include "output/holder/HolderDisplay.h"
#include "output/holder/HolderProtocol.h"
#include "output/holder/PngEncoding.h"
#include "output/holder/ServeLoop.h"
#include "support/LogManage.h"

namespace qpt::holder {

namespace {

struct Options {
    bool valid = false;
    bool picture = false;
    const char* log = nullptr;
};

Options ReadOptions(int argc, char** argv) {
    Options options;
    if (argc < 2) return options;
    options.picture = std::strcmp(argv[1], kPictureSwitch) == 0;
    options.valid = options.picture || std::strcmp(argv[1], kTextSwitch) == 0;
    for (int i = 2; i + 1 < argc; i += 2)
        if (std::strcmp(argv[i], kLogSwitch) == 0) options.log = argv[i + 1];
    return options;
}

// The program that started the holder ends right after the hand-over and
// must not be left with a child to reap; the holder also leaves the
// program's session, so that closing a terminal does not take the clipboard.
void Detach() {
    const pid_t child = ::fork();
    if (child > 0) ::_exit(0);
    ::setsid();
    ::close_range(kReportFd + 1, ~0U, 0);
    ::signal(SIGPIPE, SIG_IGN);
}

// The program writes the content while the holder starts; a closed socket
// instead of the word means that the copy was given up.
bool ContentReady() {
    char word = 0;
    ssize_t n = 0;
    do
        n = ::read(kReportFd, &word, 1);
    while (n < 0 && errno == EINTR);
    return n == 1 && word == kContentReady;
}

bool Report(char word) {
    const bool told = ::write(kReportFd, &word, 1) == 1;
    ::close(kReportFd);
    return told;
}

bool TakeOwnership(HolderDisplay& display, xcb_timestamp_t& time) {
    for (int attempt = 0; attempt < kOwnershipTries; ++attempt) {
        if (attempt > 0) std::this_thread::sleep_for(std::chrono::milliseconds(kOwnershipRetryMs));
        if (!display.Connected() && !display.Connect()) continue;
        time = display.ServerTime();
        if (display.TakeClipboard(time)) return true;
    }
    return false;
}

}  // namespace

int RunHolder(int argc, char** argv) {
    const Options options = ReadOptions(argc, argv);
    Detach();
    HolderDisplay display;
    display.Connect();
    HeldContent content;
    if (!ContentReady()) return 2;
    if (!options.valid || !content.Load(kContentFd, options.picture)) {
        Report(kReportFailed);
        return 2;
    }
    ::close(kContentFd);
    xcb_timestamp_t ownedSince = XCB_CURRENT_TIME;
    const bool owned = TakeOwnership(display, ownedSince);
    // Nobody waiting for the word means that the copy was given up.
    if (!Report(owned ? kReportOwned : kReportFailed) || !owned) return 1;
    if (options.log) CreateLogManage(QString::fromLocal8Bit(options.log));
    const int readyFd = ::eventfd(0, EFD_CLOEXEC);
    if (options.picture)
        StartPngEncoding(content, readyFd);
    else
        ::eventfd_write(readyFd, 1);
    ServeClipboard(display, content, ownedSince, readyFd);
    xcb_flush(display.Connection());
    // The encoding thread may still run when the clipboard was taken early.
    std::_Exit(0);
}

}  // namespace qpt::holder
