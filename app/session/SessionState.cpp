#include "app/session/SessionState.h"

namespace qpt {

void ClearToolToggles() {
    RectOpen = EllipOpen = LineOpen = ArrowOpen = BrushOpen = FontOpen = MosaicOpen = 0;
}

}  // namespace qpt
