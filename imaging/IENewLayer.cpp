#include "imaging/IENewLayer.h"

#include "imaging/IEImageProc.h"
#include "imaging/IELayerList.h"
#include "imaging/IEViewServices.h"

namespace qpt {

bool TIENewLayer::Add(TIEViewServices& view, TIELayerKind kind, QPointF pos,
                      std::optional<QSizeF> size) {
    TIELayerList& layers = view.Layers();
    const bool wanted = IEUserUndoWanted(view);
    const uint64_t steps = wanted ? view.Proc()->SavedSteps() : 0;
    TIELayer* layer = layers.LayersAdd(kind, pos, size, wanted);
    // Only a step that was really stored is taken back with the layer.
    undoSaved_ = wanted && view.Proc()->SavedSteps() != steps;
    if (!layer) return false;
    index_ = layers.IndexOf(layer);
    view.NewLayer(index_, kind);
    return true;
}

void TIENewLayer::Drop(TIEViewServices& view) {
    if (index_ >= 0) {
        view.Layers().LayersRemove(index_);
        if (undoSaved_) view.Proc()->DiscardUndo(0);
        view.Update();
    }
    Forget();
}

}  // namespace qpt
