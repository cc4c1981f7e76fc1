#include "app/PlatformSetup.h"

#include <QByteArray>
#include <QtGlobal>

namespace qpt {

void PreparePlatformEnvironment() {
    if (qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // The interface decides for itself whether it is drawn at twice the size.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qunsetenv("QT_SCALE_FACTOR");
    qunsetenv("QT_SCREEN_SCALE_FACTORS");
    qunsetenv("QT_AUTO_SCREEN_SCALE_FACTOR");
}

}  // namespace qpt
