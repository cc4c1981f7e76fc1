#include "imaging/encode/IEPixelView.h"

#include <cstdlib>
#include <cstring>

namespace qpt {

namespace {

struct TChannels {
    int Bytes, R, G, B, A;  // A < 0: no alpha byte
};

constexpr TChannels ChannelsOf(TIEPixelLayout layout) {
    switch (layout) {
        case TIEPixelLayout::Bgr24:
            return {3, 2, 1, 0, -1};
        case TIEPixelLayout::Bgrx32:
            return {4, 2, 1, 0, -1};
        case TIEPixelLayout::Bgra32:
            return {4, 2, 1, 0, 3};
        case TIEPixelLayout::Rgb24:
            return {3, 0, 1, 2, -1};
        case TIEPixelLayout::Rgba32:
            return {4, 0, 1, 2, 3};
    }
    return {3, 2, 1, 0, -1};
}

// One instance per layout and output width, so that the offsets are
// constants and the loop vectorises.
template <TIEPixelLayout L, int Out, bool KeepAlpha>
void ConvertRow(const uint8_t* in, int width, uint8_t* out) {
    constexpr TChannels c = ChannelsOf(L);
    for (int x = 0; x < width; ++x, in += c.Bytes, out += Out) {
        out[0] = in[c.R];
        out[1] = in[c.G];
        out[2] = in[c.B];
        if constexpr (Out == 4) out[3] = KeepAlpha && c.A >= 0 ? in[c.A < 0 ? 0 : c.A] : 255;
    }
}

template <TIEPixelLayout L>
void ConvertRowTo(const uint8_t* in, int width, TIEAlphaOut alpha, uint8_t* out) {
    if (alpha == TIEAlphaOut::None)
        ConvertRow<L, 3, false>(in, width, out);
    else if (alpha == TIEAlphaOut::Opaque)
        ConvertRow<L, 4, false>(in, width, out);
    else
        ConvertRow<L, 4, true>(in, width, out);
}

}  // namespace

int IEBytesPerPixel(TIEPixelLayout layout) {
    return ChannelsOf(layout).Bytes;
}

bool IEHasAlpha(TIEPixelLayout layout) {
    return ChannelsOf(layout).A >= 0;
}

bool TIEPixelView::Valid() const {
    if (!Pixels || Width < 1 || Height < 1) return false;
    return int64_t(std::llabs(Stride)) >= int64_t(Width) * IEBytesPerPixel(Layout);
}

void IERowToRgb(const TIEPixelView& view, int y, TIEAlphaOut alpha, uint8_t* out) {
    const uint8_t* in = view.Row(y);
    switch (view.Layout) {
        case TIEPixelLayout::Bgr24:
            return ConvertRowTo<TIEPixelLayout::Bgr24>(in, view.Width, alpha, out);
        case TIEPixelLayout::Bgrx32:
            return ConvertRowTo<TIEPixelLayout::Bgrx32>(in, view.Width, alpha, out);
        case TIEPixelLayout::Bgra32:
            return ConvertRowTo<TIEPixelLayout::Bgra32>(in, view.Width, alpha, out);
        case TIEPixelLayout::Rgb24:
            return ConvertRowTo<TIEPixelLayout::Rgb24>(in, view.Width, alpha, out);
        case TIEPixelLayout::Rgba32:
            return ConvertRowTo<TIEPixelLayout::Rgba32>(in, view.Width, alpha, out);
    }
}

}  // namespace qpt
