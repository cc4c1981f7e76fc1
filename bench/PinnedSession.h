#pragma once
// The whole session in process on one 4K screen, pinned with a 4K
// screenshot-like picture, for the benches of the pinned window. The screen
// is one of the offscreen platform or, with QPT_BENCH_ON_X=1, of a private X
// server, where each step also pays for what the server is sent.

#include <QApplication>
#include <QImage>

#include "annotate/FormTools.h"
#include "app/FormPinned.h"
#include "app/FormSequence.h"
#include "bench/BenchApplication.h"
#include "bench/BenchPicture.h"
#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/common/ScratchHome.h"
#include "tests/common/VirtualDisplay.h"

namespace qpt::bench {

constexpr int kW = 3840, kH = 2160;

inline QImage Picture() {
    QImage image(kW, kH, QImage::Format_RGB888);
    FillScreenshotLike(kW, kH, [&](int y) { return image.scanLine(y); });
    return image;
}

// The window is placed and cut against one 4K screen.
inline void MakeApplicationOn4KScreen() {
    if (qEnvironmentVariableIntValue("QPT_BENCH_ON_X") != 1) {
        EnsureBenchApplication<QApplication>(OffscreenScreen(kW, kH));
        return;
    }
    static testing::VirtualDisplay display(kW, kH);
    if (!display.isRunning()) qFatal("the bench cannot start its X server");
    qputenv("DISPLAY", display.name().toLocal8Bit());
    EnsureBenchApplication<QApplication>({"xcb", {}});
}

struct TPinnedSession {
    testing::ScratchHome home;
    TFormPinned* pinned = nullptr;
    TFormTools* tools = nullptr;

    TPinnedSession() {
        MakeApplicationOn4KScreen();
        Picture().save(GetTempFolder() + "QPTPinTemp.bmp", "BMP");
        WriteMainIni("StartPin", "Left", "0");
        WriteMainIni("StartPin", "Top", "0");
        WriteMainIni("StartPin", "Right", QString::number(kW));
        WriteMainIni("StartPin", "Bottom", QString::number(kH));
        pinned = CreateSessionForms({"QptPin", "/QPTMain"});
        pinned->show();
        tools = pinned->findChild<TFormTools*>();
        Settle();
    }
    static void Settle() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
};

}  // namespace qpt::bench
