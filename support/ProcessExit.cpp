#include "support/ProcessExit.h"

#include <cstdlib>

namespace qpt {
namespace {
ProcessExitObserver g_observer = nullptr;
}

void ProcessExit(int code) {
    if (g_observer) g_observer(code);
    std::_Exit(code);
}

void SetProcessExitObserver(ProcessExitObserver observer) {
    g_observer = observer;
}

}  // namespace qpt
