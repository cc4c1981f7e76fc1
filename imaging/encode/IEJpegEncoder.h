#pragma once

#include <cstdint>
#include <vector>

#include "imaging/encode/IEByteSink.h"
#include "imaging/encode/IEPixelView.h"

namespace qpt {

// Baseline JPEG (JFIF, YCbCr 4:2:0), the form every reader takes. Quality
// 1..100 as libjpeg's scale; values outside are clamped. Alpha is dropped.
// False for an invalid view, a picture wider or taller than 65500, or a sink
// that refuses bytes; what was written so far stays in the sink.
bool IEEncodeJpeg(const TIEPixelView& view, int quality, TIEByteSink& sink);
bool IEEncodeJpeg(const TIEPixelView& view, int quality, std::vector<uint8_t>& out);
bool IEEncodeJpeg(const TIEPixelView& view, int quality, int fd);

}  // namespace qpt
