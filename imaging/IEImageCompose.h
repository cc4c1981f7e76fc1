#pragma once

#include <QRect>
#include <cstdint>
#include <vector>

#include "imaging/IEBitmap.h"
#include "imaging/IELayerTypes.h"

namespace qpt {

class TIEImageLayer;
class TIELayer;

// Source positions of a run of destination pixels along one axis, in 16.16
// fixed point; the integer part is the pixel a nearest filter takes.
using TIESampleTable = std::vector<int64_t>;

// Source positions for destination pixels first..first+count-1 of a stretch
// that maps destLength pixels onto srcLength ones, starting at destination 0.
TIESampleTable IESampleTable(int first, int count, int srcLength, int destLength);

// Blends src (ie24RGB, with its alpha plane unless that is Full) into dst
// (ie24RGB) at the positions given per destination column and row, from
// (destX, destY) on. Same size sampling at whole positions is a plain row
// blend; linear interpolates between neighbours. k is the layer's opacity
// 0..255. When dst has an alpha plane it receives the union of both.
void IEComposeImage(const TIEBitmap& src, TIEBitmap& dst, int destX, int destY,
                    const TIESampleTable& xs, const TIESampleTable& ys, int k, bool linear);

// Un-premultiplies a premultiplied ie32RGB picture into an ie24RGB picture
// with an alpha plane.
void IEPremulToImage(const TIEBitmap& premul, TIEBitmap& dest);

// Composes upper into the picture of lower, both placed by their PosX, PosY,
// Width and Height; lower keeps its place and size. Cut to lower's picture.
void IEMergeImageLayer(TIEImageLayer& upper, TIEImageLayer& lower);

// Enlarges the picture of lower, in its own pixel scale, so that upper fits
// inside it; the new margins take fill, fully opaque. Lower's place and size
// follow, so what was already there stays where it was.
void IEGrowToHold(TIEImageLayer& lower, const TIELayer& upper, TColor fill);

// Opacity and Transparency as one 0..255 factor.
int IELayerOpacity(double opacity, int transparency);

}  // namespace qpt
