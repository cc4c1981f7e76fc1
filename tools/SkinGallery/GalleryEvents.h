#pragma once

#include <QPoint>

class QWidget;

namespace qpt {

// States that only the mouse reaches are reached through real mouse events,
// as a person would, so the gallery shows what the control makes of them.
void HoverAt(QWidget* control, const QPoint& pos);
// A left press held down at `pos`, after the mouse came over it.
void PressAt(QWidget* control, const QPoint& pos);

// A picture of a window of its own (popup, hint), to sit in a cell.
QWidget* Snapshot(QWidget& window, QWidget* parent);

}  // namespace qpt
