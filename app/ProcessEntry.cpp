#include "app/ProcessEntry.h"

#include <QString>
#include <cstdio>
#include <exception>

#include "app/CommandLine.h"
#include "app/CrashReport.h"
#include "app/FormSequence.h"
#include "app/ModuleStartUp.h"
#include "app/PlatformSetup.h"
#include "app/QptApplication.h"
#include "support/Paths.h"

namespace qpt {

namespace {

int RunEntry(int argc, char** argv) {
    const QStringList arguments = ArgumentsOf(argc, argv);
    SetBugReportVersion(GetHostVersion());
    // Raised before anything else is looked at, so the crash path can be tried.
    if (FirstArgumentIs(arguments, "/testbugreport")) throw std::runtime_error("/testbugreport");
    if (!HasQptMainSwitch(arguments)) return 0;
    if (!DisplayAvailable()) {
        std::fprintf(stderr, "%s\n", kNoDisplayMessage);
        return kNoDisplayExitCode;
    }

    TQptApplication application(argc, argv);
    if (!CreateForms(arguments)) return 0;
    return application.exec();
}

}  // namespace

int RunProcess(int argc, char** argv) {
    RunModuleStartUp();
    try {
        return RunEntry(argc, argv);
    } catch (...) {
        CrashOnCurrentException();
    }
}

}  // namespace qpt
