#include "imaging/IELayerUndoTarget.h"

#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerStream.h"

namespace qpt {

TIEBitmap* TIELayerUndoTarget::LayerBitmap(int index) {
    TIELayer* layer = layers_.GetLayer(index);
    return layer && layer->Kind() == ielkImage ? layer->Bitmap() : nullptr;
}

TIEBitmap* TIELayerUndoTarget::CurrentBitmap() {
    TIEBitmap* current = LayerBitmap(layers_.LayersCurrent());
    return current ? current : LayerBitmap(0);
}

int TIELayerUndoTarget::LayersCurrent() const {
    return layers_.LayersCurrent();
}

void TIELayerUndoTarget::SaveLayer(QIODevice& device, int index, bool withPixels) {
    if (TIELayer* layer = layers_.GetLayer(index)) SaveLayerToStream(device, *layer, withPixels);
}

void TIELayerUndoTarget::LoadLayer(QIODevice& device, int index) {
    if (TIELayer* layer = layers_.GetLayer(index)) LoadLayerFromStream(device, *layer);
}

void TIELayerUndoTarget::SaveLayers(QIODevice& device) {
    SaveLayersToStream(device, layers_, true);
}

void TIELayerUndoTarget::LoadLayers(QIODevice& device) {
    LoadLayersFromStream(device, layers_);
}

void TIELayerUndoTarget::Update() {
    layers_.NeedsUpdate = true;
    if (update_) update_();
}

}  // namespace qpt
