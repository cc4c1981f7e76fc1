#pragma once

#include <QGuiApplication>
#include <cstdint>

#include "imaging/IEBitmap.h"
#include "imaging/IELayerTypes.h"

namespace qpt::testing {

// Text measuring needs the font database, which needs a GUI application.
inline void EnsureGuiApp() {
    static int argc = 1;
    static char name[] = "layer_tests";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) new QGuiApplication(argc, argv);
}

// Colour of a B, G, R pixel as 0x00BBGGRR.
inline TColor PixelAt(const TIEBitmap& b, int x, int y) {
    const uint8_t* p = b.Scanline(y) + x * (b.PixelFormat() == ie32RGB ? 4 : 3);
    return TColor(p[2]) | TColor(p[1]) << 8 | TColor(p[0]) << 16;
}

inline uint8_t AlphaAt(const TIEBitmap& premul32, int x, int y) {
    return premul32.Scanline(y)[4 * x + 3];
}

}  // namespace qpt::testing
