// From the start of a process to the moment its picture is on the screen of
// a private X server, for QptPin and, side by side in the same run, for a
// plain image viewer showing the same picture borderless at the same place,
// and for the least a Qt program needs to do the same: the toolkit's floor.
// All are timed the same way: the bench polls the screen pixel at the
// middle of the picture until it turns the picture's colour. Each run is a
// new process. Beside that wall time, which a loaded machine stretches, the
// counter cpu_ms is the processor time each program had used when it first
// sent pixels to the server (a preloaded probe notes it).
#include <benchmark/benchmark.h>
#include <xcb/xcb.h>

#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/common/ScratchHome.h"
#include "tests/common/VirtualDisplay.h"

namespace {

using namespace qpt;

constexpr uint32_t kPictureColour = 0x3C78B4;

// One pixel of the root window, read back from the server.
class ScreenProbe {
public:
    explicit ScreenProbe(const QString& display)
        : connection_(xcb_connect(display.toLocal8Bit().constData(), nullptr)) {
        if (xcb_connection_has_error(connection_)) return;
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }
    ~ScreenProbe() { xcb_disconnect(connection_); }
    bool ok() const { return root_ != 0; }

    uint32_t Pixel(int x, int y) const {
        auto cookie = xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_, int16_t(x),
                                    int16_t(y), 1, 1, ~0u);
        std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply(
            xcb_get_image_reply(connection_, cookie, nullptr), &std::free);
        if (!reply || xcb_get_image_data_length(reply.get()) < 4) return 0;
        uint32_t value;
        std::memcpy(&value, xcb_get_image_data(reply.get()), 4);
        return value & 0xFFFFFF;
    }

private:
    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
};

struct Launch {
    QString program;
    QStringList arguments;
};

enum class TProgram { QptPin, Viewer, MinimalQt };

Launch LaunchOf(TProgram program, const QString& file, QSize size) {
    switch (program) {
        case TProgram::Viewer: {
            const QString geometry = QString("%1x%2+0+0").arg(size.width()).arg(size.height());
            return {QStandardPaths::findExecutable("feh"),
                    {"--borderless", "--geometry", geometry, file}};
        }
        case TProgram::MinimalQt:
            return {QPT_MINIMAL_PICTURE, {file}};
        case TProgram::QptPin:
            break;
    }
    return {QPT_PROGRAM_DIR "/QptPin", {"/QPTMain"}};
}

// The processor time the probe noted for the last run, -1 when none.
double FirstPaintCpuMs(const QString& noteFile) {
    QFile file(noteFile);
    if (!file.open(QIODevice::ReadOnly)) return -1;
    bool ok = false;
    const double ms = file.readAll().trimmed().toDouble(&ok);
    return ok ? ms : -1;
}

void TimeToPictureOnScreen(benchmark::State& state, TProgram which) {
    const int width = int(state.range(0)), height = int(state.range(1));
    testing::VirtualDisplay display(3840, 2160);
    if (!display.isRunning()) return state.SkipWithError("no Xvfb");
    ScreenProbe probe(display.name());
    if (!probe.ok()) return state.SkipWithError("no connection to Xvfb");
    testing::ScratchHome home;
    QImage picture(width, height, QImage::Format_RGB888);
    picture.fill(QColor(QRgb(kPictureColour)));
    const QString file = GetTempFolder() + "QPTPinTemp.bmp";
    picture.save(file, "BMP");
    WriteMainIni("StartPin", "Left", "0");
    WriteMainIni("StartPin", "Top", "0");
    WriteMainIni("StartPin", "Right", QString::number(width));
    WriteMainIni("StartPin", "Bottom", QString::number(height));
    const Launch launch = LaunchOf(which, file, QSize(width, height));
    if (launch.program.isEmpty()) return state.SkipWithError("no image viewer installed");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", display.name());
    environment.insert("QT_QPA_PLATFORM", "xcb");
    const QString noteFile = home.root() + "first-paint-cpu";
    environment.insert("QPT_FIRST_PAINT_FILE", noteFile);
    environment.insert("LD_PRELOAD", QPT_FIRST_PAINT_PROBE);
    for (auto _ : state) {
        QFile::remove(noteFile);
        QProcess program;
        program.setProcessEnvironment(environment);
        QElapsedTimer clock;
        clock.start();
        program.start(launch.program, launch.arguments);
        bool shown = false;
        // Half a millisecond between looks leaves the processor to the program.
        while (!(shown = probe.Pixel(width / 2, height / 2) == kPictureColour) &&
               clock.elapsed() < 10000)
            QThread::usleep(500);
        state.SetIterationTime(double(clock.nsecsElapsed()) / 1e9);
        program.kill();
        program.waitForFinished();
        if (!shown) return state.SkipWithError("the picture never showed");
        state.counters["cpu_ms"] = FirstPaintCpuMs(noteFile);
        // The next run must start from a screen without the picture.
        while (probe.Pixel(width / 2, height / 2) == kPictureColour && clock.elapsed() < 20000)
            QThread::usleep(500);
    }
}

void BM_QptPinToPictureOnScreen(benchmark::State& state) {
    TimeToPictureOnScreen(state, TProgram::QptPin);
}
void BM_ViewerToPictureOnScreen(benchmark::State& state) {
    TimeToPictureOnScreen(state, TProgram::Viewer);
}
void BM_MinimalQtToPictureOnScreen(benchmark::State& state) {
    TimeToPictureOnScreen(state, TProgram::MinimalQt);
}

#define QPT_START_BENCH(name)        \
    BENCHMARK(name)                  \
        ->Args({1920, 1080})         \
        ->Args({3840, 2160})         \
        ->UseManualTime()            \
        ->Iterations(1)              \
        ->Repetitions(10)            \
        ->ReportAggregatesOnly(true) \
        ->Unit(benchmark::kMillisecond)

QPT_START_BENCH(BM_QptPinToPictureOnScreen);
QPT_START_BENCH(BM_ViewerToPictureOnScreen);
QPT_START_BENCH(BM_MinimalQtToPictureOnScreen);

}  // namespace
