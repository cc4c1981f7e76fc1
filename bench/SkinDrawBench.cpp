#include <benchmark/benchmark.h>

#include <QPainter>

#include "skin/DesignRect.h"
#include "skin/PngImage.h"
#include "skin/SkinDraw.h"

namespace {

// A window background as a skin ships it: rounded, partly transparent corners
// around a flat centre.
QImage Background() {
    QImage image(30, 30, QImage::Format_ARGB32);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x)
            image.setPixel(x, y, qRgba(30 + x, 32 + y, 40, (x < 3 || y < 3) ? 120 : 255));
    return image;
}

void DrawNineSlice(benchmark::State& state, qpt::TSuperStretchMode mode) {
    qpt::TPngImage picture;
    picture.SetPixels(Background());
    qpt::TDesignRect slicing;
    slicing.Set(8, 8, 8, 8, mode);
    QImage target(799, 40, QImage::Format_ARGB32_Premultiplied);
    target.fill(0);
    QPainter painter(&target);
    for (auto _ : state) {
        qpt::SkinDraw(painter, target.rect(), &picture, &slicing);
        benchmark::ClobberMemory();
    }
}

void BM_NineSliceStretch799x40(benchmark::State& state) {
    DrawNineSlice(state, qpt::TSuperStretchMode::sdmStretch);
}
void BM_NineSliceFill799x40(benchmark::State& state) {
    DrawNineSlice(state, qpt::TSuperStretchMode::sdmFill);
}
void BM_NineSliceFrame799x40(benchmark::State& state) {
    DrawNineSlice(state, qpt::TSuperStretchMode::sdmFrame);
}

}  // namespace

BENCHMARK(BM_NineSliceStretch799x40)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_NineSliceFill799x40)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_NineSliceFrame799x40)->Unit(benchmark::kMicrosecond);
