#pragma once

#include <QPointF>
#include <QSizeF>
#include <optional>

#include "imaging/IELayerTypes.h"

namespace qpt {

class TIEViewServices;

// The layer a creation tool is making. It is added only at the first real
// move, and a cancel takes it away together with the undo step taken for it,
// so an abandoned creation leaves no trace.
class TIENewLayer {
public:
    // Adds the layer and lets the view dress it; false when nothing was added.
    bool Add(TIEViewServices& view, TIELayerKind kind, QPointF pos, std::optional<QSizeF> size);
    // Removes the layer and its undo step, if there is one.
    void Drop(TIEViewServices& view);
    // The layer stays; the tool lets go of it.
    void Forget() { index_ = -1, undoSaved_ = false; }

    bool Exists() const { return index_ >= 0; }
    int Index() const { return index_; }

private:
    int index_ = -1;
    bool undoSaved_ = false;
};

}  // namespace qpt
