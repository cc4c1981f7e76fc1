#include "app/PlatformSetup.h"

#include <xcb/xcb.h>

#include <QByteArray>
#include <QtGlobal>

namespace qpt {

void PreparePlatformEnvironment() {
    // The XDG rules say to ignore a relative folder; Qt would make it under
    // the current folder, so it goes before Qt can see it.
    for (const char* name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                             "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        if (qEnvironmentVariableIsSet(name) && !qgetenv(name).startsWith('/')) qunsetenv(name);
    if (qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // The interface decides for itself whether it is drawn at twice the size.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qunsetenv("QT_SCALE_FACTOR");
    qunsetenv("QT_SCREEN_SCALE_FACTORS");
    qunsetenv("QT_AUTO_SCREEN_SCALE_FACTOR");
}

bool DisplayAvailable() {
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && !platform.startsWith("xcb")) return true;
    if (qEnvironmentVariableIsEmpty("DISPLAY")) return false;
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool opened = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return opened;
}

}  // namespace qpt
