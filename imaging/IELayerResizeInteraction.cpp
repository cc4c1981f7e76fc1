#include "imaging/IELayerResizeInteraction.h"

#include <cmath>

#include "imaging/IELayerList.h"
#include "imaging/IEUndoStore.h"

namespace qpt {

namespace {

bool IsCorner(TIEGrip grip) {
    return grip >= ieTopLeft && grip <= ieBottomLeft;
}

// With Shift a side grip drags a corner, so that proportions can be kept.
TIEGrip AsCorner(TIEGrip grip) {
    if (grip == ieLeftSide || grip == ieRightSide) return ieBottomRight;
    if (grip == ieTopSide || grip == ieBottomSide) return ieTopRight;
    return grip;
}

}  // namespace

void TIELayerResizeInteraction::Begin(int layer, TIEGrip grip) {
    const TIELayer* l = view_.Layers().GetLayer(layer);
    if (!l || grip == ieNone || grip >= ieRotationCenter) return;
    layer_ = layer;
    grip_ = grip;
    resized_ = false;
    start_ = QRectF(l->PosX, l->PosY, l->Width, l->Height);
    turnedX_ = turnedY_ = false;
}

TIELayerResizeInteraction::TEdges TIELayerResizeInteraction::Follow(TIEGrip grip, QPoint at) const {
    TEdges e{start_.left(), start_.top(), start_.right(), start_.bottom()};
    const bool left = grip == ieTopLeft || grip == ieBottomLeft || grip == ieLeftSide;
    const bool right = grip == ieTopRight || grip == ieBottomRight || grip == ieRightSide;
    const bool top = grip == ieTopLeft || grip == ieTopRight || grip == ieTopSide;
    const bool bottom = grip == ieBottomLeft || grip == ieBottomRight || grip == ieBottomSide;
    if (left) e.left = at.x();
    if (right) e.right = at.x();
    if (top) e.top = at.y();
    if (bottom) e.bottom = at.y();
    return e;
}

void TIELayerResizeInteraction::KeepAspect(TIEGrip grip, TEdges& e) const {
    if (start_.width() <= 0 || start_.height() <= 0) return;
    const double w = e.right - e.left, h = e.bottom - e.top;
    const double ratio = start_.width() / start_.height();
    // The axis that moved further relative to its size leads.
    double nw = w, nh = h;
    if (std::fabs(w) / start_.width() >= std::fabs(h) / start_.height())
        nh = std::copysign(std::fabs(w) / ratio, h);
    else
        nw = std::copysign(std::fabs(h) * ratio, w);
    const bool movesLeft = grip == ieTopLeft || grip == ieBottomLeft;
    const bool movesTop = grip == ieTopLeft || grip == ieTopRight;
    if (movesLeft)
        e.left = e.right - nw;
    else
        e.right = e.left + nw;
    if (movesTop)
        e.top = e.bottom - nh;
    else
        e.bottom = e.top + nh;
}

void TIELayerResizeInteraction::Move(QPoint at, TIEShiftState shift) {
    if (!Active()) return;
    TIEGrip grip = grip_;
    if (shift & ssShift) grip = AsCorner(grip);
    TEdges e = Follow(grip, at);
    if ((shift & ssShift) && IsCorner(grip)) KeepAspect(grip, e);
    TIELayer& layer = *view_.Layers().GetLayer(layer_);
    if (e.left == layer.PosX && e.top == layer.PosY && e.right - e.left == layer.Width &&
        e.bottom - e.top == layer.Height)
        return;
    if (!resized_) IESaveUserUndo(view_, ieuLayer);
    resized_ = true;
    Write(e);
    view_.Layers().Notify(layer_, ielResizing);
    view_.Update();
}

void TIELayerResizeInteraction::Write(const TEdges& e) {
    TIELayer& layer = *view_.Layers().GetLayer(layer_);
    const bool flipX = e.right < e.left, flipY = e.bottom < e.top;
    QRectF box = QRectF(QPointF(e.left, e.top), QPointF(e.right, e.bottom)).normalized();
    view_.LayerMoveSize(layer_, ielResizing, box);
    layer.PosX = box.x();
    layer.PosY = box.y();
    layer.Width = box.width();
    layer.Height = box.height();
    if (flipX != turnedX_ || flipY != turnedY_)
        layer.TurnOver(flipX != turnedX_, flipY != turnedY_);
    turnedX_ = flipX;
    turnedY_ = flipY;
    layer.Changed(true);
}

void TIELayerResizeInteraction::End() {
    if (!Active()) return;
    const int layer = layer_;
    layer_ = -1;
    if (!resized_) return;
    view_.Layers().Notify(layer, ielResized);
    view_.Update();
}

}  // namespace qpt
