// From the start of QptPin to the first paint of its window, on a private X
// server, for a full-HD and a 4K picture. Each run is a new process.
#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QImage>
#include <QProcess>

#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/common/ScratchHome.h"
#include "tests/common/VirtualDisplay.h"

namespace {

using namespace qpt;

void BM_StartToFirstPaint(benchmark::State& state) {
    const int width = int(state.range(0)), height = int(state.range(1));
    testing::VirtualDisplay display(3840, 2160);
    if (!display.isRunning()) return state.SkipWithError("no Xvfb");
    testing::ScratchHome home;
    QImage picture(width, height, QImage::Format_RGB888);
    picture.fill(QColor(60, 120, 180));
    picture.save(GetTempFolder() + "QPTPinTemp.bmp", "BMP");
    WriteMainIni("StartPin", "Left", "0");
    WriteMainIni("StartPin", "Top", "0");
    WriteMainIni("StartPin", "Right", QString::number(width));
    WriteMainIni("StartPin", "Bottom", QString::number(height));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", display.name());
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("QPT_DEBUG", "1");
    for (auto _ : state) {
        QProcess program;
        program.setProcessEnvironment(environment);
        QElapsedTimer clock;
        clock.start();
        program.start(QPT_PROGRAM_DIR "/QptPin", {"/QPTMain"});
        QByteArray errors;
        while (!errors.contains("first paint") && clock.elapsed() < 10000) {
            program.waitForReadyRead(5);
            errors += program.readAllStandardError();
        }
        state.SetIterationTime(clock.nsecsElapsed() / 1e9);
        program.kill();
        program.waitForFinished();
        if (!errors.contains("first paint")) return state.SkipWithError("no first paint");
    }
}
BENCHMARK(BM_StartToFirstPaint)
    ->Args({1920, 1080})
    ->Args({3840, 2160})
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(10)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMillisecond);

}  // namespace
