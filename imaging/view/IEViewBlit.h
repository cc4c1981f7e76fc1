#pragma once

#include <QImage>
#include <QRect>

class QPainter;

namespace qpt {

class TIEBitmap;

// Paints part of the view's 24-bit back buffer. Qt's own conversion of
// 24-bit rows costs more than the zoomed compose itself on a large window,
// so the rows are widened to 32 bits here, a strip at a time into a scratch
// image that is kept between paints, and drawn as they are.
class TIEViewBlit {
public:
    void Paint(QPainter& painter, TIEBitmap& back, const QRect& area);

private:
    QImage strip_;
};

// Widens B,G,R triples to the 32-bit pixels 0xFFRRGGBB.
void IEWidenBgrRow(const uint8_t* source, uint32_t* target, int count);

}  // namespace qpt
