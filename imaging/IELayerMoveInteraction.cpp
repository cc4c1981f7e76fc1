#include "imaging/IELayerMoveInteraction.h"

#include <algorithm>

#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IEUndoStore.h"

namespace qpt {

void TIELayerMoveInteraction::Begin(int layer, QPoint at) {
    layer_ = layer;
    last_ = at;
    moved_ = false;
}

void TIELayerMoveInteraction::Move(QPoint at) {
    const QPoint delta = at - last_;
    if (!Active() || delta.isNull()) return;
    if (!moved_) IESaveUserUndo(view_, ieuLayer);
    moved_ = true;
    last_ = at;
    TIELayerList& layers = view_.Layers();
    for (int i = 1; i < layers.LayersCount(); ++i) {
        const TIELayer& layer = *layers.GetLayer(i);
        if ((layer.Selected || i == layer_) && !layer.Locked) Shift(i, delta);
    }
    layers.Notify(layer_, ielMoving);
    view_.Update();
}

void TIELayerMoveInteraction::Shift(int index, QPoint delta) {
    TIELayer& layer = *view_.Layers().GetLayer(index);
    QRectF box(layer.PosX + delta.x(), layer.PosY + delta.y(), layer.Width, layer.Height);
    if (view_.LayerOptions() & loPreventOutOfBounds) {
        const TIELayer& back = view_.Layers().Background();
        box.moveLeft(std::clamp(box.left(), back.PosX,
                                std::max(back.PosX, back.PosX + back.Width - box.width())));
        box.moveTop(std::clamp(box.top(), back.PosY,
                               std::max(back.PosY, back.PosY + back.Height - box.height())));
    }
    view_.LayerMoveSize(index, ielMoving, box);
    layer.PosX = box.x();
    layer.PosY = box.y();
    layer.Width = box.width();
    layer.Height = box.height();
    layer.Changed(false);
}

void TIELayerMoveInteraction::End() {
    if (!Active()) return;
    const int layer = layer_;
    layer_ = -1;
    if (!moved_) return;
    view_.Layers().Notify(layer, ielMoved);
    view_.Update();
}

}  // namespace qpt
