#pragma once

#include <QString>
#include <cstdint>

#include "support/color/ColorNames.h"

namespace qpt {

// The pen buttons of the style bar, left to right: a line width for the
// drawing tools, a brush diameter for the pixelation.
struct TPenChoice {
    int32_t Width;
    int32_t BrushSize;
};
inline constexpr TPenChoice kPenChoices[3] = {{1, 10}, {4, 20}, {8, 40}};

// The pen button (0..2) that shows a line width or a brush size; -1 for a
// value that no button has.
int PenButtonForWidth(int32_t width);
int PenButtonForBrush(int32_t brushSize);

// A click on pen button `index`: the brush size while the pixelation is
// open, else the line width. Returns the new brush size for the retouch
// tool, or 0 when the line width changed.
int32_t ChoosePen(int index);

// The colour a palette cell changes: the text's after the text tool was
// chosen last (even if it has been closed since), else the shapes'.
TColor& PaletteTarget();

// The arrow's head size for a line width: 1 small, 4 medium, 8 large.
uint8_t ArrowSizeClass(int32_t penWidth);

// The text of the size list's item as a size; 10 when it is no number.
int32_t FontSizeFromItem(const QString& item);
// The font list's item as a font name; "Tahoma" when nothing is chosen.
QString FontNameFromItem(const QString& item);
// The slider's value as a pixelation cell, held within 2..30.
int32_t ClampPixelSize(int value);

}  // namespace qpt
