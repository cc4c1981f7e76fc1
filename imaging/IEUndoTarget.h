#pragma once

#include <QIODevice>

#include "imaging/IEBitmap.h"

namespace qpt {

// What the undo store needs of a view: its pictures, its current layer and a
// way to write and read layers as streams. The view's layer list provides
// it; the store knows nothing of layer classes.
class TIEUndoTarget {
public:
    virtual ~TIEUndoTarget() = default;

    // The bitmap that image operations work on, or null.
    virtual TIEBitmap* CurrentBitmap() = 0;
    // The picture of the layer at index, or null if there is none.
    virtual TIEBitmap* LayerBitmap(int index) = 0;
    virtual int LayersCurrent() const = 0;

    // One layer's fields, with its picture when withPixels.
    virtual void SaveLayer(QIODevice& device, int index, bool withPixels) = 0;
    virtual void LoadLayer(QIODevice& device, int index) = 0;
    // The whole list with pictures and the current index; loading replaces
    // every layer and sets the current one.
    virtual void SaveLayers(QIODevice& device) = 0;
    virtual void LoadLayers(QIODevice& device) = 0;

    // Repaint after a restore.
    virtual void Update() = 0;
};

}  // namespace qpt
