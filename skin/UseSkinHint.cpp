#include "skin/UseSkinHint.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

#include "skin/RdSkinHint.h"

namespace qpt {

TUseSkinHint::TUseSkinHint(QWidget* form)
    : QObject(form), form_(form), hint_(new TRdSkinHint(this)) {
    setObjectName(QStringLiteral("RdUseSkinHint"));
    // Tool tips are asked of the control under the mouse, and of each of its
    // parents in turn; only the application sees all of them first.
    if (QCoreApplication::instance()) QCoreApplication::instance()->installEventFilter(this);
}

TUseSkinHint* TUseSkinHint::Of(const QWidget* form) {
    return form ? form->findChild<TUseSkinHint*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

void TUseSkinHint::SetControlHint(QWidget* control, TRdSkinHint* hint) {
    if (!control) return;
    if (!hint) {
        controlHints_.remove(control);
        return;
    }
    if (!controlHints_.contains(control))
        connect(control, &QObject::destroyed, this,
                [this, control] { controlHints_.remove(control); });
    controlHints_.insert(control, hint);
}

TRdSkinHint* TUseSkinHint::HintFor(QWidget* control) const {
    for (QWidget* w = control; w; w = w->parentWidget()) {
        if (TRdSkinHint* own = controlHints_.value(w)) return own;
        if (w == form_) break;
    }
    return hint_;
}

// Every event of the application passes here: the cheap test on its type
// comes before any look at the widget.
bool TUseSkinHint::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool hides = type == QEvent::Leave || type == QEvent::MouseButtonPress ||
                       type == QEvent::Wheel || type == QEvent::Hide;
    if ((type != QEvent::ToolTip && !hides) || !watched->isWidgetType() || !form_) return false;
    auto* control = static_cast<QWidget*>(watched);
    if (control->window() != form_ || Of(form_) != this) return false;
    if (hides) {
        HideHintOf(control);
        return false;
    }
    return ShowHint(control, static_cast<QHelpEvent*>(event)->globalPos());
}

// A control without a hint text lets the question go on to its parent.
bool TUseSkinHint::ShowHint(QWidget* control, const QPoint& globalPos) {
    const QString text = control->toolTip();
    if (text.isEmpty()) return false;
    if (!HintFor(control)->ActivateHint(globalPos, text, control)) return false;
    QToolTip::hideText();
    return true;
}

void TUseSkinHint::HideHintOf(QWidget* control) {
    TRdSkinHint* hint = HintFor(control);
    if (hint->Control() == control) hint->HideHint();
}

}  // namespace qpt
