#pragma once

#include <cstdint>
#include <vector>

#include "imaging/encode/IEByteSink.h"
#include "imaging/encode/IEPixelView.h"

namespace qpt {

// TIFF, one page, 8 bits a channel, RGB or RGB plus an unassociated alpha
// channel, LZW with the horizontal predictor (lossless, read everywhere).
// The file is put together in memory, because a TIFF's directory is
// written last and pointed to from the head, and then goes to the sink in
// one piece. False for an invalid view, out of memory or a sink that
// refuses bytes.
bool IEEncodeTiff(const TIEPixelView& view, TIEAlphaOut alpha, TIEByteSink& sink);
bool IEEncodeTiff(const TIEPixelView& view, TIEAlphaOut alpha, std::vector<uint8_t>& out);
bool IEEncodeTiff(const TIEPixelView& view, TIEAlphaOut alpha, int fd);

}  // namespace qpt
