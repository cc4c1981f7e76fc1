#pragma once

#include <QRegion>

#include <vector>

#include "imaging/IELayerCreateInteraction.h"
#include "imaging/IELayerMoveInteraction.h"
#include "imaging/IELayerPointsInteraction.h"
#include "imaging/IELayerResizeInteraction.h"
#include "imaging/IERetouchToolInteraction.h"

namespace qpt {

// The mouse side of a view: its two interaction properties, the tool
// objects they arm, and the view's own selecting, moving and resizing of
// layers. The widget forwards its mouse events here in bitmap pixels.
class TIEMouseInteractions {
public:
    explicit TIEMouseInteractions(TIEViewServices& view);

    TIEMouseInteractLayers MouseInteractLayers() const { return layers_; }
    // Turns every layer tool off, then arms the one the set names.
    void SetMouseInteractLayers(TIEMouseInteractLayers items);
    TIEMouseInteractGeneral MouseInteractGeneral() const { return general_; }
    // The retouch tool excludes the layer tools and most general items.
    void SetMouseInteractGeneral(TIEMouseInteractGeneral items);

    TIELayerCreateInteraction& CreateTool() { return create_; }
    TIELayerPointsInteraction& PointsTool() { return points_; }
    TIERetouchToolInteraction& RetouchTool() { return retouch_; }
    const TIELayerMoveInteraction& Mover() const { return move_; }
    const TIELayerResizeInteraction& Resizer() const { return resize_; }

    void MouseDown(TIEMouseButton button, TIEShiftState shift, int x, int y);
    void MouseMove(TIEShiftState shift, int x, int y);
    void MouseUp(TIEMouseButton button, TIEShiftState shift, int x, int y);
    // The tools' previews over the parts of area just composed.
    void Paint(TIEBitmap& backBuffer, const TIEViewMapping& mapping, const QRegion& area);
    // The view lost the mouse or another tool comes: drop what runs.
    void Abandon();
    // Esc ends a retouch stroke; with keyboard shortcuts on, Esc or Delete
    // also drops a layer being drawn. True when the key was used.
    bool KeyDown(int key);

private:
    void ClearSelection();
    void LayerMouseDown(TIEShiftState shift, QPoint p);
    void Hover(QPoint p);

    TIEViewServices& view_;
    TIELayerCreateInteraction create_;
    TIELayerPointsInteraction points_;
    TIERetouchToolInteraction retouch_;
    std::vector<TIEUserInteraction*> tools_;
    TIELayerMoveInteraction move_;
    TIELayerResizeInteraction resize_;
    TIEMouseInteractLayers layers_ = 0;
    TIEMouseInteractGeneral general_ = 0;
};

}  // namespace qpt
