// One mouse move while a rectangle is dragged out over a 4K picture in the
// whole session: the rectangle is chosen on the toolbar, so the style bar is
// open, each move puts it back on top, and the new layer is dressed from the
// session's style. Argument 1 lets the window repaint what the move changed,
// as the window system would ask; 0 measures the move alone. The view's drag
// bench makes the same drag on the bare view, which tells what the session
// adds.
#include <benchmark/benchmark.h>

#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "bench/BenchDrag.h"
#include "bench/PinnedSession.h"
#include "imaging/view/IEImageView.h"

namespace {

using namespace qpt;
using namespace qpt::bench;

void BM_SessionDragRectangleOn4K(benchmark::State& state) {
    static TPinnedSession session;
    TIEImageView& view = *session.pinned->Image_Front;
    if (!FormShowing(FormSmallTools)) session.tools->Btn_Rd_RectClick();
    TPinnedSession::Settle();
    if (!FormShowing(FormSmallTools) || !ToolArmed) {
        state.SkipWithError("the rectangle tool did not open the style bar");
        return;
    }
    // A mark left by an earlier run would take the press on its grip.
    view.Layers().ClearAnnotations();
    DragOutAndBack(state, view);
    if (view.Layers().LayersCount() != 2) state.SkipWithError("no rectangle was drawn");
}
BENCHMARK(BM_SessionDragRectangleOn4K)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

}  // namespace
