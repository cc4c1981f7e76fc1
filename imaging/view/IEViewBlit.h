#pragma once

#include <QImage>
#include <QRect>

class QPainter;

namespace qpt {

class TIEBitmap;

// Paints part of the view's 24-bit back buffer. Qt's own conversion of
// 24-bit rows costs more than the zoomed compose itself on a large window,
// so the rows are widened to 32 bits here. When the painter works on a plain
// 32-bit image at the view's own scale, as a widget's painter does on the
// window's backing image, they are widened straight into it, inside the area
// the toolkit lets the widget paint: drawing them from a scratch image would
// copy every pixel once more. Otherwise they go a strip at a time through a
// scratch image that is kept between paints.
class TIEViewBlit {
public:
    void Paint(QPainter& painter, TIEBitmap& back, const QRect& area);

private:
    void PaintThroughStrips(QPainter& painter, TIEBitmap& back, const QRect& area);

    QImage strip_;
};

// Widens B,G,R triples to the 32-bit pixels 0xFFRRGGBB.
void IEWidenBgrRow(const uint8_t* source, uint32_t* target, int count);

}  // namespace qpt
