#pragma once

#include <QImage>

class QPainter;

namespace qpt {

// A bitmap that keeps its alpha through every step: made transparent, filled
// from pictures of any format without losing their alpha, and drawn blended
// with an extra skin alpha.
class TRdBitmap {
public:
    TRdBitmap() = default;
    TRdBitmap(int width, int height) { SetSize(width, height); }

    int Width() const { return image_.width(); }
    int Height() const { return image_.height(); }
    bool Empty() const { return image_.isNull(); }
    // A fresh transparent bitmap; a size below 1 leaves none.
    void SetSize(int width, int height);
    // An opaque source comes out opaque, one with alpha keeps it.
    void Assign(const QImage& source);

    // The pixel as a straight (not premultiplied) colour; 0 outside.
    QRgb Pixel(int x, int y) const;
    const QImage& Image() const { return image_; }
    // To draw on: its painter blends over what is there.
    QImage& Canvas() { return image_; }

    void Draw(QPainter& painter, QPoint at, int alpha = 255) const;

private:
    QImage image_;
};

}  // namespace qpt
