#pragma once

class QWidget;

namespace qpt {

// Puts a form above other windows or back among them, so that a dialog can
// rise above it; a form on the screen stays on the screen at its place.
// Nothing happens without a form.
void SetStayOnTop(QWidget* form, bool onTop);

// Gives the form the focus when it can take it: it is there, on the screen
// and enabled.
void FocusIfPossible(QWidget* form);

}  // namespace qpt
