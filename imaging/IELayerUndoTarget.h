#pragma once

#include <functional>

#include "imaging/IEUndoTarget.h"

namespace qpt {

class TIELayerList;

// Gives the undo store a view's layer list: image steps work on the current
// layer's picture (the background when the current layer is not an image),
// layer steps go through the layer stream.
class TIELayerUndoTarget : public TIEUndoTarget {
public:
    explicit TIELayerUndoTarget(TIELayerList& layers, std::function<void()> update = {})
        : layers_(layers), update_(std::move(update)) {}

    TIEBitmap* CurrentBitmap() override;
    TIEBitmap* LayerBitmap(int index) override;
    int LayersCurrent() const override;
    void SaveLayer(QIODevice& device, int index, bool withPixels) override;
    void LoadLayer(QIODevice& device, int index) override;
    void SaveLayers(QIODevice& device) override;
    void LoadLayers(QIODevice& device) override;
    void Update() override;

private:
    TIELayerList& layers_;
    std::function<void()> update_;
};

}  // namespace qpt
