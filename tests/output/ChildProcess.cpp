#include "tests/output/ChildProcess.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace qpt::testing {

namespace {
constexpr uid_t kNobody = 65534;
}

int RunInChild(const std::function<int()>& body) {
    const pid_t pid = ::fork();
    if (pid < 0) return -1;
    if (pid == 0) ::_exit(body());  // no destructors or leak checks in the child
    int status = 0;
    if (::waitpid(pid, &status, 0) != pid || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

void LimitFileSize(long bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{rlim_t(bytes), rlim_t(bytes)};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

bool DropRootRights() {
    if (::geteuid() != 0) return true;
    return ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
}

}  // namespace qpt::testing
