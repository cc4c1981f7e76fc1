#pragma once

namespace qpt {

// Every regular way out of a session ends the process at once, without
// destructors or flushing: whatever must outlive it is finished before.
[[noreturn]] void ProcessExit(int code);

// In-process tests install an observer to see the exit instead of dying.
// The observer must not return (it throws); if it does, the exit happens.
using ProcessExitObserver = void (*)(int code);
void SetProcessExitObserver(ProcessExitObserver observer);

}  // namespace qpt
