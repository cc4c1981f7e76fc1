// Pixelation of a whole 4K screenshot, the bound being 15 ms, and one
// mosaic stroke across it as the mouse drives it (preview paints included).
#include <benchmark/benchmark.h>

#include <random>

#include "imaging/IEPixelize.h"
#include "imaging/IERetouchToolInteraction.h"
#include "imaging/IEViewMapping.h"
#include "tests/imaging/InteractionTestView.h"

namespace {

void FillNoise(qpt::TIEBitmap& b) {
    std::mt19937 rng(7);
    for (int y = 0; y < b.Height(); ++y) {
        uint8_t* row = b.Scanline(y);
        for (int i = 0; i < b.Width() * 3; ++i)
            row[i] = uint8_t(rng());
    }
}

void BM_Pixelize4K(benchmark::State& state) {
    qpt::TIEBitmap picture(3840, 2160, qpt::ie24RGB);
    FillNoise(picture);
    const int block = int(state.range(0));
    for (auto _ : state) {
        qpt::Pixelize(picture, nullptr, block, 0, 0, picture.Width() - 1, picture.Height() - 1);
        benchmark::DoNotOptimize(picture.Scanline(0));
    }
    state.SetBytesProcessed(state.iterations() * int64_t(picture.RowLen()) * picture.Height());
}
BENCHMARK(BM_Pixelize4K)->Arg(2)->Arg(10)->Arg(30)->Unit(benchmark::kMillisecond);

// A diagonal stroke of brush 40 over a 4K picture in 8-pixel mouse steps,
// with a preview paint per move and the merge at the end.
void BM_RetouchStroke4K(benchmark::State& state) {
    qpt::testing::TInteractionTestView view(3840, 2160);
    FillNoise(view.Picture());
    view.UndoStore().SetUndoLimit(0);  // the stroke, not the undo copy
    qpt::TIERetouchToolInteraction tool(view);
    tool.SetEnabled(true);
    tool.SetRetouchMode(qpt::TIERetouchToolInteraction::kPixelateMode);
    tool.SetBrushSize(40);
    qpt::TIEViewMapping mapping;
    mapping.SetLayout(3840, 2160, 3840, 2160);
    qpt::TIEBitmap back(3840, 2160, qpt::ie24RGB);
    for (auto _ : state) {
        tool.MouseDown(qpt::mbLeft, 0, 100, 100);
        for (int i = 1; i <= 100; ++i) {
            tool.MouseMove(qpt::ssLeft, 100 + 8 * i, 100 + 4 * i);
            tool.Paint(back, mapping);
        }
        tool.MouseUp(qpt::mbLeft, 0, 900, 500);
    }
}
BENCHMARK(BM_RetouchStroke4K)->Unit(benchmark::kMillisecond);

}  // namespace
