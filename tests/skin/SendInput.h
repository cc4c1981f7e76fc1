#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QString>
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

inline void MouseClick(QWidget& widget, QPoint point) {
    SendMouse(widget, QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton);
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
