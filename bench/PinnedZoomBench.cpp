// One step of the pinned zoom on a 4K picture, from the click on the bar's
// zoom button to the window painted again, beside the zoomed compose of the
// same visible area alone, in the same run: the difference is what the
// resize, the reallocation and the scroll box add. The screen is a 4K screen
// of the offscreen platform, or, with QPT_BENCH_ON_X=1, of a private X
// server, where the step also pays for handing the pixels to the server;
// steps go up to 110% and back down to 100% in turn.
#include <benchmark/benchmark.h>

#include "app/session/SessionState.h"
#include "bench/PinnedSession.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IEViewCompositor.h"
#include "imaging/view/IEImageView.h"

namespace {

using namespace qpt;
using namespace qpt::bench;

// Clicks alternately enlarge and shrink, and lets the window handle the
// request and paint.
void BM_PinnedZoomStepOn4K(benchmark::State& state) {
    static TPinnedSession session;
    for (auto _ : state) {
        if (ZoomStep == 10)
            session.tools->Rdbtn_enlargeClick();
        else
            session.tools->Rdbtn_shrinkClick();
        TPinnedSession::Settle();
    }
    state.counters["zoom"] = ZoomStep * 10;
}
BENCHMARK(BM_PinnedZoomStepOn4K)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The view's own compose of the area the window shows, at 110% and 100% in
// turn, on the same picture.
void BM_ZoomedComposeOfTheVisibleArea(benchmark::State& state) {
    TIELayerList layers;
    layers.Background().Bitmap()->Assign(Picture());
    layers.Background().FitToBitmap();
    // The window is cut at 80% of the screen's height and keeps 9 columns
    // for its scroll bar.
    const QSize shown100(kW, kH * 8 / 10), shown110((kW + 9) * 11 / 10 - 9, kH * 8 / 10);
    TIEViewCompositor views[2];
    const std::pair<double, QSize> steps[] = {{110.0, shown110}, {100.0, shown100}};
    for (int i = 0; i < 2; ++i) {
        views[i].Mapping.SetZoom(steps[i].first);
        views[i].Mapping.SetLayout(kW, kH, steps[i].second.width(), steps[i].second.height());
        views[i].Compose(layers);
    }
    int i = 0;
    for (auto _ : state) {
        views[i].Invalidate();
        views[i].Compose(layers);
        i = 1 - i;
    }
}
BENCHMARK(BM_ZoomedComposeOfTheVisibleArea)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace
