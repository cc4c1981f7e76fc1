#pragma once

class QWidget;

namespace qpt {

// Scales a form built at design size, when the interface is scaled: the
// places, sizes and fonts of its widgets, and the skin fonts its controls
// paint with, which the widget font alone does not reach. Nothing happens
// while scaling is off.
void ScaleSkinnedForm(QWidget* form);

}  // namespace qpt
