#pragma once
// Mouse input sent straight to a widget, as the window system hands it on,
// for the benches that drag on the picture.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace qpt::bench {

inline void SendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPointF(at), QPointF(widget.mapToGlobal(at)), button, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

// A drag pressed at 400,300 whose every iteration is one move, out to
// 2040,1240 and back to 2000,1200 by turns: more than the drag threshold on
// both axes. When the bench's first argument is 1, the window also repaints
// what each move changed, as the window system would ask.
inline void DragOutAndBack(benchmark::State& state, QWidget& widget) {
    SendMouse(widget, QEvent::MouseButtonPress, QPoint(400, 300), Qt::LeftButton);
    int step = 0;
    for (auto _ : state) {
        const int d = (step++ % 2) ? 0 : 40;
        SendMouse(widget, QEvent::MouseMove, QPoint(2000 + d, 1200 + d), Qt::LeftButton);
        if (state.range(0)) QApplication::processEvents();
    }
    SendMouse(widget, QEvent::MouseButtonRelease, QPoint(2000, 1200), Qt::NoButton);
}

}  // namespace qpt::bench
