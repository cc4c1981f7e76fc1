#include "app/session/SessionForms.h"

#include <QWidget>

namespace qpt {

bool FormShowing(const QWidget* form) {
    return form && form->isVisible();
}

void RegisterForm(QWidget*& variable, QWidget* form) {
    variable = form;
    QObject::connect(form, &QObject::destroyed, [&variable, form] {
        if (variable == form) variable = nullptr;
    });
}

}  // namespace qpt
