#include "annotate/StyleRules.h"

#include <algorithm>

#include "app/session/SessionState.h"

namespace qpt {

int PenButtonForWidth(int32_t width) {
    for (int i = 0; i < 3; ++i)
        if (kPenChoices[i].Width == width) return i;
    return -1;
}

int PenButtonForBrush(int32_t brushSize) {
    for (int i = 0; i < 3; ++i)
        if (kPenChoices[i].BrushSize == brushSize) return i;
    return -1;
}

int32_t ChoosePen(int index) {
    const TPenChoice& choice = kPenChoices[std::clamp(index, 0, 2)];
    if (MosaicOpen) {
        MosaicBrushSize = choice.BrushSize;
        return choice.BrushSize;
    }
    PenWidth = choice.Width;
    return 0;
}

TColor& PaletteTarget() {
    return CurrentTool == kToolText ? TextColor : ShapeColor;
}

uint8_t ArrowSizeClass(int32_t penWidth) {
    if (penWidth == 8) return 2;
    if (penWidth == 4) return 1;
    return 0;
}

int32_t FontSizeFromItem(const QString& item) {
    bool ok = false;
    const int size = item.trimmed().toInt(&ok);
    return ok ? size : 10;
}

QString FontNameFromItem(const QString& item) {
    return item.isEmpty() ? QStringLiteral("Tahoma") : item;
}

int32_t ClampPixelSize(int value) {
    return std::clamp(value, 2, 30);
}

}  // namespace qpt
