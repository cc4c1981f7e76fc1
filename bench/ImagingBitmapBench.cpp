// Loading a 4K 24-bit capture: our reader against QImage on the same file,
// allocation included in both.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>

#include "imaging/IEBmpReader.h"
#include "imaging/IEBmpWriter.h"

namespace {

const QString& CaptureFile() {
    static QTemporaryDir dir;
    static const QString path = [] {
        qpt::TIEBitmap picture(3840, 2160, qpt::ie24RGB);
        for (int y = 0; y < picture.Height(); ++y)
            for (int64_t x = 0; x < picture.RowLen(); ++x)
                picture.Scanline(y)[x] = uint8_t(x ^ y);
        const QString file = dir.filePath("capture.bmp");
        qpt::IEWriteBmpFile(picture, file);
        return file;
    }();
    return path;
}

void BM_LoadBmp4K_Reader(benchmark::State& state) {
    const QString& path = CaptureFile();
    for (auto _ : state) {
        qpt::TIEBitmap picture;
        qpt::TIEFileSource source(path);
        if (!qpt::IEReadBmp(source, picture)) state.SkipWithError("load failed");
        benchmark::DoNotOptimize(picture.Scanline(1000)[5]);
    }
}
BENCHMARK(BM_LoadBmp4K_Reader)->Unit(benchmark::kMillisecond);

void BM_LoadBmp4K_QImage(benchmark::State& state) {
    const QString& path = CaptureFile();
    for (auto _ : state) {
        QImage image(path, "BMP");
        if (image.isNull()) state.SkipWithError("load failed");
        benchmark::DoNotOptimize(image.constScanLine(1000)[5]);
    }
}
BENCHMARK(BM_LoadBmp4K_QImage)->Unit(benchmark::kMillisecond);

// Row access of a file-backed bitmap, the store of every undo picture.
void BM_FileBitmapAssign4K(benchmark::State& state) {
    qpt::TIEBitmap picture(3840, 2160, qpt::ie24RGB);
    picture.Fill(0x00405060);
    QTemporaryDir dir;
    qpt::IESetTempFolder(dir.path());
    for (auto _ : state) {
        qpt::TIEBitmap copy;
        copy.SetMinFileSize(0);
        copy.Assign(picture);
        benchmark::DoNotOptimize(copy.Scanline(2000)[9]);
    }
    qpt::IESetTempFolder({});
}
BENCHMARK(BM_FileBitmapAssign4K)->Unit(benchmark::kMillisecond);

}  // namespace
