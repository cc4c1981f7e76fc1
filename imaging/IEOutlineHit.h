#pragma once

#include <QPolygonF>
#include <QRectF>

namespace qpt {

// Distances and hits on the outlines that layers are drawn from, in bitmap
// pixels; reach is the half pen plus the slack a thin outline is given.
double IESegmentDistance(QPointF p, QPointF a, QPointF b);
double IEPolygonEdgeDistance(QPointF p, const QPolygonF& poly, bool closed);
bool IERectangleHit(const QRectF& box, QPointF p, bool filled, double reach);
bool IEEllipseHit(const QRectF& box, QPointF p, bool filled, double reach);

}  // namespace qpt
