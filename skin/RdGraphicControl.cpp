#include "skin/RdGraphicControl.h"

namespace qpt {

TRdGraphicControl::TRdGraphicControl(QWidget* parent) : TRdControl(parent) {
    setFocusPolicy(Qt::NoFocus);
    setAutoFillBackground(false);
}

}  // namespace qpt
