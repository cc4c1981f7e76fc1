#include "annotate/ColorSwatch.h"

#include <QPainter>

namespace qpt {

QColor SwatchQColor(TColor color) {
    return QColor(ColorR(color), ColorG(color), ColorB(color));
}

void TColorSwatch::Fill(TColor color) {
    if (color_ == color) return;
    color_ = color;
    update();
}

void TColorSwatch::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), SwatchQColor(color_));
}

}  // namespace qpt
