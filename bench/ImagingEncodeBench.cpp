// Writing a 4K screenshot: our encoders against QImage::save on the same
// pixels, each into memory so that the disk does not count. The file size
// of each result is reported as the counter "bytes".
//
// Picture 0 is a desktop: a photograph-like wallpaper, the skin gallery's
// real interface pixels, an editor full of text and the sample report
// window. Picture 1 is the sample report alone, drawn at 4K.
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

#include "bench/BenchApplication.h"
#include "imaging/encode/IEGifEncoder.h"
#include "imaging/encode/IEJpegEncoder.h"
#include "imaging/encode/IEPngEncoder.h"
#include "imaging/encode/IETiffEncoder.h"

namespace {

constexpr int kW = 3840, kH = 2160, kJpegQuality = 90;

double Lattice(int x, int y, int octave) {
    uint32_t h =
        uint32_t(x) * 374761393u + uint32_t(y) * 668265263u + uint32_t(octave) * 2246822519u;
    h = (h ^ (h >> 13)) * 1274126177u;
    return double((h ^ (h >> 16)) & 0xFFFF) / 65535.0;
}

// Value noise, smoothly interpolated: landscape-like detail at every scale.
double Fractal(int px, int py) {
    double sum = 0, amplitude = 0.5, frequency = 1.0 / 512;
    for (int octave = 0; octave < 10; ++octave, amplitude *= 0.62, frequency *= 2) {
        const double x = px * frequency, y = py * frequency;
        const int xi = int(x), yi = int(y);
        double fx = x - xi, fy = y - yi;
        fx = fx * fx * (3 - 2 * fx), fy = fy * fy * (3 - 2 * fy);
        const double top = Lattice(xi, yi, octave) * (1 - fx) + Lattice(xi + 1, yi, octave) * fx;
        const double bottom =
            Lattice(xi, yi + 1, octave) * (1 - fx) + Lattice(xi + 1, yi + 1, octave) * fx;
        sum += amplitude * (top * (1 - fy) + bottom * fy);
    }
    return sum;
}

void PaintWallpaper(QImage& image) {
    for (int y = 0; y < kH; ++y) {
        uchar* row = image.scanLine(y);
        for (int x = 0; x < kW; ++x, row += 3) {
            const double v = Fractal(x, y), t = double(y) / kH;
            const bool land = v + (y - 1000.0) / kH >= 0.55;
            const double r = land ? 50 + 120 * v : 60 + 80 * t + 40 * v;
            const double g = land ? 80 + 110 * v : 110 + 90 * t + 40 * v;
            const double b = land ? 40 + 60 * v : 170 + 60 * t + 30 * v;
            row[0] = uchar(std::clamp(r, 0.0, 255.0)), row[1] = uchar(std::clamp(g, 0.0, 255.0));
            row[2] = uchar(std::clamp(b, 0.0, 255.0));
        }
    }
}

void PaintEditor(QPainter& p, const QRect& area) {
    p.fillRect(area, QColor(0x1e, 0x1f, 0x22));
    p.fillRect(area.left(), area.top(), area.width(), 32, QColor(0x2b, 0x2d, 0x30));
    QFont font("DejaVu Sans Mono");
    font.setPixelSize(15);
    p.setFont(font);
    const char* words[] = {"int", "return", "const",   "auto",   "std::vector<uint8_t>",
                           "row", "(",      ")",       "{",      "}",
                           ";",   "width",  "height",  "stride", "for",
                           "if",  "++y",    "nullptr", "band",   "=",
                           "+",   "*"};
    uint32_t seed = 12345;
    for (int line = 0; line < 60; ++line) {
        QString text(int(seed >> 3) % 4 * 4, ' ');
        for (int w = 3 + int(seed >> 7) % 9; w > 0; --w) {
            seed = seed * 1103515245 + 12345;
            text += QString(words[(seed >> 16) % std::size(words)]) + ' ';
        }
        const int y = area.top() + 60 + line * 18;
        p.setPen(QColor::fromHsv(int(seed >> 8) % 360, 80, 220));
        p.drawText(area.left() + 50, y, text);
        p.setPen(QColor(120, 120, 120));
        p.drawText(area.left() + 8, y, QString::number(line + 1));
    }
}

QImage MakePicture(int which) {
    QImage image(kW, kH, QImage::Format_RGB888);
    QPainter p(&image);
    QSvgRenderer sample(QStringLiteral(QPT_SOURCE_DIR "/tools/StandInHost/sample-screenshot.svg"));
    if (which == 1) {
        sample.render(&p);
        return image;
    }
    p.end();
    PaintWallpaper(image);
    p.begin(&image);
    p.drawImage(60, 40, QImage(QStringLiteral(QPT_SOURCE_DIR "/docs/gallery-classic.png")), 0, 0,
                1460, 2000);
    p.drawImage(2300, 100, QImage(QStringLiteral(QPT_SOURCE_DIR "/docs/gallery-classic2.png")), 0,
                0, 1460, 1400);
    sample.render(&p, QRectF(1560, 1300, 1600, 1000));
    PaintEditor(p, QRect(1560, 80, 1300, 1150));
    p.fillRect(0, kH - 48, kW, 48, QColor(30, 34, 40, 230));
    return image;
}

// The picture as the engine holds it (B, G, R bytes) and as a 32-bit
// surface, which is what QImage needs to write an RGBA file.
struct TPictures {
    QImage Bgr, Argb;
};

const TPictures& Picture(int which) {
    static TPictures pictures[2];
    if (pictures[which].Bgr.isNull()) {
        qpt::EnsureBenchApplication();
        const QImage rgb = MakePicture(which);
        pictures[which] = {rgb.convertToFormat(QImage::Format_BGR888),
                           rgb.convertToFormat(QImage::Format_ARGB32)};
    }
    return pictures[which];
}

qpt::TIEPixelView ViewOf(const QImage& bgr) {
    return {bgr.constBits(), bgr.width(), bgr.height(), bgr.bytesPerLine(),
            qpt::TIEPixelLayout::Bgr24};
}

template <class Encode>
void RunOurs(benchmark::State& state, const Encode& encode) {
    const qpt::TIEPixelView view = ViewOf(Picture(int(state.range(0))).Bgr);
    size_t bytes = 0;
    for (auto _ : state) {
        std::vector<uint8_t> out;
        if (!encode(view, out)) state.SkipWithError("encode failed");
        bytes = out.size();
    }
    state.counters["bytes"] = double(bytes);
}

void RunQImage(benchmark::State& state, const QImage& image, const char* format, int quality) {
    qint64 bytes = 0;
    for (auto _ : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (!image.save(&buffer, format, quality)) state.SkipWithError("save failed");
        bytes = buffer.size();
    }
    state.counters["bytes"] = double(bytes);
}

// PNG with the opaque alpha channel that the saved files carry.
void BM_PngRgba_QImage(benchmark::State& state) {
    RunQImage(state, Picture(int(state.range(0))).Argb, "PNG", -1);
}
void BM_PngRgba_Ours(benchmark::State& state) {
    RunOurs(state, [](const qpt::TIEPixelView& v, std::vector<uint8_t>& out) {
        return qpt::IEEncodePng(v, out, {qpt::TIEAlphaOut::Opaque, 0});
    });
}
// One band: the processor time that the bands share out.
void BM_PngRgba_OursOneBand(benchmark::State& state) {
    RunOurs(state, [](const qpt::TIEPixelView& v, std::vector<uint8_t>& out) {
        return qpt::IEEncodePng(v, out, {qpt::TIEAlphaOut::Opaque, 1});
    });
}
// PNG without alpha, as the clipboard's picture goes.
void BM_PngRgb_QImage(benchmark::State& state) {
    RunQImage(state, Picture(int(state.range(0))).Bgr, "PNG", -1);
}
void BM_PngRgb_Ours(benchmark::State& state) {
    RunOurs(state, [](const qpt::TIEPixelView& v, std::vector<uint8_t>& out) {
        return qpt::IEEncodePng(v, out);
    });
}
void BM_Jpeg_QImage(benchmark::State& state) {
    RunQImage(state, Picture(int(state.range(0))).Bgr, "JPG", kJpegQuality);
}
void BM_Jpeg_Ours(benchmark::State& state) {
    RunOurs(state, [](const qpt::TIEPixelView& v, std::vector<uint8_t>& out) {
        return qpt::IEEncodeJpeg(v, kJpegQuality, out);
    });
}
void BM_Tiff_Ours(benchmark::State& state) {
    RunOurs(state, [](const qpt::TIEPixelView& v, std::vector<uint8_t>& out) {
        return qpt::IEEncodeTiff(v, qpt::TIEAlphaOut::Opaque, out);
    });
}
void BM_Gif_Ours(benchmark::State& state) {
    RunOurs(state, [](const qpt::TIEPixelView& v, std::vector<uint8_t>& out) {
        return qpt::IEEncodeGif(v, out);
    });
}

// Wall time is the measure, since the bands run on other threads; processor
// time counts every thread of the process, which on a busy machine is the
// steadier figure of the work done.
#define QPT_ENCODE_BENCH(name)          \
    BENCHMARK(name)                     \
        ->Arg(0)                        \
        ->Arg(1)                        \
        ->Unit(benchmark::kMillisecond) \
        ->MeasureProcessCPUTime()       \
        ->UseRealTime()
QPT_ENCODE_BENCH(BM_PngRgba_QImage);
QPT_ENCODE_BENCH(BM_PngRgba_Ours);
QPT_ENCODE_BENCH(BM_PngRgba_OursOneBand);
QPT_ENCODE_BENCH(BM_PngRgb_QImage);
QPT_ENCODE_BENCH(BM_PngRgb_Ours);
QPT_ENCODE_BENCH(BM_Jpeg_QImage);
QPT_ENCODE_BENCH(BM_Jpeg_Ours);
QPT_ENCODE_BENCH(BM_Tiff_Ours);
QPT_ENCODE_BENCH(BM_Gif_Ours);

}  // namespace
