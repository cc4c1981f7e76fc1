#include "imaging/IEOutlineHit.h"

#include <algorithm>
#include <cmath>

namespace qpt {

double IESegmentDistance(QPointF p, QPointF a, QPointF b) {
    const QPointF ab = b - a;
    const double len2 = QPointF::dotProduct(ab, ab);
    const double t = len2 > 0 ? std::clamp(QPointF::dotProduct(p - a, ab) / len2, 0.0, 1.0) : 0;
    const QPointF d = p - (a + t * ab);
    return std::hypot(d.x(), d.y());
}

double IEPolygonEdgeDistance(QPointF p, const QPolygonF& poly, bool closed) {
    double best = INFINITY;
    const int n = int(poly.size());
    for (int i = 0; i + 1 < n + (closed ? 1 : 0); ++i)
        best = std::min(best, IESegmentDistance(p, poly[i], poly[(i + 1) % n]));
    if (n == 1) best = IESegmentDistance(p, poly[0], poly[0]);
    return best;
}

bool IERectangleHit(const QRectF& box, QPointF p, bool filled, double reach) {
    if (filled) return box.adjusted(-reach, -reach, reach, reach).contains(p);
    const QPolygonF outline({box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()});
    return IEPolygonEdgeDistance(p, outline, true) <= reach;
}

bool IEEllipseHit(const QRectF& box, QPointF p, bool filled, double reach) {
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

}  // namespace qpt
