#include "output/ClipboardHandOver.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <chrono>
#include <functional>
#include <vector>

#include "imaging/IEBmpWriter.h"
#include "output/holder/HolderProtocol.h"
#include "support/LogManage.h"
#include "support/Paths.h"

extern char** environ;

namespace qpt {

namespace {

// The holder tries for about two seconds; beyond that, with a margin for a
// busy machine, it is taken as lost.
constexpr int kReportWaitMs = holder::kOwnershipTries * holder::kOwnershipRetryMs + 1000;

class Descriptor {
public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }
    void Close() {
        if (fd_ >= 0) ::close(fd_);
        fd_ = -1;
    }

private:
    int fd_;
};

bool WriteAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n, size -= std::size_t(n);
    }
    return true;
}

// Waits for the holder's one word; anything but "owned" (an other word, the
// pipe closed, no word in time) is a failure.
bool OwnedReported(int fd) {
    const auto deadline =
        std::chrono::steady_clock::now() + std::chrono::milliseconds(kReportWaitMs);
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd p{fd, POLLIN, 0};
        const int ready = ::poll(&p, 1, int(std::max<int64_t>(0, left.count())));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) return false;
        char word = 0;
        const ssize_t n = ::read(fd, &word, 1);
        if (n < 0 && errno == EINTR) continue;
        return n == 1 && word == holder::kReportOwned;
    }
}

std::vector<std::string> HolderArguments(const QString& holder, const char* kind) {
    std::vector<std::string> args{holder.toStdString(), kind};
    if (TLogManage* log = LogManage(); log && !log->LogPath().isEmpty())
        args.insert(args.end(), {holder::kLogSwitch, log->LogPath().toStdString()});
    return args;
}

// Starts the holder with the memory file and its end of the socket pair on
// the agreed descriptors, and nothing of this process's standard streams.
pid_t Spawn(const std::vector<std::string>& args, int content, int report) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, content, holder::kContentFd);
    posix_spawn_file_actions_adddup2(&actions, report, holder::kReportFd);
    for (int fd = 0; fd <= 2; ++fd)
        posix_spawn_file_actions_addopen(&actions, fd, "/dev/null", fd == 0 ? O_RDONLY : O_WRONLY,
                                         0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t mask;
    sigemptyset(&mask);
    posix_spawnattr_setsigmask(&attributes, &mask);
    sigfillset(&mask);
    posix_spawnattr_setsigdefault(&attributes, &mask);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    std::vector<char*> argv;
    for (const std::string& a : args)
        argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    pid_t pid = -1;
    if (posix_spawn(&pid, argv[0], &actions, &attributes, argv.data(), environ) != 0) pid = -1;
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    return pid;
}

// Starts the holder first, so that it loads and connects to the display
// while the content is written; then tells it that the content is there and
// waits for its word.
bool HandOver(const QString& holder, const char* kind,
              const std::function<bool(int fd)>& writeContent) {
    Descriptor content(::memfd_create("qpt-clipboard", MFD_CLOEXEC));
    int ends[2];
    if (content.get() < 0 || ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return false;
    Descriptor ours(ends[0]), theirs(ends[1]);
    const pid_t pid = Spawn(HolderArguments(holder, kind), content.get(), theirs.get());
    theirs.Close();
    if (pid < 0) return false;
    bool owned = false;
    // A holder that is gone already must not take this process with it.
    if (writeContent(content.get()) &&
        ::send(ours.get(), &holder::kContentReady, 1, MSG_NOSIGNAL) == 1)
        owned = OwnedReported(ours.get());
    ours.Close();
    // The holder's first process only detaches the one that stays, and has
    // ended by now or ends at once.
    ::waitpid(pid, nullptr, 0);
    return owned;
}

}  // namespace

QString ClipboardHolderPath() {
    return ProgramFolder() + holder::kProgramName;
}

bool HandPictureToClipboard(const TIEBitmap& picture, const QString& holder) {
    return HandOver(holder, holder::kPictureSwitch, [&picture](int fd) {
        QFile file;
        return file.open(fd, QIODevice::WriteOnly | QIODevice::Unbuffered,
                         QFileDevice::DontCloseHandle) &&
               IEWriteBmp(picture, file);
    });
}

bool HandTextToClipboard(const QString& text, const QString& holder) {
    const QByteArray utf8 = text.toUtf8();
    return HandOver(holder, holder::kTextSwitch, [&utf8](int fd) {
        return WriteAll(fd, utf8.constData(), std::size_t(utf8.size()));
    });
}

}  // namespace qpt
