#pragma once

#include <cstdint>
#include <vector>

#include "imaging/encode/IEByteSink.h"
#include "imaging/encode/IEPixelView.h"

namespace qpt {

// PNG encoder for screenshots: 8 bits a channel, RGB or RGBA, no interlace.
//
// Usage, from any thread, with no toolkit:
//     TIEPixelView view{pixels, width, height, stride, TIEPixelLayout::Bgra32};
//     std::vector<uint8_t> png;
//     if (!IEEncodePng(view, png)) ...;                      // into a buffer
//     if (!IEEncodePng(view, fd, {TIEAlphaOut::Opaque})) ...; // into an open file
//
// The pixels are only read, and only during the call. Large pictures are
// compressed in horizontal bands on several threads; the result is one
// ordinary PNG stream either way. On failure (an invalid view, out of
// memory, a sink that refuses bytes) the result is false and whatever was
// already written stays in the sink: write to a temporary name and rename.
struct TIEPngOptions {
    // Default: colour only. Opaque gives the 32-bit RGBA form that some
    // consumers expect from a screen surface.
    TIEAlphaOut Alpha = TIEAlphaOut::None;
    // Threads to share the rows among; 0 chooses by picture size and cores.
    int Bands = 0;
};

bool IEEncodePng(const TIEPixelView& view, TIEByteSink& sink, const TIEPngOptions& options = {});
// Appends the PNG stream to `out`.
bool IEEncodePng(const TIEPixelView& view, std::vector<uint8_t>& out,
                 const TIEPngOptions& options = {});
// Writes to an open descriptor, which stays open and owned by the caller.
bool IEEncodePng(const TIEPixelView& view, int fd, const TIEPngOptions& options = {});

}  // namespace qpt
