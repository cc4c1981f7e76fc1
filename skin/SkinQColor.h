#pragma once

#include <QColor>
#include <QtGlobal>

namespace qpt {

// The colour to paint for a skin colour value: a named colour is looked up,
// a top byte of 0 is opaque and any other is the alpha, clNone is clear.
// clDefault has no colour of its own and yields `fallback`.
QColor SkinQColor(quint32 value, const QColor& fallback = QColor(0, 0, 0, 0));

}  // namespace qpt
