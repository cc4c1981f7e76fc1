#include "imaging/IENewLayer.h"

#include "imaging/IEImageProc.h"
#include "imaging/IELayerList.h"
#include "imaging/IEViewServices.h"

namespace qpt {

bool TIENewLayer::Add(TIEViewServices& view, TIELayerKind kind, QPointF pos,
                      std::optional<QSizeF> size) {
    TIELayerList& layers = view.Layers();
    undoSaved_ = IEUserUndoWanted(view);
    TIELayer* layer = layers.LayersAdd(kind, pos, size, undoSaved_);
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
