#pragma once

#include "imaging/IEBitmap.h"

namespace qpt {

// Turns the rectangle (left, top)-(right, bottom), inclusive and cut to the
// bitmap, into blocks of blockSize by blockSize pixels, each the truncated
// average of its own pixels. The grid starts at the rectangle's corner, so
// blocks at the right and bottom may be partial and average only what they
// have. With a mask (ie8g or ie1g, the bitmap's size) only pixels whose mask
// value is not zero are written. Works on ie24RGB; other formats are left.
void Pixelize(TIEBitmap& bitmap, const TIEBitmap* mask, int blockSize, int left, int top, int right,
              int bottom);

// Softens the edge of an alpha plane (ie8g) over about radius pixels: a
// separable box blur with edges extended, so a footprint that touches the
// border stays opaque there.
void IEFeatherAlpha(TIEBitmap& alpha, int radius);
// The same blur of alpha, written to out (ie8g, the same size) only inside
// (left, top)-(right, bottom): each value there equals what the whole blur
// gives, so a part of a plane can be brought up to date alone.
void IEFeatherAlphaArea(const TIEBitmap& alpha, TIEBitmap& out, int radius, int left, int top,
                        int right, int bottom);

}  // namespace qpt
