#include "tools/SkinGallery/GalleryEvents.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>

namespace qpt {

namespace {

void Send(QWidget* control, QEvent::Type type, const QPoint& pos, Qt::MouseButton button,
          Qt::MouseButtons buttons) {
    const QPointF local(pos);
    QMouseEvent event(type, local, control->mapToGlobal(local), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(control, &event);
}

}  // namespace

void HoverAt(QWidget* control, const QPoint& pos) {
    const QPointF local(pos);
    QEnterEvent enter(local, local, control->mapToGlobal(local));
    QApplication::sendEvent(control, &enter);
    Send(control, QEvent::MouseMove, pos, Qt::NoButton, Qt::NoButton);
}

void PressAt(QWidget* control, const QPoint& pos) {
    HoverAt(control, pos);
    Send(control, QEvent::MouseButtonPress, pos, Qt::LeftButton, Qt::LeftButton);
}

QWidget* Snapshot(QWidget& window, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setPixmap(window.grab());
    label->resize(label->pixmap().size());
    return label;
}

}  // namespace qpt
