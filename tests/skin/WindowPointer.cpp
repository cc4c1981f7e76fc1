#include "tests/skin/WindowPointer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>

QT_BEGIN_NAMESPACE
// Qt's entry for a window-system mouse event, delivered at once.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers mods, int timestamp);
QT_END_NAMESPACE

namespace qpt::testing {

WindowPointer::WindowPointer(QWidget& window) : window_(window) {
    window_.show();
    window_.windowHandle()->requestActivate();
    QCoreApplication::processEvents();
    // Qt drops a move to the point it already knows, which may be where the
    // last test left the pointer: start from a point no test uses.
    Send(QPoint(-1, -1), Qt::NoButton, QEvent::MouseMove);
}

void WindowPointer::Send(QPoint windowPoint, Qt::MouseButton button, int type) {
    // Far apart in time, so that no two presses make a double click.
    time_ += 1000;
    qt_handleMouseEvent(window_.windowHandle(), windowPoint, window_.mapToGlobal(windowPoint),
                        buttons_, button, QEvent::Type(type), Qt::NoModifier, time_);
    QCoreApplication::processEvents();
}

void WindowPointer::Move(const QWidget& widget, QPoint point) {
    Send(widget.mapTo(&window_, point), Qt::NoButton, QEvent::MouseMove);
}

void WindowPointer::Press(const QWidget& widget, QPoint point) {
    buttons_ |= Qt::LeftButton;
    Send(widget.mapTo(&window_, point), Qt::LeftButton, QEvent::MouseButtonPress);
}

void WindowPointer::Release(const QWidget& widget, QPoint point) {
    buttons_ &= ~Qt::LeftButton;
    Send(widget.mapTo(&window_, point), Qt::LeftButton, QEvent::MouseButtonRelease);
}

void WindowPointer::Click(const QWidget& widget, QPoint point) {
    Move(widget, point);
    Press(widget, point);
    Release(widget, point);
}

void WindowPointer::Leave() {
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(window_.windowHandle(), &leave);
    QCoreApplication::processEvents();
}

}  // namespace qpt::testing
