#include "imaging/IELayerHitTest.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "imaging/IELayerList.h"
#include "imaging/IELineLayer.h"
#include "imaging/IEPolylineLayer.h"
#include "imaging/IEShapeLayer.h"

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

double SegmentDistance(QPointF p, QPointF a, QPointF b) {
    const QPointF ab = b - a;
    const double len2 = QPointF::dotProduct(ab, ab);
    const double t = len2 > 0 ? std::clamp(QPointF::dotProduct(p - a, ab) / len2, 0.0, 1.0) : 0;
    const QPointF d = p - (a + t * ab);
    return std::hypot(d.x(), d.y());
}

double PolygonEdgeDistance(QPointF p, const QPolygonF& poly, bool closed) {
    double best = INFINITY;
    const int n = int(poly.size());
    for (int i = 0; i + 1 < n + (closed ? 1 : 0); ++i)
        best = std::min(best, SegmentDistance(p, poly[i], poly[(i + 1) % n]));
    if (n == 1) best = SegmentDistance(p, poly[0], poly[0]);
    return best;
}

bool RectangleHit(const QRectF& box, QPointF p, bool filled, double reach) {
    if (filled) return box.adjusted(-reach, -reach, reach, reach).contains(p);
    const QPolygonF outline({box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()});
    return PolygonEdgeDistance(p, outline, true) <= reach;
}

bool EllipseHit(const QRectF& box, QPointF p, bool filled, double reach) {
    const double a = std::max(box.width() / 2, 0.5), b = std::max(box.height() / 2, 0.5);
    const QPointF d = p - box.center();
    const double k = std::hypot(d.x() / a, d.y() / b);
    if (filled && k <= 1) return true;
    if (k == 0) return std::min(a, b) <= reach;
    // Distance along the ray from the centre: close to the true one for the
    // thin outlines that are hit tested.
    const double radial = std::hypot(d.x(), d.y());
    return std::fabs(radial - radial / k) <= reach;
}

// Tail and tip of an arrow or straight line, by the corner the drag began at.
std::pair<QPointF, QPointF> Diagonal(const TIEShapeLayer& shape, const QRectF& box) {
    switch (shape.ArrowDirection()) {
        case 1:
            return {box.bottomLeft(), box.topRight()};
        case 3:
            return {box.topRight(), box.bottomLeft()};
        case 4:
            return {box.bottomRight(), box.topLeft()};
        default:
            return {box.topLeft(), box.bottomRight()};
    }
}

bool ShapeHit(const TIEShapeLayer& shape, QPointF p, double reach) {
    const QRectF box = Box(shape);
    const bool filled = shape.FillColor != clNone;
    switch (shape.Shape) {
        case iesEllipse:
            return EllipseHit(box, p, filled, reach);
        case iesArrow: {
            const auto [tail, tip] = Diagonal(shape, box);
            QPolygonF outline;
            for (QPoint q : IEArrowOutline(tail.toPoint(), tip.toPoint(), shape.ArrowSize))
                outline << QPointF(q);
            return outline.containsPoint(p, Qt::OddEvenFill) ||
                   PolygonEdgeDistance(p, outline, true) <= reach;
        }
        case iesLine: {
            const auto [from, to] = Diagonal(shape, box);
            return SegmentDistance(p, from, to) <= reach;
        }
        default:
            return RectangleHit(box, p, filled, reach);
    }
}

bool LineHit(const TIELineLayer& line, QPointF p, double tolerance) {
    const QPointF origin(line.PosX, line.PosY);
    auto at = [&](QPointF f) { return origin + QPointF(f.x() * line.Width, f.y() * line.Height); };
    return SegmentDistance(p, at(line.LineStart), at(line.LineEnd)) <=
           std::max(1, line.LineWidth) / 2.0 + tolerance;
}

bool PolylineHit(const TIEPolylineLayer& poly, QPointF p, double tolerance) {
    const auto& points = poly.PolylinePoints();
    if (points.empty()) return false;
    // Points are kept relative to the first one; the box is their bounds
    // plus the pen, so the first point sits at its offset inside the box.
    double minX = points[0].x(), minY = points[0].y();
    for (QPointF q : points)
        minX = std::min(minX, q.x()), minY = std::min(minY, q.y());
    const double pen = std::max(1, poly.BorderWidth);
    const QPointF origin(poly.PosX + pen / 2 - minX, poly.PosY + pen / 2 - minY);
    QPolygonF outline;
    for (QPointF q : points)
        outline << origin + q;
    if (poly.PolylineClosed && poly.FillColor != clNone &&
        outline.containsPoint(p, Qt::OddEvenFill))
        return true;
    return PolygonEdgeDistance(p, outline, poly.PolylineClosed) <= pen / 2 + tolerance;
}

}  // namespace

bool IELayerHit(const TIELayer& layer, QPointF p, double tolerance) {
    p = Unrotated(layer, p);
    const double pen = std::max(1, layer.BorderWidth) / 2.0;
    switch (layer.Kind()) {
        case ielkShape:
            return ShapeHit(static_cast<const TIEShapeLayer&>(layer), p, pen + tolerance);
        case ielkLine:
            return LineHit(static_cast<const TIELineLayer&>(layer), p, tolerance);
        case ielkPolyline:
            return PolylineHit(static_cast<const TIEPolylineLayer&>(layer), p, tolerance);
        default: {
            const QRectF box = Box(layer);
            return p.x() >= box.left() && p.x() < box.right() && p.y() >= box.top() &&
                   p.y() < box.bottom();
        }
    }
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
