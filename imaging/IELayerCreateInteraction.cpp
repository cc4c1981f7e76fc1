#include "imaging/IELayerCreateInteraction.h"

#include <cmath>
#include <cstdlib>

#include "imaging/IEImageLayer.h"
#include "imaging/IEImageProc.h"
#include "imaging/IELayerHitTest.h"
#include "imaging/IELayerList.h"
#include "imaging/IEShapeLayer.h"

namespace qpt {

QRect TIELayerCreateInteraction::PictureBox() const {
    const TIELayer& back = Owner().Layers().Background();
    return QRectF(back.PosX, back.PosY, back.Width, back.Height).toRect();
}

bool TIELayerCreateInteraction::PressBelongsToLayers(QPoint p) const {
    TIEViewServices& view = Owner();
    const TIEMouseInteractLayers interact = view.MouseInteractLayers();
    if (!(interact & (mlMoveLayers | mlResizeLayers | mlEditLayerPoints))) return false;
    const TIELayerList& layers = view.Layers();
    return IEFindLayerAt(layers, p, view.ZoomD100()) >= 0 ||
           IEFindGrip(layers, p, view.ZoomD100(), interact, view.LayerOptions()).Grip != ieNone;
}

bool TIELayerCreateInteraction::MouseDown(TIEMouseButton button, TIEShiftState shift, int x,
                                          int y) {
    if (!Enabled() || button != mbLeft) return false;
    if (active_) Cancel();  // a release we never saw
    LastX = x;
    LastY = y;
    if (PressBelongsToLayers(QPoint(x, y))) return false;
    const QRect picture = PictureBox();
    if ((Owner().LayerOptions() & loPreventOutOfBounds) && picture.width() > 1 &&
        picture.height() > 1 && !picture.contains(x, y))
        return false;
    active_ = true;
    rect_ = QRect();
    X1 = X2 = x;
    Y1 = Y2 = y;
    Owner().Layers().Notify(-1, ielBeginCreating);
    Owner().UserInteraction(ieiLayerCreateStart);
    // A text box (or any stamp) appears at the press, at its own size.
    if (LayerKind == ielkText || (Owner().LayerOptions() & loStampMode)) {
        Place(shift, true);
        Enact();
    }
    return true;
}

bool TIELayerCreateInteraction::AcceptMove(int x, int y) const {
    if (Owner().LayerOptions() & loStampMode) return true;
    return ViewDistance(std::abs(x - LastX)) >= kDragThreshold &&
           ViewDistance(std::abs(y - LastY)) >= kDragThreshold;
}

void TIELayerCreateInteraction::MouseMove(TIEShiftState shift, int x, int y) {
    if (!active_ || !AcceptMove(x, y)) return;
    const QRect client = Owner().ClientBitmapRect();
    X2 = LastX = std::clamp(x, client.left(), client.left() + client.width());
    Y2 = LastY = std::clamp(y, client.top(), client.top() + client.height());
    Place(shift, false);
}

bool TIELayerCreateInteraction::MakeLayer(bool marker) {
    // A marker keeps the size the layer is made with; a drag gives its own.
    const QRect r = DragRect(0);
    std::optional<QSizeF> size;
    if (!marker) size = QSizeF(std::max(r.width(), 1), std::max(r.height(), 1));
    return newLayer_.Add(Owner(), LayerKind, QPointF(r.topLeft()), size);
}

QRect TIELayerCreateInteraction::DragRect(TIEShiftState shift) const {
    int w = std::abs(X2 - X1), h = std::abs(Y2 - Y1);
    if ((shift & ssShift) || Owner().FixedAspect()) w = h = std::min(w, h);
    return QRect(std::min(X1, X2), std::min(Y1, Y2), w, h);
}

QRect TIELayerCreateInteraction::MarkerRect(const TIELayer& layer) const {
    const int w = int(layer.Width);
    const int h = std::max(int(layer.Height), layer.MinimumClickHeight());
    return QRect(X1 - w / 2, Y1 - h / 2, w, h);
}

void TIELayerCreateInteraction::Place(TIEShiftState shift, bool marker) {
    if (!newLayer_.Exists() && !MakeLayer(marker)) return;
    TIELayerList& layers = Owner().Layers();
    TIELayer& layer = *layers.GetLayer(newLayer_.Index());
    rect_ = marker ? MarkerRect(layer) : DragRect(shift);
    QRectF box(rect_);
    if (Owner().LayerOptions() & loPreventOutOfBounds) box &= QRectF(PictureBox());
    Owner().LayerMoveSize(newLayer_.Index(), ielCreating, box);
    layer.PosX = box.x();
    layer.PosY = box.y();
    layer.Width = box.width();
    layer.Height = box.height();
    // The arrow points away from the corner where the drag began.
    if (layer.Kind() == ielkShape) static_cast<TIEShapeLayer&>(layer).DragStart = QPoint(X1, Y1);
    layer.Changed(true);
    layers.Notify(newLayer_.Index(), ielCreating);
    Owner().UserInteraction(ieiLayerCreating);
    Owner().Update();
}

void TIELayerCreateInteraction::MouseUp(TIEMouseButton button, TIEShiftState, int, int) {
    if (active_ && button == mbLeft) Enact();
}

void TIELayerCreateInteraction::Enact() {
    TIEViewServices& view = Owner();
    const bool keep = (view.LayerOptions() & loStampMode) || (active_ && LayerKind == ielkText) ||
                      (rect_.width() > 4 && rect_.height() > 4);
    if (!keep || !newLayer_.Exists() ||
        (LayerKind == ielkImage && (view.LayerOptions() & loAutoPromptForImage) &&
         !view.PromptForImage(newLayer_.Index()))) {
        Cancel();
        return;
    }
    TIELayer& layer = *view.Layers().GetLayer(newLayer_.Index());
    if (layer.Width < 2 || layer.Height < 2) {
        const QRect client = view.ClientBitmapRect();
        layer.Width = client.width();
        layer.Height = client.height();
    }
    layer.ApplyChanges();
    view.Update();
    const int index = newLayer_.Index();
    newLayer_.Forget();
    active_ = false;
    view.Layers().Notify(index, ielCreated);
    view.UserInteraction(ieiLayerCreateEnacted);
    if (LayerKind == ielkText && (view.LayerOptions() & loAutoTextEditing))
        view.ActivateTextEditor(index);
}

void TIELayerCreateInteraction::Cancel() {
    newLayer_.Drop(Owner());
    active_ = false;
}

}  // namespace qpt
