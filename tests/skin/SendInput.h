#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QString>
#include <QWheelEvent>
#include <QWidget>

namespace qpt::testing {

// Mouse and key events as the window system hands them to a widget, sent
// through the application so that its filters and the widget's own event()
// see them.
inline void SendMouse(QWidget& widget, QEvent::Type type, QPoint point, Qt::MouseButton button,
                      Qt::MouseButtons buttons) {
    QMouseEvent event(type, QPointF(point), widget.mapToGlobal(QPointF(point)), button, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

inline void MouseMove(QWidget& widget, QPoint point) {
    SendMouse(widget, QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton);
}

// The pointer crossing into and out of the widget, with no button held.
inline void MouseEnter(QWidget& widget, QPoint point) {
    const QPointF at(point);
    QEnterEvent event(at, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &event);
}
inline void MouseLeave(QWidget& widget) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&widget, &event);
}

// The left button, held across the moves between press and release.
inline void Press(QWidget& widget, QPoint point) {
    SendMouse(widget, QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::LeftButton);
}
inline void MoveHeld(QWidget& widget, QPoint point) {
    SendMouse(widget, QEvent::MouseMove, point, Qt::NoButton, Qt::LeftButton);
}
inline void Release(QWidget& widget, QPoint point) {
    SendMouse(widget, QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton);
}

inline void MouseClick(QWidget& widget, QPoint point) {
    Press(widget, point);
    Release(widget, point);
}

// Whole notches of the wheel; positive turns away from the user (scrolls up).
inline void Wheel(QWidget& widget, QPoint point, int notches) {
    QWheelEvent event(QPointF(point), QPointF(widget.mapToGlobal(point)), QPoint(),
                      QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&widget, &event);
}

inline void KeyClick(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                     const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(&widget, &release);
}

// Types printable characters one key at a time.
inline void TypeText(QWidget& widget, const QString& text) {
    for (const QChar c : text) {
        const bool upper = c.isUpper();
        KeyClick(widget, c.toUpper().unicode(), upper ? Qt::ShiftModifier : Qt::NoModifier,
                 QString(c));
    }
}

}  // namespace qpt::testing
