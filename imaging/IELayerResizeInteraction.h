#pragma once

#include <QPoint>
#include <QRectF>

#include "imaging/IEViewServices.h"

namespace qpt {

// Drags a grip of a layer's frame. The dragged corner or side follows the
// pointer; dragged past the opposite side the box turns over (the layer is
// told, so that a line's ends swap sides with it) and is written normalised.
class TIELayerResizeInteraction {
public:
    explicit TIELayerResizeInteraction(TIEViewServices& view) : view_(view) {}

    bool Active() const { return layer_ >= 0; }
    bool Resized() const { return resized_; }
    TIEGrip Grip() const { return grip_; }
    void Begin(int layer, TIEGrip grip);
    // With Shift the box keeps the proportions it had at the press.
    void Move(QPoint at, TIEShiftState shift);
    void End();

private:
    struct TEdges {
        double left, top, right, bottom;
    };
    TEdges Follow(TIEGrip grip, QPoint at) const;
    void KeepAspect(TIEGrip grip, TEdges& e) const;
    void Write(const TEdges& e);

    TIEViewServices& view_;
    int layer_ = -1;
    TIEGrip grip_ = ieNone;
    QRectF start_;
    bool turnedX_ = false, turnedY_ = false;  // as the layer was last told
    bool resized_ = false;
};

}  // namespace qpt
