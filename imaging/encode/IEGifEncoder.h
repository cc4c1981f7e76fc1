#pragma once

#include <cstdint>
#include <vector>

#include "imaging/encode/IEByteSink.h"
#include "imaging/encode/IEGifPalette.h"
#include "imaging/encode/IEPixelView.h"

namespace qpt {

// GIF, one frame, no transparency: GIF has no alpha channel to keep, and a
// screenshot has nothing to see through. The colours are reduced by
// IEReduceTo256Colours. False for an invalid view, a side over 65535, out
// of memory or a sink that refuses bytes.
bool IEEncodeGif(const TIEPixelView& view, TIEByteSink& sink);
bool IEEncodeGif(const TIEPixelView& view, std::vector<uint8_t>& out);
bool IEEncodeGif(const TIEPixelView& view, int fd);

// The same for a picture already reduced.
bool IEEncodeGif(const TIEIndexedPicture& picture, TIEByteSink& sink);

}  // namespace qpt
