#pragma once

#include <QPointF>
#include <QSizeF>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "imaging/IELayer.h"

namespace qpt {

class TIEImageLayer;
class TIEVectorLayer;

// The ordered layers of one view; layer 0 is the picture and never leaves.
class TIELayerList {
public:
    using NotifyHandler = std::function<void(int layer, TIELayerEvent event)>;

    TIELayerList();
    ~TIELayerList();
    TIELayerList(const TIELayerList&) = delete;
    TIELayerList& operator=(const TIELayerList&) = delete;

    // Makes a layer of the given kind with its constructor defaults and the
    // update lock released; raises for an unknown kind.
    static std::unique_ptr<TIELayer> CreateLayer(int kind, TIELayerList* owner);

    int LayersCount() const { return int(layers_.size()); }
    int LayersCurrent() const { return current_; }
    void SetLayersCurrent(int index);
    TIELayer* CurrentLayer() { return GetLayer(current_); }
    // Null for an index out of range.
    TIELayer* GetLayer(int index) const;
    TIEImageLayer& Background() const;
    int IndexOf(const TIELayer* layer) const;

    // Adds a layer at the end and makes it current. Without a position the
    // layer is cascaded over the client area.
    TIELayer* LayersAdd(int kind, std::optional<QPointF> pos = {}, std::optional<QSizeF> size = {},
                        bool saveUndo = true);
    // Inserts an existing layer at index (clamped to 1..count).
    TIELayer* LayersInsert(int index, std::unique_ptr<TIELayer> layer);
    // Layer 0 is not removed.
    void LayersRemove(int index);
    // Removes every layer but the picture.
    void ClearAnnotations();
    // Takes a whole new list (its first layer an image layer) and the index
    // of its current layer.
    void ReplaceLayers(std::vector<std::unique_ptr<TIELayer>> layers, int current);
    // Composes the upper of the two layers into the lower one.
    void LayersMerge(int index1, int index2, bool removeUpperLayer = true);
    // Merges layers N-1 down to 1 into the picture: where marks overlap the
    // older one ends on top, as the output has always shown it.
    void Flatten();

    // Fires OnLayerNotifyEx always and OnLayerNotify for all but the begin,
    // creating and removal events.
    void Notify(int layer, TIELayerEvent event);
    static bool ReachesPlainNotify(TIELayerEvent event);

    NotifyHandler OnLayerNotify;
    NotifyHandler OnLayerNotifyEx;
    // Called by LayersAdd before anything changes, so that the undo store can
    // record the list.
    std::function<void()> OnSaveObjectsUndo;

    // Client size of the view in bitmap pixels; 50 until the view has a window.
    QSizeF ClientSize{50, 50};
    TColor BackgroundColor = clWhite;
    // A merge into the picture grows it to hold what reaches past its edges.
    bool AutoFixBorders = false;
    bool AllowMultiSelect = true;

    // Set by every layer's Changed; the view clears it when it updates.
    bool NeedsUpdate = false;

private:
    std::unique_ptr<TIEImageLayer> ConvertToImageLayer(TIEVectorLayer& layer);
    void Cascade(TIELayer& layer);

    std::vector<std::unique_ptr<TIELayer>> layers_;
    int current_ = 0;
    double cascade_ = 0;
};

}  // namespace qpt
