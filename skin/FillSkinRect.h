#pragma once

#include <QRect>
#include <QtGlobal>

class QPainter;

namespace qpt {

enum class TGradientDirection : uint8_t { gdHorizontal, gdVertical };

// Fills a rectangle with one colour, or a gradient from `from` to `to` in the
// given direction. Colours are skin colours (a named colour id is looked up);
// their top byte is an alpha where 0 means opaque, clNone is fully clear and
// clDefault takes the other colour. The alpha ramps along with the colour.
void FillSkinRect(QPainter& painter, const QRect& rect, quint32 from, quint32 to,
                  TGradientDirection direction);

}  // namespace qpt
