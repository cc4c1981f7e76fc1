// One mouse move while a rectangle is dragged out over a 4K picture, and
// one step of a stroke of the pixelation brush, each with the repaint of
// what changed, as the window system would ask for it (argument 1), and
// without the repaint, to tell composing from blitting (argument 0).
#include <benchmark/benchmark.h>

#include <QApplication>

#include "bench/BenchApplication.h"
#include "bench/BenchDrag.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IERetouchToolInteraction.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/view/IEImageView.h"

namespace {

using namespace qpt;
using bench::SendMouse;

void App() {
    EnsureBenchApplication<QApplication>({.Name = "minimal", .Screens = {}});
}

void Show4K(TIEImageView& view, const QImage& picture) {
    view.Layers().Background().Bitmap()->Assign(picture);
    view.Layers().Background().FitToBitmap();
    view.resize(3840, 2160);
    view.show();
    QApplication::processEvents();
}

void BM_DragRectangleOn4K(benchmark::State& state) {
    App();
    TIEImageView view;
    QImage picture(3840, 2160, QImage::Format_RGB888);
    picture.fill(QColor(90, 140, 200));
    Show4K(view, picture);
    view.OnNewLayer = [&view](int index, TIELayerKind) {
        auto* shape = static_cast<TIEShapeLayer*>(view.Layers().GetLayer(index));
        shape->Shape = iesRectangle;
        shape->FillColor = clNone;
        shape->SetBorderWidth(4);
        shape->SetBorderColor(clRed);
    };
    view.SetCursor(crDefault);
    view.SetMouseInteractLayers(mlCreateShapeLayers);
    bench::DragOutAndBack(state, view);
}
BENCHMARK(BM_DragRectangleOn4K)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

// A stroke of the pixelation brush at its middle size over a
// photograph-like picture, as a hand moves it: 100 mouse moves of 8 by 4
// pixels, then the release. The counter "move" is the time of one move.
// Argument 2 is 1 for a stroke to the right and down, 0 for one to the left
// and up, which moves the stroke's corner and so all its cells each time.
void BM_MosaicStrokeOn4K(benchmark::State& state) {
    App();
    TIEImageView view;
    QImage picture(3840, 2160, QImage::Format_RGB888);
    for (int y = 0; y < picture.height(); ++y) {
        uchar* row = picture.scanLine(y);
        for (int x = 0; x < picture.width() * 3; ++x)
            row[x] = uchar((x * 37 + y * 11 + (x * y) % 97) & 255);
    }
    Show4K(view, picture);
    view.Proc()->SetUndoLimit(0);  // the stroke, not the undo copy
    TIERetouchToolInteraction& brush = view.Interactions().RetouchTool();
    brush.SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
    brush.SetBrushSize(20);
    view.SetCursor(crDefault);
    view.SetMouseInteractGeneral(miRetouchTool);
    constexpr int kMoves = 100;
    for (auto _ : state) {
        QPoint at(1000, 800);
        SendMouse(view, QEvent::MouseButtonPress, at, Qt::LeftButton);
        for (int i = 0; i < kMoves; ++i) {
            at += state.range(1) ? QPoint(8, 4) : QPoint(-8, -4);
            SendMouse(view, QEvent::MouseMove, at, Qt::LeftButton);
            if (state.range(0)) QApplication::processEvents();
        }
        SendMouse(view, QEvent::MouseButtonRelease, at, Qt::NoButton);
    }
    state.counters["move"] = benchmark::Counter(
        kMoves, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_MosaicStrokeOn4K)
    ->Args({1, 1})
    ->Args({0, 1})
    ->Args({1, 0})
    ->Unit(benchmark::kMillisecond);

}  // namespace
