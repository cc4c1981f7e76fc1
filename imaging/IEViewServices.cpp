#include "imaging/IEViewServices.h"

#include "imaging/IEImageLayer.h"
#include "imaging/IEImageProc.h"
#include "imaging/IELayerList.h"

namespace qpt {

bool IEUserUndoWanted(TIEViewServices& view) {
    const TIEImageProc* proc = view.Proc();
    return proc && proc->AutoUndo && proc->UndoLimit() > 0 &&
           (view.LayerOptions() & loAutoUndoChangesByUser);
}

bool IESaveUserUndo(TIEViewServices& view, uint8_t source) {
    return IEUserUndoWanted(view) && view.Proc()->SaveUndo(TIEUndoSource(source));
}

TIEImageLayer& IEWorkingLayer(TIEViewServices& view) {
    TIELayerList& layers = view.Layers();
    TIELayer* current = layers.CurrentLayer();
    if (current && current->Kind() == ielkImage) return static_cast<TIEImageLayer&>(*current);
    return layers.Background();
}

}  // namespace qpt
