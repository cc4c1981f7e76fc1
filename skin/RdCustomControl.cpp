#include "skin/RdCustomControl.h"

namespace qpt {

TRdCustomControl::TRdCustomControl(QWidget* parent) : TRdControl(parent) {
    SetTabStop(false);
}

}  // namespace qpt
