// One step of the pinned zoom on a 4K picture, from the click on the bar's
// zoom button to the window painted again, beside the zoomed compose of the
// same visible area alone, in the same run: the difference is what the
// resize, the reallocation and the scroll box add. The screen is a 4K screen
// of the offscreen platform, or, with QPT_BENCH_ON_X=1, of a private X
// server, where the step also pays for handing the pixels to the server;
// steps go up to 110% and back down to 100% in turn.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>

#include "annotate/FormTools.h"
#include "app/FormPinned.h"
#include "app/FormSequence.h"
#include "app/session/SessionState.h"
#include "bench/BenchApplication.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IEViewCompositor.h"
#include "imaging/view/IEImageView.h"
#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/common/ScratchHome.h"
#include "tests/common/VirtualDisplay.h"

namespace {

using namespace qpt;

constexpr int kW = 3840, kH = 2160;

// A screenshot-like picture: smooth gradients with some texture.
QImage Picture() {
    QImage image(kW, kH, QImage::Format_RGB888);
    for (int y = 0; y < kH; ++y) {
        uchar* row = image.scanLine(y);
        for (int x = 0; x < kW; ++x) {
            row[3 * x] = uchar(x / 15);
            row[3 * x + 1] = uchar(y / 9);
            row[3 * x + 2] = uchar((x ^ y) & 0x3F);
        }
    }
    return image;
}

// The window is placed and cut against one 4K screen.
void MakeApplicationOn4KScreen() {
    if (qEnvironmentVariableIntValue("QPT_BENCH_ON_X") != 1) {
        EnsureBenchApplication<QApplication>(OffscreenScreen(kW, kH));
        return;
    }
    static testing::VirtualDisplay display(kW, kH);
    if (!display.isRunning()) qFatal("the bench cannot start its X server");
    qputenv("DISPLAY", display.name().toLocal8Bit());
    EnsureBenchApplication<QApplication>({"xcb", {}});
}

struct TSession {
    testing::ScratchHome home;
    TFormPinned* pinned = nullptr;
    TFormTools* tools = nullptr;

    TSession() {
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

// Clicks alternately enlarge and shrink, and lets the window handle the
// request and paint.
void BM_PinnedZoomStepOn4K(benchmark::State& state) {
    static TSession session;
    for (auto _ : state) {
        if (ZoomStep == 10)
            session.tools->Rdbtn_enlargeClick();
        else
            session.tools->Rdbtn_shrinkClick();
        TSession::Settle();
    }
    state.counters["zoom"] = ZoomStep * 10;
}
BENCHMARK(BM_PinnedZoomStepOn4K)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The view's own compose of the area the window shows, at 110% and 100% in
// turn, on the same picture.
void BM_ZoomedComposeOfTheVisibleArea(benchmark::State& state) {
    TIELayerList layers;
    layers.Background().Bitmap()->Assign(Picture());
    layers.Background().FitToBitmap();
    // The window is cut at 80% of the screen's height and keeps 9 columns
    // for its scroll bar.
    const QSize shown100(kW, kH * 8 / 10), shown110((kW + 9) * 11 / 10 - 9, kH * 8 / 10);
    TIEViewCompositor views[2];
    const std::pair<double, QSize> steps[] = {{110.0, shown110}, {100.0, shown100}};
    for (int i = 0; i < 2; ++i) {
        views[i].Mapping.SetZoom(steps[i].first);
        views[i].Mapping.SetLayout(kW, kH, steps[i].second.width(), steps[i].second.height());
        views[i].Compose(layers);
    }
    int i = 0;
    for (auto _ : state) {
        views[i].Invalidate();
        views[i].Compose(layers);
        i = 1 - i;
    }
}
BENCHMARK(BM_ZoomedComposeOfTheVisibleArea)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace
