#include "imaging/encode/IEPngEncoder.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <thread>

#include "imaging/encode/IEDeflateBands.h"
#include "imaging/encode/IEPngRowFilter.h"

namespace qpt {

namespace {

// Level 4 is zlib's first level with lazy matching: on screenshots it gives
// files about the size of the default level 6 at half its time, where levels
// 1 to 3 are a tenth to a fifth larger.
constexpr int kLevel = 4;
// Below this many pixels a picture is done before a second thread is up.
constexpr int64_t kPixelsPerBand = 512 * 1024;

int BandsFor(const TIEPixelView& view, int asked) {
    if (asked > 0) return asked;
    const int64_t pixels = int64_t(view.Width) * view.Height;
    const int cores = int(std::max(1u, std::thread::hardware_concurrency()));
    return int(std::clamp<int64_t>(pixels / kPixelsPerBand, 1, std::min(cores, 8)));
}

void OnWrite(png_structp png, png_bytep data, png_size_t length) {
    static_cast<TIEByteSink*>(png_get_io_ptr(png))->Write(data, length);
}

void OnFlush(png_structp) {}

[[noreturn]] void OnError(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

// libpng frames the stream: signature, header, the compressed bands as
// data chunks, end. Nothing in this frame has a destructor, since an error
// jumps back to setjmp over it.
bool WriteChunks(png_structp png, png_infop info, const TIEPixelView& view, TIEAlphaOut alpha,
                 const std::vector<std::vector<uint8_t>>& bands, TIEByteSink& sink) {
    if (setjmp(png_jmpbuf(png))) return false;
    png_set_write_fn(png, &sink, OnWrite, OnFlush);
    png_set_IHDR(png, info, png_uint_32(view.Width), png_uint_32(view.Height), 8,
                 alpha == TIEAlphaOut::None ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (const std::vector<uint8_t>& band : bands)
        png_write_chunk(png, reinterpret_cast<png_const_bytep>("IDAT"), band.data(), band.size());
    png_write_chunk(png, reinterpret_cast<png_const_bytep>("IEND"), nullptr, 0);
    return true;
}

bool FitsPng(const TIEPixelView& view, TIEAlphaOut alpha) {
    const uint64_t rowBytes = uint64_t(view.Width) * uint64_t(IEChannelsOut(alpha)) + 1;
    return view.Valid() && rowBytes < PNG_UINT_31_MAX;
}

}  // namespace

bool IEEncodePng(const TIEPixelView& view, TIEByteSink& sink, const TIEPngOptions& options) {
    const TIEAlphaOut alpha = options.Alpha;
    if (!FitsPng(view, alpha) || sink.Failed()) return false;
    const std::vector<std::vector<uint8_t>> bands =
        IEDeflateInBands(view.Height, BandsFor(view, options.Bands), kLevel,
                         [&] { return std::make_unique<TIEPngRowFilter>(view, alpha); });
    if (bands.empty()) return false;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, OnError, OnWarning);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    const bool written = info && WriteChunks(png, info, view, alpha, bands, sink);
    png_destroy_write_struct(&png, info ? &info : nullptr);
    return written && !sink.Failed();
}

bool IEEncodePng(const TIEPixelView& view, std::vector<uint8_t>& out,
                 const TIEPngOptions& options) {
    return IEEncodeIntoBuffer(out, [&](TIEByteSink& s) { return IEEncodePng(view, s, options); });
}

bool IEEncodePng(const TIEPixelView& view, int fd, const TIEPngOptions& options) {
    return IEEncodeIntoFd(fd, [&](TIEByteSink& s) { return IEEncodePng(view, s, options); });
}

}  // namespace qpt
