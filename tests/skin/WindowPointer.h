#pragma once

#include <QPoint>
#include <QWidget>

namespace qpt::testing {

// Drives the mouse the way the window system does: each event enters Qt at
// the top-level window, so Qt itself finds the widget under the pointer (masks
// included) and sends the enter and leave events.
class WindowPointer {
public:
    // The window is shown and exposed first.
    explicit WindowPointer(QWidget& window);

    // Points are in the coordinates of `widget`, any child of the window.
    void Move(const QWidget& widget, QPoint point);
    void Press(const QWidget& widget, QPoint point);
    void Release(const QWidget& widget, QPoint point);
    void Click(const QWidget& widget, QPoint point);
    // Moves off the window altogether.
    void Leave();

private:
    void Send(QPoint windowPoint, Qt::MouseButton button, int type);

    QWidget& window_;
    Qt::MouseButtons buttons_;
    int time_ = 1;
};

}  // namespace qpt::testing
