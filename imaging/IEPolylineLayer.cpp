#include "imaging/IEPolylineLayer.h"

#include <algorithm>
#include <cmath>

#include "imaging/IECanvas.h"
#include "imaging/IELayerStreamFormat.h"
#include "imaging/IEOutlineHit.h"

namespace qpt {

TIEPolylineLayer::TIEPolylineLayer(TIELayerList* owner) : TIEVectorLayer(ielkPolyline, owner) {
    BorderColor = clBlack;
    BorderWidth = 1;
    FillColor = clWhite;
}

void TIEPolylineLayer::AddPoint(double x, double y) {
    if (points_.empty()) {
        PosX = x;
        PosY = y;
        base_ = appliedPos_ = QPointF(x, y);
        points_.emplace_back(0, 0);
    } else {
        const QPointF p = QPointF(x, y) - base_;
        if (p == points_.back()) return;
        points_.push_back(p);
    }
    pointsAdded_ = true;
    Changed(true);
}

void TIEPolylineLayer::ClearPoints() {
    points_.clear();
    Changed(true);
}

QPointF TIEPolylineLayer::Point(int index) const {
    if (index < 0 || index >= PointCount()) throw EIEException("Invalid Points array index");
    return points_[size_t(index)];
}

void TIEPolylineLayer::ApplyChanges() {
    if (!pointsAdded_ || points_.empty()) return;
    pointsAdded_ = false;
    base_ += QPointF(PosX, PosY) - appliedPos_;  // follow a move made since
    auto [minX, maxX] = std::minmax_element(points_.begin(), points_.end(),
                                            [](QPointF a, QPointF b) { return a.x() < b.x(); });
    auto [minY, maxY] = std::minmax_element(points_.begin(), points_.end(),
                                            [](QPointF a, QPointF b) { return a.y() < b.y(); });
    const double pen = std::max(1, BorderWidth);
    PosX = base_.x() + minX->x() - pen / 2;
    PosY = base_.y() + minY->y() - pen / 2;
    Width = maxX->x() - minX->x() + pen;
    Height = maxY->y() - minY->y() + pen;
    appliedPos_ = QPointF(PosX, PosY);
    Changed(true);
}

void TIEPolylineLayer::PaintToBitmap(TIEBitmap& dest, int width, int height) {
    ApplyChanges();
    if (!IEAllocateCanvas(dest, width, height)) return;
    TIECanvas canvas(dest);
    if (!canvas.IsValid() || points_.empty() || Width <= 0 || Height <= 0) return;
    const double zoom = width / Width;
    const double pen = std::max(1.0, std::round(BorderWidth * zoom));
    const double inset = pen / 2;
    double minX = points_[0].x(), maxX = minX, minY = points_[0].y(), maxY = minY;
    for (QPointF p : points_) {
        minX = std::min(minX, p.x()), maxX = std::max(maxX, p.x());
        minY = std::min(minY, p.y()), maxY = std::max(maxY, p.y());
    }
    const double sx = maxX > minX ? (width - 2 * inset) / (maxX - minX) : 0;
    const double sy = maxY > minY ? (height - 2 * inset) / (maxY - minY) : 0;
    std::vector<QPointF> scaled;
    scaled.reserve(points_.size());
    for (QPointF p : points_)
        scaled.emplace_back(sx != 0 ? inset + (p.x() - minX) * sx : width / 2.0,
                            sy != 0 ? inset + (p.y() - minY) * sy : height / 2.0);
    canvas.SmoothingMode = AntiAlias ? iesmAntiAlias : iesmNone;
    canvas.Pen = TIEPen{BorderColor, BorderColor == clNone ? 0 : pen, 255};
    if (PolylineClosed) {
        canvas.Brush = TIEBrush{FillColor, FillColor == clNone ? iebsClear : iebsSolid};
        canvas.FillPolygon(scaled);
        canvas.DrawPolygon(scaled);
    } else {
        canvas.DrawPolyline(scaled);
    }
}

bool TIEPolylineLayer::Hit(QPointF p, double tolerance) const {
    if (points_.empty()) return false;
    // The box is the points' bounds plus the pen, so the first point sits at
    // its offset inside the box.
    double minX = points_[0].x(), minY = points_[0].y();
    for (QPointF q : points_)
        minX = std::min(minX, q.x()), minY = std::min(minY, q.y());
    const double pen = std::max(1, BorderWidth);
    const QPointF origin(PosX + pen / 2 - minX, PosY + pen / 2 - minY);
    QPolygonF outline;
    for (QPointF q : points_)
        outline << origin + q;
    if (PolylineClosed && FillColor != clNone && outline.containsPoint(p, Qt::OddEvenFill))
        return true;
    return IEPolygonEdgeDistance(p, outline, PolylineClosed) <= pen / 2 + tolerance;
}

void TIEPolylineLayer::SaveToStream(QDataStream& out, bool withPixels) const {
    TIELayer::SaveToStream(out, withPixels);
    out << PolylineClosed << quint32(points_.size());
    for (QPointF p : points_)
        out << p.x() << p.y();
    out << base_.x() << base_.y();
}

void TIEPolylineLayer::LoadFromStream(QDataStream& in) {
    TIELayer::LoadFromStream(in);
    const double M = kMaxCoordinate;
    PolylineClosed = IEReadBool(in);
    const int count = IEReadInt(in, 0, 1 << 22);
    std::vector<QPointF> points;
    for (int i = 0; i < count; ++i) {
        const double x = IEReadDouble(in, -M, M);
        points.emplace_back(x, IEReadDouble(in, -M, M));
    }
    const double bx = IEReadDouble(in, -M, M), by = IEReadDouble(in, -M, M);
    points_ = std::move(points);
    base_ = QPointF(bx, by);
    appliedPos_ = QPointF(PosX, PosY);
    pointsAdded_ = false;
}

}  // namespace qpt
