#include "app/QptApplication.h"

#include <exception>

#include "app/CrashReport.h"
#include "support/ProcessExit.h"

namespace qpt {

TQptApplication::TQptApplication(int& argc, char** argv) : QApplication(argc, argv) {
    // Forms are hidden and shown throughout a session; only the process-end
    // table decides when it is over.
    setQuitOnLastWindowClosed(false);
}

bool TQptApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        ReportCrash(QString::fromLocal8Bit(e.what()));
    } catch (...) {
        ReportCrash(QStringLiteral("unhandled exception"));
    }
    ProcessExit(kCrashExitCode);
}

}  // namespace qpt
