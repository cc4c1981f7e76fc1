// One mouse move while a rectangle is dragged out over a 4K picture, with
// the repaint of what changed, as the window system would ask for it
// (argument 1), and without the repaint, to tell composing from blitting
// (argument 0).
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>

#include "imaging/IEImageLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/view/IEImageView.h"

namespace {

using namespace qpt;

QApplication& App() {
    static int argc = 1;
    static char name[] = "bench";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "minimal");
    // Never destroyed: at exit Qt's input devices would go after their owner.
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

void Send(TIEImageView& view, QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPointF(at), QPointF(view.mapToGlobal(at)), button, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &event);
}

void BM_DragRectangleOn4K(benchmark::State& state) {
    App();
    TIEImageView view;
    QImage picture(3840, 2160, QImage::Format_RGB888);
    picture.fill(QColor(90, 140, 200));
    view.Layers().Background().Bitmap()->Assign(picture);
    view.Layers().Background().FitToBitmap();
    view.resize(3840, 2160);
    view.show();
    QApplication::processEvents();
    view.OnNewLayer = [&view](int index, TIELayerKind) {
        auto* shape = static_cast<TIEShapeLayer*>(view.Layers().GetLayer(index));
        shape->Shape = iesRectangle;
        shape->FillColor = clNone;
        shape->SetBorderWidth(4);
        shape->SetBorderColor(clRed);
    };
    view.SetCursor(crDefault);
    view.SetMouseInteractLayers(mlCreateShapeLayers);
    Send(view, QEvent::MouseButtonPress, QPoint(400, 300), Qt::LeftButton);
    int step = 0;
    for (auto _ : state) {
        // Out and back by more than the drag threshold on both axes.
        const int d = (step++ % 2) ? 0 : 40;
        Send(view, QEvent::MouseMove, QPoint(2000 + d, 1200 + d), Qt::LeftButton);
        if (state.range(0)) QApplication::processEvents();
    }
    Send(view, QEvent::MouseButtonRelease, QPoint(2000, 1200), Qt::NoButton);
}
BENCHMARK(BM_DragRectangleOn4K)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

}  // namespace
