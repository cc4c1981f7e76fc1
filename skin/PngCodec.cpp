#include "skin/PngCodec.h"

#include <png.h>

#include <csetjmp>
#include <cstdlib>
#include <cstring>

namespace qpt {

namespace {

// Deflate cannot expand data by more than about 1032 to 1; data that could
// never fill the announced picture is refused before the pixels are allocated.
constexpr uint64_t kMaxInflateRatio = 1100;
constexpr uint32_t kMaxSide = 65535;
// A skin picture is a part of a window: none comes near 16 million pixels
// (64 MiB decoded), so anything bigger is no skin picture and is refused
// before a byte of it is allocated.
constexpr uint64_t kMaxPixels = uint64_t(1) << 24;
// libpng allocates a whole text chunk at the length that its header
// announces, before reading it, so a few bytes could ask for gigabytes. Its
// own buffers for a skin picture (rows of at most 65535 pixels, the inflate
// window, text of a few lines) never come near this; a bigger request fails,
// and libpng skips the chunk or gives up on the picture.
constexpr png_alloc_size_t kMaxLibpngAllocation = 8 << 20;

png_voidp BoundedMalloc(png_structp, png_alloc_size_t size) {
    return size <= kMaxLibpngAllocation ? std::malloc(size) : nullptr;
}

void PlainFree(png_structp, png_voidp pointer) {
    std::free(pointer);
}

struct ReadContext {
    const uint8_t* data = nullptr;
    size_t size = 0;
    size_t pos = 0;
    char error[160] = {};
    QImage* image = nullptr;
    std::vector<png_bytep> rows;
};

void OnError(png_structp png, png_const_charp message) {
    auto* context = static_cast<ReadContext*>(png_get_error_ptr(png));
    std::snprintf(context->error, sizeof context->error, "%s", message);
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

void OnRead(png_structp png, png_bytep out, png_size_t length) {
    auto* context = static_cast<ReadContext*>(png_get_io_ptr(png));
    if (length > context->size - context->pos) png_error(png, "truncated data");
    std::memcpy(out, context->data + context->pos, length);
    context->pos += length;
}

// Everything that may jump back to setjmp lives in `context`, owned by the
// caller, so no destructor of this frame is ever skipped.
bool ReadPixels(png_structp png, png_infop info, ReadContext& context) {
    if (setjmp(png_jmpbuf(png))) return false;
    png_set_user_limits(png, kMaxSide, kMaxSide);
    png_set_read_fn(png, &context, OnRead);
    png_read_info(png, info);
    const png_uint_32 width = png_get_image_width(png, info);
    const png_uint_32 height = png_get_image_height(png, info);
    if (uint64_t(width) * height > kMaxPixels) png_error(png, "too large for a skin picture");
    const int colorType = png_get_color_type(png, info);
    png_set_expand(png);
    png_set_strip_16(png);
    if (colorType == PNG_COLOR_TYPE_GRAY || colorType == PNG_COLOR_TYPE_GRAY_ALPHA)
        png_set_gray_to_rgb(png);
    png_set_bgr(png);
    png_set_filler(png, 0xFF, PNG_FILLER_AFTER);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    if (png_get_rowbytes(png, info) != size_t(width) * 4) png_error(png, "unexpected row layout");
    const uint64_t rawSize = uint64_t(height) * (uint64_t(width) * 8 + 1);
    if (rawSize > uint64_t(context.size) * kMaxInflateRatio + 4096)
        png_error(png, "data too short for the picture size");
    *context.image = QImage(int(width), int(height), QImage::Format_ARGB32);
    if (context.image->isNull()) png_error(png, "out of memory");
    context.rows.resize(height);
    for (png_uint_32 y = 0; y < height; ++y)
        context.rows[y] = context.image->scanLine(int(y));
    png_read_image(png, context.rows.data());
    png_read_end(png, info);
    return true;
}

std::vector<TPngText> TextsOf(png_structp png, png_infop info) {
    std::vector<TPngText> texts;
    png_textp entries = nullptr;
    const int count = png_get_text(png, info, &entries, nullptr);
    for (int i = 0; i < count; ++i) {
        texts.push_back(
            {QByteArray(entries[i].key), QByteArray(entries[i].text, int(entries[i].text_length))});
    }
    return texts;
}

struct WriteContext {
    QByteArray* out = nullptr;
    char error[160] = {};
    std::vector<png_text> texts;
    std::vector<png_bytep> rows;
};

void OnWriteError(png_structp png, png_const_charp message) {
    auto* context = static_cast<WriteContext*>(png_get_error_ptr(png));
    std::snprintf(context->error, sizeof context->error, "%s", message);
    png_longjmp(png, 1);
}

void OnWrite(png_structp png, png_bytep data, png_size_t length) {
    auto* context = static_cast<WriteContext*>(png_get_io_ptr(png));
    context->out->append(reinterpret_cast<const char*>(data), qsizetype(length));
}

void OnFlush(png_structp) {}

bool IsOpaque(const QImage& straight) {
    for (int y = 0; y < straight.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(straight.constScanLine(y));
        for (int x = 0; x < straight.width(); ++x)
            if (qAlpha(line[x]) != 255) return false;
    }
    return true;
}

bool WritePixels(png_structp png, png_infop info, const QImage& straight, bool opaque,
                 WriteContext& context) {
    if (setjmp(png_jmpbuf(png))) return false;
    png_set_write_fn(png, &context, OnWrite, OnFlush);
    png_set_IHDR(png, info, png_uint_32(straight.width()), png_uint_32(straight.height()), 8,
                 opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (!context.texts.empty())
        png_set_text(png, info, context.texts.data(), int(context.texts.size()));
    png_write_info(png, info);
    png_set_bgr(png);
    if (opaque) png_set_filler(png, 0, PNG_FILLER_AFTER);
    png_write_image(png, context.rows.data());
    png_write_end(png, info);
    return true;
}

}  // namespace

bool HasPngSignature(const QByteArray& bytes) {
    return bytes.size() >= 8 &&
           png_sig_cmp(reinterpret_cast<png_const_bytep>(bytes.constData()), 0, 8) == 0;
}

TDecodedPng DecodePng(const QByteArray& bytes) {
    TDecodedPng result;
    if (!HasPngSignature(bytes)) {
        result.Error = QStringLiteral("not a PNG stream");
        return result;
    }
    ReadContext context;
    context.data = reinterpret_cast<const uint8_t*>(bytes.constData());
    context.size = size_t(bytes.size());
    QImage image;
    context.image = &image;
    png_structp png = png_create_read_struct_2(PNG_LIBPNG_VER_STRING, &context, OnError, OnWarning,
                                               nullptr, BoundedMalloc, PlainFree);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info) {
        png_destroy_read_struct(&png, nullptr, nullptr);
        result.Error = QStringLiteral("out of memory");
        return result;
    }
    if (ReadPixels(png, info, context)) {
        image.convertTo(QImage::Format_ARGB32_Premultiplied);  // in place: no second buffer
        result.Pixels = std::move(image);
        result.Texts = TextsOf(png, info);
    } else {
        result.Error = QString::fromLatin1(context.error);
    }
    png_destroy_read_struct(&png, &info, nullptr);
    return result;
}

QByteArray EncodePng(const QImage& pixels, const std::vector<TPngText>& texts) {
    if (pixels.isNull()) return {};
    const QImage straight = pixels.convertToFormat(QImage::Format_ARGB32);
    QByteArray out;
    WriteContext context;
    context.out = &out;
    for (const TPngText& text : texts) {
        png_text entry{};
        entry.compression = PNG_TEXT_COMPRESSION_NONE;
        entry.key = const_cast<char*>(text.Keyword.constData());
        entry.text = const_cast<char*>(text.Text.constData());
        entry.text_length = size_t(text.Text.size());
        context.texts.push_back(entry);
    }
    for (int y = 0; y < straight.height(); ++y)
        context.rows.push_back(const_cast<png_bytep>(straight.constScanLine(y)));
    png_structp png =
        png_create_write_struct(PNG_LIBPNG_VER_STRING, &context, OnWriteError, OnWarning);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    const bool written = info && WritePixels(png, info, straight, IsOpaque(straight), context);
    png_destroy_write_struct(&png, info ? &info : nullptr);
    return written ? out : QByteArray();
}

}  // namespace qpt
