#include "imaging/IELayerPointsInteraction.h"

#include <cmath>
#include <cstdlib>

#include "imaging/IEImageProc.h"
#include "imaging/IELayerHitTest.h"
#include "imaging/IELayerList.h"
#include "imaging/IELineLayer.h"
#include "imaging/IEPolylineLayer.h"

namespace qpt {

QPoint IESnapToEightDirections(QPoint start, QPoint end) {
    int dx = end.x() - start.x(), dy = end.y() - start.y();
    if (dx == 0) return end;
    const double slope = std::fabs(double(dy) / dx);
    if (slope < std::tan(M_PI / 8))
        dy = 0;
    else if (slope > std::tan(3 * M_PI / 8))
        dx = 0;
    else
        dy = dy < 0 ? -std::abs(dx) : std::abs(dx);
    return start + QPoint(dx, dy);
}

bool TIELayerPointsInteraction::PressBelongsToLayers(QPoint p) const {
    TIEViewServices& view = Owner();
    const TIEMouseInteractLayers interact = view.MouseInteractLayers();
    if (!(interact & (mlMoveLayers | mlResizeLayers))) return false;
    const TIELayerList& layers = view.Layers();
    return IEFindGrip(layers, p, view.ZoomD100(), interact, view.LayerOptions()).Grip != ieNone ||
           IEFindLayerAt(layers, p, view.ZoomD100()) >= 0;
}

bool TIELayerPointsInteraction::MouseDown(TIEMouseButton button, TIEShiftState, int x, int y) {
    if (!Enabled() || button != mbLeft) return false;
    if (active_) {
        // The second click of a line ends it where the pointer has led it.
        Finish();
        return true;
    }
    const QPoint p(x, y);
    if (PressBelongsToLayers(p)) return false;
    active_ = true;
    pointCount_ = 0;
    newLayer_.Forget();
    anchor_ = last_ = p;
    points_.clear();
    Owner().Layers().Notify(-1, ielBeginCreating);
    return true;
}

void TIELayerPointsInteraction::MouseMove(TIEShiftState shift, int x, int y) {
    if (!active_) return;
    const QRect client = Owner().ClientBitmapRect();
    const QPoint p(std::clamp(x, client.left(), client.right()),
                   std::clamp(y, client.top(), client.bottom()));
    if (p == last_) return;
    last_ = p;
    if (Drawing)
        MoveStrokeEnd(p);
    else
        MoveLineEnd(shift, p);
    if (!newLayer_.Exists()) return;
    Owner().Layers().Notify(newLayer_.Index(), ielCreating);
    Owner().Update();
}

bool TIELayerPointsInteraction::MakeLayer(TIELayerKind kind) {
    return newLayer_.Add(Owner(), kind, QPointF(anchor_), QSizeF(1, 1));
}

void TIELayerPointsInteraction::MoveLineEnd(TIEShiftState shift, QPoint p) {
    if (!newLayer_.Exists() && !MakeLayer(LayerKind)) return;
    if ((shift & ssShift) || Owner().FixedAspect()) p = IESnapToEightDirections(anchor_, p);
    QRectF box = QRectF(QPointF(anchor_), QPointF(p)).normalized();
    Owner().LayerMoveSize(newLayer_.Index(), ielCreating, box);
    TIELayer& layer = *Owner().Layers().GetLayer(newLayer_.Index());
    if (layer.Kind() == ielkLine) {
        static_cast<TIELineLayer&>(layer).SetEndPoints(QPointF(anchor_), QPointF(p));
    } else if (layer.Kind() == ielkPolyline) {
        points_ = {anchor_, p};
        WriteStroke(static_cast<TIEPolylineLayer&>(layer));
    }
    pointCount_ = 2;
}

void TIELayerPointsInteraction::MoveStrokeEnd(QPoint p) {
    if (!newLayer_.Exists()) {
        if (!MakeLayer(ielkPolyline)) return;
        points_ = {anchor_};
        pointCount_ = 1;
    }
    if (int(points_.size()) > pointCount_)
        points_.back() = p;
    else
        points_.push_back(p);
    if (ViewDistance(std::abs(p.x() - anchor_.x())) >= kVertexStep &&
        ViewDistance(std::abs(p.y() - anchor_.y())) >= kVertexStep) {
        ++pointCount_;
        anchor_ = p;
    }
    TIELayer& layer = *Owner().Layers().GetLayer(newLayer_.Index());
    if (layer.Kind() == ielkPolyline) WriteStroke(static_cast<TIEPolylineLayer&>(layer));
}

void TIELayerPointsInteraction::WriteStroke(TIEPolylineLayer& stroke) const {
    const int n = int(points_.size());
    if (stroke.PointCount() == n - 1 && n > 1 && pointCount_ >= n - 1) {
        // Only a new vertex at the end: the common case of a fixed step.
        stroke.AddPoint(points_.back().x(), points_.back().y());
    } else {
        // The layer cannot move one vertex, so the moving end is written by
        // writing the stroke again.
        stroke.BeginUpdate();
        stroke.ClearPoints();
        for (QPoint q : points_)
            stroke.AddPoint(q.x(), q.y());
        stroke.EndUpdate();
    }
    stroke.ApplyChanges();
    stroke.Changed(true);
}

void TIELayerPointsInteraction::MouseUp(TIEMouseButton button, TIEShiftState, int, int) {
    if (!active_ || button != mbLeft) return;
    // A line whose press did not move waits for a second click.
    if (Drawing || (pointCount_ == 2 && newLayer_.Exists())) Finish();
}

void TIELayerPointsInteraction::FinishStroke(TIEPolylineLayer& stroke) {
    // A moving end that never got a step from the last fixed vertex adds
    // nothing the eye could see; a longer one along a single axis is the
    // end of the stroke and stays.
    const bool endFixed = int(points_.size()) <= pointCount_;
    if (!endFixed && points_.size() >= 3) {
        const QPoint d = points_.back() - points_[points_.size() - 2];
        if (ViewDistance(std::abs(d.x())) < kVertexStep &&
            ViewDistance(std::abs(d.y())) < kVertexStep)
            points_.pop_back();
    }
    if (stroke.PolylineClosed && points_.size() > 2) {
        const QPoint d = points_.back() - points_.front();
        if (std::hypot(d.x(), d.y()) <= kCloseDistance) points_.pop_back();
    }
    WriteStroke(stroke);
}

void TIELayerPointsInteraction::Finish() {
    if (pointCount_ == 0 || !newLayer_.Exists()) {
        Cancel();
        return;
    }
    TIELayer& layer = *Owner().Layers().GetLayer(newLayer_.Index());
    if (Drawing && layer.Kind() == ielkPolyline)
        FinishStroke(static_cast<TIEPolylineLayer&>(layer));
    if (layer.Width < kMinimumSize && layer.Height < kMinimumSize) {
        Cancel();
        return;
    }
    layer.ApplyChanges();
    Owner().Update();
    const int index = newLayer_.Index();
    active_ = false;
    newLayer_.Forget();
    Owner().Layers().Notify(index, ielCreated);
}

void TIELayerPointsInteraction::Cancel() {
    newLayer_.Drop(Owner());
    active_ = false;
    pointCount_ = 0;
    points_.clear();
}

}  // namespace qpt
