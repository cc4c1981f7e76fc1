#include "imaging/view/IEViewBlit.h"

#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#include "imaging/IEBitmap.h"

namespace qpt {

namespace {

// Rows of a strip: small enough to stay in the cache between widening and
// drawing.
constexpr int kStripRows = 32;

#if defined(__x86_64__)
// Four pixels a step: one shuffle spreads twelve bytes over sixteen and the
// gaps are filled with 0xFF. The load reads four bytes beyond the twelve, so
// the last pixels are left to the plain loop.
__attribute__((target("ssse3"))) int WidenFours(const uint8_t* source, uint32_t* target,
                                                int count) {
    const __m128i spread = _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    const __m128i opaque = _mm_set1_epi32(int(0xFF000000u));
    int x = 0;
    for (; x + 6 <= count; x += 4) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + 3 * x));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target + x),
                         _mm_or_si128(_mm_shuffle_epi8(bytes, spread), opaque));
    }
    return x;
}
#endif

int WidenVector(const uint8_t* source, uint32_t* target, int count) {
#if defined(__x86_64__)
    static const bool has = __builtin_cpu_supports("ssse3");
    if (has) return WidenFours(source, target, count);
#endif
    (void)source, (void)target, (void)count;
    return 0;
}

}  // namespace

// A 4-byte load takes one pixel and the first byte of the next, which the
// top byte then covers; the last pixel is put together byte by byte, since
// nothing may be read past the row.
void IEWidenBgrRow(const uint8_t* source, uint32_t* target, int count) {
    if (count < 1) return;
    for (int x = WidenVector(source, target, count); x < count - 1; ++x) {
        uint32_t pixel;
        std::memcpy(&pixel, source + 3 * x, 4);
        target[x] = pixel | 0xFF000000u;
    }
    const uint8_t* last = source + 3 * (count - 1);
    target[count - 1] = 0xFF000000u | uint32_t(last[2]) << 16 | uint32_t(last[1]) << 8 | last[0];
}

namespace {

// The image a painter draws on, where the painter's origin lies in it and
// the part of it the painter may change, when pixels can be stored there as
// they are: an unshared 32-bit image at scale 1, a painter that only moves
// the origin, draws fully opaque and has no clip of its own.
struct TDirectTarget {
    QImage* image = nullptr;
    QPoint origin;
    QRegion allowed;
};

bool TakesOpaqueRgb32(const QImage& image) {
    const QImage::Format format = image.format();
    return (format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
            format == QImage::Format_ARGB32_Premultiplied) &&
           image.devicePixelRatio() == 1.0 && image.isDetached();
}

TDirectTarget DirectTarget(QPainter& painter) {
    QPaintEngine* engine = painter.paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster || painter.hasClipping() ||
        painter.opacity() != 1.0 ||
        painter.compositionMode() != QPainter::CompositionMode_SourceOver)
        return {};
    QPaintDevice* device = engine->paintDevice();
    if (!device || device->devType() != QInternal::Image) return {};
    auto* image = static_cast<QImage*>(device);
    const QTransform move = painter.deviceTransform();
    if (!TakesOpaqueRgb32(*image) || move.type() > QTransform::TxTranslate ||
        move.dx() != std::floor(move.dx()) || move.dy() != std::floor(move.dy()))
        return {};
    // No system clip means the whole device.
    const QRegion clip = engine->systemClip();
    return {image, QPoint(int(move.dx()), int(move.dy())),
            clip.isEmpty() ? QRegion(image->rect()) : clip & image->rect()};
}

}  // namespace

void TIEViewBlit::Paint(QPainter& painter, TIEBitmap& back, const QRect& area) {
    if (area.isEmpty()) return;
    const TDirectTarget target = DirectTarget(painter);
    if (!target.image) return PaintThroughStrips(painter, back, area);
    const QPoint o = target.origin;
    const QRegion painted = target.allowed.intersected(area.translated(o));
    for (const QRect& r : painted)
        for (int y = r.top(); y <= r.bottom(); ++y)
            IEWidenBgrRow(back.Scanline(y - o.y()) + 3 * (r.left() - o.x()),
                          reinterpret_cast<uint32_t*>(target.image->scanLine(y)) + r.left(),
                          r.width());
}

void TIEViewBlit::PaintThroughStrips(QPainter& painter, TIEBitmap& back, const QRect& area) {
    if (strip_.width() < area.width())
        strip_ = QImage(area.width(), kStripRows, QImage::Format_RGB32);
    for (int y = area.top(); y <= area.bottom(); y += kStripRows) {
        const int rows = std::min(kStripRows, area.bottom() + 1 - y);
        for (int i = 0; i < rows; ++i)
            IEWidenBgrRow(back.Scanline(y + i) + 3 * area.left(),
                          reinterpret_cast<uint32_t*>(strip_.scanLine(i)), area.width());
        painter.drawImage(QPoint(area.left(), y), strip_, QRect(0, 0, area.width(), rows));
    }
}

}  // namespace qpt
