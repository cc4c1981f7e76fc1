#pragma once

#include <QString>

namespace qpt {

// The version that bug reports carry; set once at process entry.
void SetBugReportVersion(const QString& version);

// What happens to an exception that nothing handled: a line is appended to
// "bugreport_new.txt" in the temporary folder and the report sender beside
// the program, when there is one, is started on it. The caller then ends the
// process with a non-zero code.
void ReportCrash(const QString& message);

// Called while an exception is being handled (or from std::terminate):
// reports it and ends the process with code 1.
[[noreturn]] void CrashOnCurrentException();

// Routes exceptions that escape everything else (std::terminate) to the same
// crash path.
void InstallCrashHandler();

inline constexpr int kCrashExitCode = 1;

}  // namespace qpt
