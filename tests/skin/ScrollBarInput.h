#pragma once

// Mouse input for the scroll bar tests, through Qt's own event delivery.
#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QWheelEvent>
#include <memory>

#include "skin/PngImage.h"
#include "skin/RdPictureProperty.h"

namespace qpt::testing {

inline void SendMouse(QWidget& w, QEvent::Type type, QPoint at, Qt::MouseButton button,
                      Qt::MouseButtons held) {
    QMouseEvent event(type, QPointF(at), QPointF(w.mapToGlobal(at)), button, held, Qt::NoModifier);
    QApplication::sendEvent(&w, &event);
}

inline void Press(QWidget& w, QPoint at) {
    SendMouse(w, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
}
inline void MoveHeld(QWidget& w, QPoint at) {
    SendMouse(w, QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
}
inline void Hover(QWidget& w, QPoint at) {
    SendMouse(w, QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
}
inline void Release(QWidget& w, QPoint at) {
    SendMouse(w, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}

// One notch of the wheel; positive turns away from the user (scrolls up).
inline void Wheel(QWidget& w, QPoint at, int notches) {
    QWheelEvent event(QPointF(at), QPointF(w.mapToGlobal(at)), QPoint(), QPoint(0, 120 * notches),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&w, &event);
}

// A picture of one colour, as a skin would give it.
inline void SetSolidPicture(TRdPictureProperty& picture, QSize size, QRgb color) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    auto png = std::make_unique<TPngImage>();
    png->SetPixels(image);
    picture.Picture().SetGraphic(std::move(png));
}

// What the widget and its children paint, over nothing.
inline QImage Shot(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

}  // namespace qpt::testing
