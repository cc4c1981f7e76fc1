#pragma once

#include <Qt>

namespace qpt {

// The shape for a form cursor id (0 the default arrow, -21 the pointing
// hand, -22 the four-way arrows); unknown ids give the arrow.
Qt::CursorShape ControlCursorShape(int id);

}  // namespace qpt
