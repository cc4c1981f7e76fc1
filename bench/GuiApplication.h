#pragma once

#include <QGuiApplication>
#include <cstdlib>

namespace qpt {

// Fonts, SVG drawing and text layers want an application object; the
// benches that need no window make this one, on the offscreen platform
// unless the caller chose another.
inline void EnsureGuiApplication() {
    static int argc = 1;
    static char name[] = "bench";
    static char* argv[] = {name, nullptr};
    if (QCoreApplication::instance()) return;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    new QGuiApplication(argc, argv);
}

}  // namespace qpt
