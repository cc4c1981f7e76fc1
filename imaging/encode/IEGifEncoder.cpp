#include "imaging/encode/IEGifEncoder.h"

#include "imaging/encode/IECodecLibraries.h"

#include <algorithm>

namespace qpt {

namespace {

constexpr int kMaxSide = 65535;

int Output(GifFileType* gif, const GifByteType* data, int length) {
    auto* sink = static_cast<TIEByteSink*>(gif->UserData);
    return sink->Write(data, size_t(length)) ? length : 0;
}

// GIF palettes hold a power of two of entries, at least two.
ColorMapObject* ColourMap(const TIEGifCalls& gifLib, const std::vector<TIEPaletteColour>& palette) {
    int bits = 1;
    while ((1 << bits) < int(palette.size()))
        ++bits;
    std::vector<GifColorType> colours(size_t(1) << bits, GifColorType{0, 0, 0});
    for (size_t i = 0; i < palette.size(); ++i)
        colours[i] = {palette[i].R, palette[i].G, palette[i].B};
    return gifLib.MakeMapObject(int(colours.size()), colours.data());
}

bool WriteFrame(const TIEGifCalls& gifLib, GifFileType* gif, const TIEIndexedPicture& picture,
                ColorMapObject* map) {
    if (gifLib.PutScreenDesc(gif, picture.Width, picture.Height, map->BitsPerPixel, 0, map) ==
            GIF_ERROR ||
        gifLib.PutImageDesc(gif, 0, 0, picture.Width, picture.Height, false, nullptr) == GIF_ERROR)
        return false;
    // giflib masks the line it is given in place, so it gets a copy.
    std::vector<GifPixelType> row(size_t(picture.Width));
    for (int y = 0; y < picture.Height; ++y) {
        const auto first = picture.Indices.begin() + ptrdiff_t(y) * picture.Width;
        std::copy(first, first + picture.Width, row.begin());
        if (gifLib.PutLine(gif, row.data(), picture.Width) == GIF_ERROR) return false;
    }
    return true;
}

}  // namespace

bool IEEncodeGif(const TIEIndexedPicture& picture, TIEByteSink& sink) {
    if (picture.Width < 1 || picture.Height < 1 || picture.Width > kMaxSide ||
        picture.Height > kMaxSide || picture.Palette.empty() || picture.Palette.size() > 256 ||
        picture.Indices.size() != size_t(picture.Width) * size_t(picture.Height))
        return false;
    const TIEGifCalls* gifLib = IEGifCalls();
    if (!gifLib) return false;
    int error = 0;
    GifFileType* gif = gifLib->Open(&sink, Output, &error);
    if (!gif) return false;
    ColorMapObject* map = nullptr;
    bool written = false;
    try {
        map = ColourMap(*gifLib, picture.Palette);
        written = map && WriteFrame(*gifLib, gif, picture, map);
    } catch (const std::bad_alloc&) {  // the file handle below must still be closed
        written = false;
    }
    gifLib->FreeMapObject(map);
    const bool closed = gifLib->CloseFile(gif, &error) != GIF_ERROR;
    return written && closed && !sink.Failed();
}

bool IEEncodeGif(const TIEPixelView& view, TIEByteSink& sink) {
    if (!view.Valid() || view.Width > kMaxSide || view.Height > kMaxSide) return false;
    const TIEIndexedPicture picture = IEReduceTo256Colours(view);
    return !picture.Palette.empty() && IEEncodeGif(picture, sink);
}

bool IEEncodeGif(const TIEPixelView& view, std::vector<uint8_t>& out) {
    return IEEncodeIntoBuffer(out, [&](TIEByteSink& s) { return IEEncodeGif(view, s); });
}

bool IEEncodeGif(const TIEPixelView& view, int fd) {
    return IEEncodeIntoFd(fd, [&](TIEByteSink& s) { return IEEncodeGif(view, s); });
}

}  // namespace qpt
