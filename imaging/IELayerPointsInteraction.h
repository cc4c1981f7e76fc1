#pragma once

#include <QPoint>
#include <vector>

#include "imaging/IENewLayer.h"
#include "imaging/IEUserInteraction.h"

namespace qpt {

class TIELineLayer;
class TIEPolylineLayer;

// Lines, by a drag or by two clicks, and freehand strokes. A stroke fixes
// at most one vertex per 3 by 3 view pixels: the vertex under the pointer
// keeps moving until the pointer has gone that far on both axes.
class TIELayerPointsInteraction : public TIEUserInteraction {
public:
    // Distance on each axis, in view pixels, before a stroke vertex is fixed.
    static constexpr double kVertexStep = 3;
    // A finished layer smaller than this on both sides is dropped.
    static constexpr double kMinimumSize = 5;
    // Ends of a closed stroke this close together meet.
    static constexpr double kCloseDistance = 10;

    explicit TIELayerPointsInteraction(TIEViewServices& owner) : TIEUserInteraction(owner) {}

    TIELayerKind LayerKind = ielkLine;
    // Freehand: every move adds to the stroke.
    bool Drawing = false;
    int PointCount() const { return pointCount_; }
    int NewLayerIndex() const { return newLayer_.Index(); }
    QPoint Anchor() const { return anchor_; }

    bool MouseDown(TIEMouseButton button, TIEShiftState shift, int x, int y) override;
    void MouseMove(TIEShiftState shift, int x, int y) override;
    void MouseUp(TIEMouseButton button, TIEShiftState shift, int x, int y) override;
    bool IsActive() const override { return active_; }
    void Cancel() override;
    // Keeps the layer, or cancels it when it came out too small.
    void Finish();

private:
    bool PressBelongsToLayers(QPoint p) const;
    bool MakeLayer(TIELayerKind kind);
    void MoveLineEnd(TIEShiftState shift, QPoint p);
    void MoveStrokeEnd(QPoint p);
    void FinishStroke(TIEPolylineLayer& stroke);
    // Writes the fixed vertices and the moving one to the layer.
    void WriteStroke(TIEPolylineLayer& stroke) const;

    bool active_ = false;
    TIENewLayer newLayer_;
    int pointCount_ = 0;
    QPoint anchor_;
    QPoint last_;
    // Freehand: the fixed vertices, then the one under the pointer if any.
    std::vector<QPoint> points_;
};

// Shift's line: the end moved so the line runs along one of eight
// directions from start: flat below tan(pi/8), upright above tan(3 pi/8),
// diagonal between.
QPoint IESnapToEightDirections(QPoint start, QPoint end);

}  // namespace qpt
