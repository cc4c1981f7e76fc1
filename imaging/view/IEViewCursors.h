#pragma once

#include <QCursor>

namespace qpt {

// The platform cursor of a numeric cursor id; unknown ids show the arrow.
Qt::CursorShape IEQtCursorShape(int cursor);

// The ring that shows a brush's footprint, diameter in screen pixels.
QCursor IERingCursor(int diameter);

}  // namespace qpt
