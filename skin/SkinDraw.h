#pragma once

#include <QRect>

class QPainter;

namespace qpt {

class TRdGraphic;
class TDesignRect;

// Draws a picture into `rect` cut in nine parts by `slicing`: corners at
// their size, edges and centre stretched, tiled (sdmFill) or, for the centre,
// left out (sdmFrame). Without slicing the picture is stretched whole.
void SkinDraw(QPainter& painter, const QRect& rect, TRdGraphic* graphic,
              const TDesignRect* slicing);

}  // namespace qpt
