#pragma once

#include "skin/RdControl.h"

namespace qpt {

// A skinned control that can hold other controls and, with TabStop, take the
// keyboard focus.
class TRdCustomControl : public TRdControl {
    Q_OBJECT
    Q_PROPERTY(bool TabStop READ TabStop WRITE SetTabStop)

public:
    explicit TRdCustomControl(QWidget* parent = nullptr);

    bool TabStop() const { return focusPolicy() & Qt::TabFocus; }
    void SetTabStop(bool value) { setFocusPolicy(value ? Qt::StrongFocus : Qt::ClickFocus); }
};

}  // namespace qpt
