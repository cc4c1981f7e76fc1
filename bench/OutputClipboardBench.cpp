// Copy of a 4K screenshot, on a private X server: the whole copy from the
// click to the end of the session with the holder owning the clipboard
// (bound: 150 ms), the hand-over alone from its start until the holder has
// reported owning the clipboard,
// the part of it that writes the picture into the memory file, and the
// holder's answers to pastes, before and after its PNG is ready.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <chrono>
#include <cstdlib>

#include "app/session/SessionForms.h"
#include "bench/BenchApplication.h"
#include "imaging/IEBmpWriter.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/view/IEImageView.h"
#include "output/ClipboardHandOver.h"
#include "output/CopyFlow.h"
#include "support/MainIni.h"
#include "support/ProcessExit.h"
#include "tests/common/PasteClient.h"
#include "tests/common/ScratchHome.h"
#include "tests/common/VirtualDisplay.h"

namespace {

using qpt::testing::PasteClient;
constexpr int kW = 3840, kH = 2160;
const QString kHolder = QStringLiteral(QPT_PROGRAM_DIR "/QptClipboard");

// The stand-in host's sample screen, drawn at 4K: flat colours, text and a
// chart, the kind of picture that compresses well.
const qpt::TIEBitmap& Screenshot() {
    static qpt::TIEBitmap picture = [] {
        QImage image(kW, kH, QImage::Format_RGB888);
        image.fill(Qt::white);
        QPainter painter(&image);
        QSvgRenderer(QStringLiteral(QPT_SOURCE_DIR "/tools/StandInHost/sample-screenshot.svg"))
            .render(&painter);
        painter.end();
        qpt::TIEBitmap bitmap;
        bitmap.Assign(image);
        return bitmap;
    }();
    return picture;
}

// Gradients with grain in the low bits: a photograph's PNG, several MB.
const qpt::TIEBitmap& Photo() {
    static qpt::TIEBitmap picture = [] {
        qpt::TIEBitmap bitmap(kW, kH, qpt::ie24RGB);
        uint32_t grain = 2463534242u;
        for (int y = 0; y < kH; ++y) {
            uint8_t* row = bitmap.Scanline(y);
            for (int x = 0; x < kW * 3; ++x) {
                grain ^= grain << 13, grain ^= grain >> 17, grain ^= grain << 5;
                row[x] = uint8_t((x / 3 * 200 / kW + y * 50 / kH + int(grain & 3)) & 0xFF);
            }
        }
        return bitmap;
    }();
    return picture;
}

const qpt::TIEBitmap& Picture(int64_t which) {
    return which == 0 ? Screenshot() : Photo();
}

QString Display() {
    static qpt::testing::VirtualDisplay display(kW, kH);
    ::setenv("DISPLAY", display.name().toLatin1().constData(), 1);
    return display.name();
}

void Prepare() {
    qpt::EnsureBenchApplication<QApplication>();
    Display();
    Screenshot();
}

double Seconds(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

// Each holder is left to finish its PNG before the next copy, as it would
// after the program has gone, so that no copy competes with the encoding
// of the one before.
void BM_HandPictureToClipboard(benchmark::State& state) {
    Prepare();
    PasteClient client(Display());
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        if (!qpt::HandPictureToClipboard(Screenshot(), kHolder)) state.SkipWithError("not owned");
        state.SetIterationTime(Seconds(start));
        client.Paste("image/png");
    }
}
BENCHMARK(BM_HandPictureToClipboard)->Unit(benchmark::kMillisecond)->UseManualTime();

struct SessionEnded {};

// The view as the user leaves it: the picture and `marks` rectangles on it.
void DrawOn(qpt::TIEImageView& view, int64_t marks) {
    view.Layers().Background().Bitmap()->Assign(Screenshot());
    view.Layers().Background().FitToBitmap();
    for (int64_t i = 0; i < marks; ++i) {
        const auto n = static_cast<qreal>(i);
        auto* mark = static_cast<qpt::TIEShapeLayer*>(view.Layers().LayersAdd(
            qpt::ielkShape, QPointF(100 + 300 * n, 100 + 150 * n), QSizeF(600, 400), false));
        mark->Shape = qpt::iesRectangle;
        mark->BorderColor = 0x0000FF;
        mark->Changed();
    }
    view.Update();
}

// The copy as the click runs it: the marks burnt in, the hand-over, the
// notice, and the end of the session, which here returns to the loop
// instead of ending the process. The tip is turned off, as its wait is the
// user's. Argument: the number of marks.
void BM_CopyFromTheClick(benchmark::State& state) {
    Prepare();
    qpt::testing::ScratchHome home;
    qpt::WriteMainIni("Screenshot", "ClipboardShow", "1");
    qpt::SetProcessExitObserver([](int) { throw SessionEnded{}; });
    qpt::TIEImageView view;
    view.resize(1280, 720);
    qpt::Image_Front = &view;
    PasteClient client(Display());
    for (auto _ : state) {
        DrawOn(view, state.range(0));
        const auto start = std::chrono::steady_clock::now();
        try {
            qpt::CopyToClipboard(kHolder);
            state.SkipWithError("not owned");
            break;
        } catch (const SessionEnded&) {
            state.SetIterationTime(Seconds(start));
        }
        client.Paste("image/png");
    }
    qpt::Image_Front = nullptr;
    qpt::SetProcessExitObserver(nullptr);
}
BENCHMARK(BM_CopyFromTheClick)->Arg(0)->Arg(8)->Unit(benchmark::kMillisecond)->UseManualTime();

// The holder's own share: starting, connecting and taking the clipboard.
void BM_HandTextToClipboard(benchmark::State& state) {
    Prepare();
    for (auto _ : state)
        if (!qpt::HandTextToClipboard("https://i.example.test/abc.png", kHolder))
            state.SkipWithError("not owned");
}
BENCHMARK(BM_HandTextToClipboard)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_WriteBmpIntoMemoryFile(benchmark::State& state) {
    Prepare();
    for (auto _ : state) {
        const int fd = ::memfd_create("bench", MFD_CLOEXEC);
        QFile file;
        file.open(fd, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::DontCloseHandle);
        benchmark::DoNotOptimize(qpt::IEWriteBmp(Screenshot(), file));
        file.close();
        ::close(fd);
    }
}
BENCHMARK(BM_WriteBmpIntoMemoryFile)->Unit(benchmark::kMillisecond)->UseRealTime();

// A paste right after the copy waits for the PNG to be encoded.
void BM_PngPasteRightAfterCopy(benchmark::State& state) {
    Prepare();
    PasteClient client(Display());
    for (auto _ : state) {
        qpt::HandPictureToClipboard(Picture(state.range(0)), kHolder);
        const auto start = std::chrono::steady_clock::now();
        const qpt::testing::Pasted png = client.Paste("image/png");
        state.SetIterationTime(Seconds(start));
        if (!png.converted) state.SkipWithError("no PNG");
        state.counters["bytes"] = double(png.bytes.size());
    }
}
BENCHMARK(BM_PngPasteRightAfterCopy)
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

// A paste of a picture the holder has encoded already: only the transfer.
// Argument 0: the sample screen; 1: the photograph.
void PasteOfHeldPicture(benchmark::State& state, const char* target) {
    Prepare();
    PasteClient client(Display());
    qpt::HandPictureToClipboard(Picture(state.range(0)), kHolder);
    client.Paste(target);
    for (auto _ : state) {
        const qpt::testing::Pasted pasted = client.Paste(target);
        if (!pasted.converted) state.SkipWithError("nothing pasted");
        state.counters["bytes"] = double(pasted.bytes.size());
        state.counters["pieces"] = pasted.pieces;
    }
}
BENCHMARK_CAPTURE(PasteOfHeldPicture, png, "image/png")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(PasteOfHeldPicture, bmp, "image/bmp")
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
