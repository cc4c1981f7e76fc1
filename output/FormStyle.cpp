#include "output/FormStyle.h"

#include <QWidget>

namespace qpt {

void SetStayOnTop(QWidget* form, bool onTop) {
    if (!form || form->windowFlags().testFlag(Qt::WindowStaysOnTopHint) == onTop) return;
    // A change of window flags takes the window off the screen.
    const bool shown = form->isVisible();
    const bool quiet = form->testAttribute(Qt::WA_ShowWithoutActivating);
    form->setWindowFlag(Qt::WindowStaysOnTopHint, onTop);
    if (!shown) return;
    form->setAttribute(Qt::WA_ShowWithoutActivating);
    form->show();
    form->setAttribute(Qt::WA_ShowWithoutActivating, quiet);
}

void FocusIfPossible(QWidget* form) {
    if (!form || !form->isVisible() || !form->isEnabled()) return;
    form->activateWindow();
    form->setFocus(Qt::OtherFocusReason);
}

}  // namespace qpt
