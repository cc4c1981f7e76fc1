#include "support/ScreenLayout.h"

#include <QGuiApplication>
#include <QScreen>

namespace qpt {

TScreenLayout CurrentScreenLayout() {
    TScreenLayout screens;
    if (QScreen* primary = QGuiApplication::primaryScreen()) screens.primary = primary->geometry();
    for (QScreen* screen : QGuiApplication::screens()) {
        screens.monitors.append(screen->geometry());
        screens.desktop |= screen->geometry();
    }
    return screens;
}

}  // namespace qpt
