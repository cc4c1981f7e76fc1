#include <benchmark/benchmark.h>

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "bench/BenchApplication.h"
#include "bench/BenchPicture.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IEPolylineLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"
#include "imaging/IEViewCompositor.h"

namespace qpt {
namespace {

constexpr int kW = 3840, kH = 2160, kLayers = 50;

void FillPicture(TIEBitmap& picture) {
    picture.Allocate(kW, kH, ie24RGB);
    bench::FillScreenshotLike(kW, kH, [&](int y) { return picture.Scanline(y); });
}

QPointF LayerPlace(int i) {
    return QPointF(60 + (i * 733) % (kW - 500), 40 + (i * 397) % (kH - 400));
}

// Rectangles, ovals, arrows, 200-point strokes and text, five of each in turn.
void AddLayers(TIELayerList& list) {
    for (int i = 0; i < kLayers; ++i) {
        const QPointF at = LayerPlace(i);
        const TColor color = TColor(0x2040C0 + i * 0x030507);
        switch (i % 5) {
            case 0:
            case 1: {
                auto& s = static_cast<TIEShapeLayer&>(
                    *list.LayersAdd(ielkShape, at, QSizeF(300, 200), false));
                s.Shape = i % 5 == 0 ? iesRectangle : iesEllipse;
                s.SetBorderColor(color);
                s.SetBorderWidth(4);
                s.SetFillColor(i % 2 ? clNone : color);
                s.Opacity = 0.8;
                break;
            }
            case 2: {
                auto& s = static_cast<TIEShapeLayer&>(
                    *list.LayersAdd(ielkShape, at, QSizeF(420, 260), false));
                s.Shape = iesArrow;
                s.ArrowSize = 1;
                s.SetBorderWidth(0);
                s.SetFillColor(color);
                s.DragStart = at.toPoint();
                break;
            }
            case 3: {
                auto& p = static_cast<TIEPolylineLayer&>(
                    *list.LayersAdd(ielkPolyline, std::nullopt, std::nullopt, false));
                p.SetBorderWidth(5);
                p.SetBorderColor(color);
                for (int k = 0; k < 200; ++k)
                    p.AddPoint(at.x() + k * 2, at.y() + 100 + 80 * std::sin(k / 12.0));
                break;
            }
            default: {
                auto& t =
                    static_cast<TIETextLayer&>(*list.LayersAdd(ielkText, at, std::nullopt, false));
                t.SetFont(TIEFont{"DejaVu Sans", 28, color});
                t.SetAutoSize(true);
                t.SetText("Annotation " + QString::number(i));
                break;
            }
        }
        list.GetLayer(list.LayersCount() - 1)->VisibleBox = false;
    }
}

struct Scene {
    TIELayerList list;
    TIEViewCompositor view;
    Scene() {
        EnsureBenchApplication();
        FillPicture(*list.Background().Bitmap());
        list.Background().FitToBitmap();
        AddLayers(list);
        list.SetLayersCurrent(0);
        view.Mapping.SetLayout(kW, kH, kW, kH);
        view.Compose(list);  // builds every cache
    }
};

Scene& SharedScene() {
    static Scene scene;
    return scene;
}

void BM_ComposeFull100(benchmark::State& state) {
    Scene& s = SharedScene();
    for (auto _ : state) {
        s.view.Invalidate();
        s.view.Compose(s.list);
    }
}
BENCHMARK(BM_ComposeFull100)->Unit(benchmark::kMillisecond);

void BM_PlainCopyOfBackBuffer(benchmark::State& state) {
    Scene& s = SharedScene();
    TIEBitmap copy;
    copy.SetLocation(ieMemory);
    copy.Allocate(kW, kH, ie24RGB);
    TIEBitmap& back = s.view.BackBuffer();
    for (auto _ : state) {
        for (int y = 0; y < kH; ++y)
            std::memcpy(copy.Scanline(y), back.Scanline(y), size_t(kW) * 3);
        benchmark::DoNotOptimize(copy.Scanline(0));
    }
}
BENCHMARK(BM_PlainCopyOfBackBuffer)->Unit(benchmark::kMillisecond);

// What a QPainter-based view pays per frame for the same picture and marks.
void BM_QPainterSamePicture(benchmark::State& state) {
    Scene& s = SharedScene();
    QImage picture = s.list.Background().Bitmap()->WrapQImage().copy();
    QImage target(kW, kH, QImage::Format_RGB888);
    for (auto _ : state) {
        QPainter p(&target);
        p.drawImage(0, 0, picture);
        p.setRenderHint(QPainter::Antialiasing);
        for (int i = 0; i < kLayers; ++i) {
            const QPointF at = LayerPlace(i);
            const QColor c(0x20 + i * 7, 0x40 + i * 5, 0xC0, 204);
            p.setPen(QPen(c, 4));
            p.setBrush(i % 2 ? Qt::NoBrush : QBrush(c));
            switch (i % 5) {
                case 0:
                    p.drawRect(QRectF(at, QSizeF(300, 200)));
                    break;
                case 1:
                    p.drawEllipse(QRectF(at, QSizeF(300, 200)));
                    break;
                case 2: {
                    const QPointF pts[] = {at,
                                           at + QPointF(395, 248),
                                           at + QPointF(392, 240),
                                           at + QPointF(420, 260),
                                           at + QPointF(400, 232),
                                           at + QPointF(397, 239)};
                    p.drawPolygon(pts, 6);
                    break;
                }
                case 3: {
                    QPainterPath path;
                    path.moveTo(at + QPointF(0, 100));
                    for (int k = 1; k < 200; ++k)
                        path.lineTo(at + QPointF(k * 2, 100 + 80 * std::sin(k / 12.0)));
                    p.strokePath(path, p.pen());
                    break;
                }
                default:
                    p.drawText(at + QPointF(0, 30), "Annotation " + QString::number(i));
            }
        }
    }
}
BENCHMARK(BM_QPainterSamePicture)->Unit(benchmark::kMillisecond);

void BM_RecomposeAfterMove(benchmark::State& state) {
    Scene& s = SharedScene();
    TIELayer* layer = s.list.GetLayer(1);  // a 300 by 200 rectangle
    s.view.Compose(s.list);
    double step = 10;
    for (auto _ : state) {
        layer->PosX += step;
        step = -step;
        layer->Changed(false);
        s.view.Compose(s.list);
    }
}
BENCHMARK(BM_RecomposeAfterMove)->Unit(benchmark::kMicrosecond);

void ZoomedCompose(benchmark::State& state, double zoom) {
    Scene& s = SharedScene();
    const int w = int(std::lround(kW * zoom / 100)), h = int(std::lround(kH * zoom / 100));
    TIEViewCompositor view;
    view.Mapping.SetZoom(zoom);
    view.Mapping.SetLayout(kW, kH, std::min(w, kW), std::min(h, kH));
    view.Compose(s.list);
    for (auto _ : state) {
        view.Invalidate();
        view.Compose(s.list);
    }
    for (int i = 0; i < s.list.LayersCount(); ++i)
        s.list.GetLayer(i)->Changed(false);
}

void QPainterSmooth(benchmark::State& state, double zoom) {
    Scene& s = SharedScene();
    QImage picture = s.list.Background().Bitmap()->WrapQImage().copy();
    const int w = int(std::lround(kW * zoom / 100)), h = int(std::lround(kH * zoom / 100));
    QImage target(std::min(w, kW), std::min(h, kH), QImage::Format_RGB888);
    for (auto _ : state) {
        QPainter p(&target);
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(QRectF(0, 0, w, h), picture);
    }
}

BENCHMARK_CAPTURE(ZoomedCompose, zoom150, 150.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(QPainterSmooth, zoom150, 150.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ZoomedCompose, zoom37, 37.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(QPainterSmooth, zoom37, 37.0)->Unit(benchmark::kMillisecond);

void BM_Flatten50Layers(benchmark::State& state) {
    EnsureBenchApplication();
    for (auto _ : state) {
        state.PauseTiming();
        auto list = std::make_unique<TIELayerList>();
        FillPicture(*list->Background().Bitmap());
        list->Background().FitToBitmap();
        AddLayers(*list);
        state.ResumeTiming();
        list->Flatten();
        benchmark::DoNotOptimize(list->LayersCount());
    }
}
BENCHMARK(BM_Flatten50Layers)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace qpt
