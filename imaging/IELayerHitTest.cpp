#include "imaging/IELayerHitTest.h"

#include <algorithm>
#include <cmath>

#include "imaging/IELayerList.h"

namespace qpt {

namespace {

QRectF Box(const TIELayer& layer) {
    return QRectF(layer.PosX, layer.PosY, layer.Width, layer.Height).normalized();
}

// The point in the frame of the layer before its rotation.
QPointF Unrotated(const TIELayer& layer, QPointF p) {
    if (layer.Rotate == 0) return p;
    const QPointF c(layer.PosX + layer.Width * layer.RotateCenterX,
                    layer.PosY + layer.Height * layer.RotateCenterY);
    const double a = layer.Rotate * M_PI / 180, cs = std::cos(a), sn = std::sin(a);
    const QPointF q = p - c;
    return c + QPointF(q.x() * cs - q.y() * sn, q.x() * sn + q.y() * cs);
}

}  // namespace

bool IELayerHit(const TIELayer& layer, QPointF p, double tolerance) {
    return layer.Hit(Unrotated(layer, p), tolerance);
}

int IEFindLayerAt(const TIELayerList& layers, QPointF p, double zoomD100, bool ignoreSelectable) {
    const double tolerance = kIEOutlineTolerance / std::max(zoomD100, 1e-6);
    for (int i = layers.LayersCount() - 1; i >= 0; --i) {
        const TIELayer& layer = *layers.GetLayer(i);
        if (!layer.Visible || (!layer.Selectable && !ignoreSelectable)) continue;
        if (IELayerHit(layer, p, tolerance)) return i;
    }
    return -1;
}

QPointF IEGripPoint(const QRectF& box, TIEGrip grip, double zoomD100) {
    const double cx = box.center().x(), cy = box.center().y();
    switch (grip) {
        case ieTopLeft:
            return box.topLeft();
        case ieTopRight:
            return box.topRight();
        case ieBottomRight:
            return box.bottomRight();
        case ieBottomLeft:
            return box.bottomLeft();
        case ieLeftSide:
            return QPointF(box.left(), cy);
        case ieRightSide:
            return QPointF(box.right(), cy);
        case ieTopSide:
            return QPointF(cx, box.top());
        case ieBottomSide:
            return QPointF(cx, box.bottom());
        case ieRotate:
            return QPointF(cx, box.top() - kIERotateGripDistance / zoomD100);
        default:
            return box.center();
    }
}

namespace {

bool GripUsable(TIEGrip grip, const TIELayer& layer, double zoomD100,
                TIEMouseInteractLayers interact, TIELayerOptions options) {
    const bool rotate = interact & mlRotateLayers;
    if (grip == ieRotationCenter) return rotate && !(interact & mlMoveLayers);
    if (grip != ieRotate) return true;
    return rotate && (options & loShowRotationGrip) && layer.Width * zoomD100 >= 10 &&
           layer.Height * zoomD100 >= 10;
}

TIEGrip GripOf(const TIELayer& layer, QPointF p, double zoomD100, TIEMouseInteractLayers interact,
               TIELayerOptions options) {
    // A layer the user cannot pick, such as the picture, offers no handles.
    if (layer.Locked || !layer.Selectable) return ieNone;
    p = Unrotated(layer, p);
    const QRectF box = Box(layer);
    for (int g = ieTopLeft; g <= ieRotate; ++g) {
        const TIEGrip grip = TIEGrip(g);
        if (!GripUsable(grip, layer, zoomD100, interact, options)) continue;
        const double r = (grip == ieRotate ? 2 : 1) * kIEGripRadius / zoomD100;
        const QPointF c = IEGripPoint(box, grip, zoomD100);
        if (std::fabs(p.x() - c.x()) <= r && std::fabs(p.y() - c.y()) <= r) return grip;
    }
    return ieNone;
}

}  // namespace

TIEGripHit IEFindGrip(const TIELayerList& layers, QPointF p, double zoomD100,
                      TIEMouseInteractLayers interact, TIELayerOptions options) {
    zoomD100 = std::max(zoomD100, 1e-6);
    const int current = layers.LayersCurrent();
    if (const TIELayer* layer = layers.GetLayer(current)) {
        const TIEGrip grip = GripOf(*layer, p, zoomD100, interact, options);
        if (grip != ieNone) return {grip, current};
    }
    if (!(options & loAllowMultiSelect)) return {};
    for (int i = layers.LayersCount() - 1; i >= 0; --i) {
        const TIELayer& layer = *layers.GetLayer(i);
        if (i == current || !layer.Selected) continue;
        const TIEGrip grip = GripOf(layer, p, zoomD100, interact, options);
        if (grip != ieNone) return {grip, i};
    }
    return {};
}

int IEGripCursor(TIEGrip grip) {
    switch (grip) {
        case ieTopLeft:
        case ieBottomRight:
            return crSizeNWSE;
        case ieTopRight:
        case ieBottomLeft:
            return crSizeNESW;
        case ieLeftSide:
        case ieRightSide:
            return crSizeWE;
        case ieTopSide:
        case ieBottomSide:
            return crSizeNS;
        case ieRotationCenter:
            return crIEMoveLayer;
        case ieRotate:
            return crIERotate;
        default:
            return -1;
    }
}

}  // namespace qpt
