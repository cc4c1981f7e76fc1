#pragma once

#include <QImage>
#include <QRect>

#include "skin/RdGraphic.h"

class QPainter;

namespace qpt {

// Blends the part `source` of premultiplied `pixels` into `dest`: with a
// constant alpha, in grey ((77 R + 151 G + 28 B) / 256) when asked, scaled
// nearest-pixel (psfDefault), bilinear (psfFastSmooth) or area-averaged
// (psfSmooth). Pixels outside `source` are never sampled, so neighbouring
// slices of a skin picture cannot bleed into each other.
void DrawImagePart(QPainter& painter, const QImage& pixels, const QRect& dest, const QRect& source,
                   int alpha, bool gray, TPngSmoothFilter smooth);

// A grey copy, premultiplied values kept premultiplied.
QImage GrayImage(const QImage& pixels);

}  // namespace qpt
