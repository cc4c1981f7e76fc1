#include "imaging/encode/IEJpegEncoder.h"

#include "imaging/encode/IECodecLibraries.h"

#include <algorithm>
#include <csetjmp>
#include <memory>

namespace qpt {

namespace {

constexpr size_t kOutBuffer = 64 * 1024;
constexpr int kRowsPerCall = 16;  // one MCU row of 4:2:0 per call

// Error manager and destination in one block owned by the caller's frame, so
// that the jump back on an error skips no destructor.
struct TJpegContext {
    jpeg_error_mgr Error{};
    jmp_buf Jump{};
    jpeg_destination_mgr Destination{};
    TIEByteSink* Sink = nullptr;
    JOCTET Buffer[kOutBuffer];
};

TJpegContext& ContextOf(j_compress_ptr cinfo) {
    return *static_cast<TJpegContext*>(cinfo->client_data);
}

[[noreturn]] void OnError(j_common_ptr cinfo) {
    longjmp(static_cast<TJpegContext*>(cinfo->client_data)->Jump, 1);
}

void OnMessage(j_common_ptr) {}

void OnInit(j_compress_ptr cinfo) {
    TJpegContext& c = ContextOf(cinfo);
    c.Destination.next_output_byte = c.Buffer;
    c.Destination.free_in_buffer = kOutBuffer;
}

boolean OnFull(j_compress_ptr cinfo) {
    TJpegContext& c = ContextOf(cinfo);
    if (!c.Sink->Write(c.Buffer, kOutBuffer)) OnError(reinterpret_cast<j_common_ptr>(cinfo));
    OnInit(cinfo);
    return TRUE;
}

void OnTerm(j_compress_ptr cinfo) {
    TJpegContext& c = ContextOf(cinfo);
    c.Sink->Write(c.Buffer, kOutBuffer - c.Destination.free_in_buffer);
}

// libjpeg-turbo reads every layout of ours directly; no row is converted.
J_COLOR_SPACE ColourSpaceOf(TIEPixelLayout layout) {
    switch (layout) {
        case TIEPixelLayout::Bgr24:
            return JCS_EXT_BGR;
        case TIEPixelLayout::Bgrx32:
            return JCS_EXT_BGRX;
        case TIEPixelLayout::Bgra32:
            return JCS_EXT_BGRA;
        case TIEPixelLayout::Rgb24:
            return JCS_EXT_RGB;
        case TIEPixelLayout::Rgba32:
            return JCS_EXT_RGBA;
    }
    return JCS_EXT_BGR;
}

bool Compress(const TIEJpegCalls& jpeg, jpeg_compress_struct& cinfo, TJpegContext& context,
              const TIEPixelView& view, int quality) {
    if (setjmp(context.Jump)) return false;
    jpeg.CreateCompress(&cinfo, JPEG_LIB_VERSION, sizeof(cinfo));
    cinfo.dest = &context.Destination;
    cinfo.image_width = JDIMENSION(view.Width);
    cinfo.image_height = JDIMENSION(view.Height);
    cinfo.input_components = IEBytesPerPixel(view.Layout);
    cinfo.in_color_space = ColourSpaceOf(view.Layout);
    jpeg.set_defaults(&cinfo);
    jpeg.set_quality(&cinfo, std::clamp(quality, 1, 100), TRUE);
    jpeg.start_compress(&cinfo, TRUE);
    JSAMPROW rows[kRowsPerCall];
    while (cinfo.next_scanline < cinfo.image_height) {
        const int first = int(cinfo.next_scanline);
        const int count = std::min(kRowsPerCall, view.Height - first);
        for (int i = 0; i < count; ++i)
            rows[i] = const_cast<JSAMPROW>(view.Row(first + i));
        jpeg.write_scanlines(&cinfo, rows, JDIMENSION(count));
    }
    jpeg.finish_compress(&cinfo);
    return true;
}

}  // namespace

bool IEEncodeJpeg(const TIEPixelView& view, int quality, TIEByteSink& sink) {
    if (!view.Valid() || view.Width > JPEG_MAX_DIMENSION || view.Height > JPEG_MAX_DIMENSION)
        return false;
    const TIEJpegCalls* jpeg = IEJpegCalls();
    if (!jpeg) return false;
    auto context = std::make_unique<TJpegContext>();
    context->Sink = &sink;
    context->Destination.init_destination = OnInit;
    context->Destination.empty_output_buffer = OnFull;
    context->Destination.term_destination = OnTerm;
    jpeg_compress_struct cinfo{};
    cinfo.err = jpeg->std_error(&context->Error);
    context->Error.error_exit = OnError;
    context->Error.output_message = OnMessage;
    cinfo.client_data = context.get();
    const bool written = Compress(*jpeg, cinfo, *context, view, quality);
    jpeg->destroy_compress(&cinfo);
    return written && !sink.Failed();
}

bool IEEncodeJpeg(const TIEPixelView& view, int quality, std::vector<uint8_t>& out) {
    return IEEncodeIntoBuffer(out, [&](TIEByteSink& s) { return IEEncodeJpeg(view, quality, s); });
}

bool IEEncodeJpeg(const TIEPixelView& view, int quality, int fd) {
    return IEEncodeIntoFd(fd, [&](TIEByteSink& s) { return IEEncodeJpeg(view, quality, s); });
}

}  // namespace qpt
