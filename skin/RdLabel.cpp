#include "skin/RdLabel.h"

namespace qpt {

TRdLabel::TRdLabel(QWidget* parent) : TRdCustomLabel(parent) {}

}  // namespace qpt
