#pragma once

#include <QRect>

#include "imaging/IENewLayer.h"
#include "imaging/IEUserInteraction.h"

namespace qpt {

class TIELayer;

// Draws a new rectangle, ellipse or arrow by dragging, or puts a text box
// at a click. The layer is added at the first move past the drag threshold,
// so a press and release leaves nothing behind, not even an undo step.
class TIELayerCreateInteraction : public TIEUserInteraction {
public:
    // Moves shorter than this, in view pixels on either axis, are ignored.
    static constexpr double kDragThreshold = 3;

    explicit TIELayerCreateInteraction(TIEViewServices& owner) : TIEUserInteraction(owner) {}

    TIELayerKind LayerKind = ielkShape;
    // Drag start and end, in bitmap pixels.
    int X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    // The last point that passed the threshold.
    int LastX = 0, LastY = 0;
    int NewLayerIndex() const { return newLayer_.Index(); }

    bool MouseDown(TIEMouseButton button, TIEShiftState shift, int x, int y) override;
    void MouseMove(TIEShiftState shift, int x, int y) override;
    // Keeps the layer if it is large enough, else cancels it.
    void MouseUp(TIEMouseButton button, TIEShiftState shift, int x, int y) override;
    bool IsActive() const override { return active_; }
    void Cancel() override;
    // The release: keep or cancel.
    void Enact();

private:
    // Whether a press at p belongs to moving or resizing an existing layer.
    bool PressBelongsToLayers(QPoint p) const;
    QRect PictureBox() const;
    bool AcceptMove(int x, int y) const;
    // Places the layer for the drag so far; marker places it centred on the
    // press with its own size.
    void Place(TIEShiftState shift, bool marker);
    bool MakeLayer(bool marker);
    QRect DragRect(TIEShiftState shift) const;
    QRect MarkerRect(const TIELayer& layer) const;

    bool active_ = false;
    TIENewLayer newLayer_;
    QRect rect_;  // the box of the last placement, before any cut
};

}  // namespace qpt
