#include "app/QptApplication.h"

#include "app/CrashReport.h"

namespace qpt {

TQptApplication::TQptApplication(int& argc, char** argv) : QApplication(argc, argv) {
    // Forms are hidden and shown throughout a session; only the process-end
    // table decides when it is over.
    setQuitOnLastWindowClosed(false);
}

bool TQptApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        CrashOnCurrentException();
    }
}

}  // namespace qpt
