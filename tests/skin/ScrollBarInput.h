#pragma once

// Held-button and wheel input for the scroll bar tests, through Qt's own
// event delivery.
#include <QWheelEvent>

#include "tests/skin/SendInput.h"
#include "tests/skin/SolidPicture.h"

namespace qpt::testing {

inline void Press(QWidget& w, QPoint at) {
    SendMouse(w, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
}
inline void MoveHeld(QWidget& w, QPoint at) {
    SendMouse(w, QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
}
inline void Release(QWidget& w, QPoint at) {
    SendMouse(w, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}

// Whole notches of the wheel; positive turns away from the user (scrolls up).
inline void Wheel(QWidget& w, QPoint at, int notches) {
    QWheelEvent event(QPointF(at), QPointF(w.mapToGlobal(at)), QPoint(), QPoint(0, 120 * notches),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&w, &event);
}

}  // namespace qpt::testing
