// A hundred image undo steps of a 4K picture: the time per step and how much
// the process's resident memory grows while they are held.
#include <benchmark/benchmark.h>

#include <QTemporaryDir>
#include <cstdio>
#include <cstring>

#include "imaging/IEImageLayer.h"
#include "imaging/IEImageProc.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerUndoTarget.h"

namespace {

// VmRSS of this process in bytes.
double ResidentBytes() {
    FILE* f = std::fopen("/proc/self/status", "re");
    if (!f) return 0;
    char line[256];
    long long kb = 0;
    while (std::fgets(line, sizeof line, f))
        if (std::sscanf(line, "VmRSS: %lld kB", &kb) == 1) break;
    std::fclose(f);
    return double(kb) * 1024;
}

void BM_Undo100ImageSteps4K(benchmark::State& state) {
    QTemporaryDir dir;
    qpt::IESetTempFolder(dir.path());
    double growth = 0, held = 0;
    for (auto _ : state) {
        qpt::TIELayerList layers;
        qpt::TIEBitmap* picture = layers.Background().Bitmap();
        picture->Allocate(3840, 2160, qpt::ie24RGB);
        picture->Fill(0x00808080);
        qpt::TIELayerUndoTarget target(layers);
        qpt::TIEImageProc proc(&target);
        proc.SetUndoLimit(100);
        const double before = ResidentBytes();
        for (int step = 0; step < 100; ++step) {
            proc.SaveUndo(qpt::ieuImage);
            std::memset(picture->Scanline(step * 20), step, size_t(picture->RowLen()));
        }
        growth = ResidentBytes() - before;
        held = before;
        if (proc.UndoCount() != 100) state.SkipWithError("steps missing");
        proc.Undo(true);
        benchmark::DoNotOptimize(picture->Scanline(1980)[0]);
    }
    // The resident size before the steps shows that the reading works: it
    // holds at least the picture itself.
    state.counters["rss_before_MB"] = held / (1024.0 * 1024.0);
    state.counters["rss_growth_MB"] = growth / (1024.0 * 1024.0);
    state.counters["time_per_step"] =
        benchmark::Counter(100.0 * double(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    qpt::IESetTempFolder({});
}
BENCHMARK(BM_Undo100ImageSteps4K)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace
