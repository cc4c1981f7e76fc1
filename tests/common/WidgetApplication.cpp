#include "tests/common/WidgetApplication.h"

#include <QApplication>

namespace qpt::testing {

void MakeWidgetApplication() {
    if (QCoreApplication::instance()) return;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    static int argc = 1;
    static char name[] = "qpt_tests";
    static char* argv[] = {name, nullptr};
    static QApplication* app = new QApplication(argc, argv);
    (void)app;
}

}  // namespace qpt::testing
