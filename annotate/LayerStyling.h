#pragma once

#include "imaging/IELayerTypes.h"

namespace qpt {

class TIELayer;

// Dresses a layer the user has just begun to draw in the session's style:
// rectangles and ovals as outlines, arrows as filled figures sized by the
// pen, lines and strokes in the pen's colour and width, text in the text
// colour, size and font. No mark shows a frame. Other kinds stay as made.
void DressNewLayer(TIELayer& layer, TIELayerKind kind);

}  // namespace qpt
