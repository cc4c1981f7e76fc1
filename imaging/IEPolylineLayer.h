#pragma once

#include "imaging/IEVectorLayer.h"

namespace qpt {

// A freehand stroke: points relative to the first one, joined by straight
// segments.
class TIEPolylineLayer : public TIEVectorLayer {
public:
    explicit TIEPolylineLayer(TIELayerList* owner);

    bool PolylineClosed = false;

    // Bitmap coordinates in; the first point of an empty polyline places the
    // layer. A point equal to the last one is dropped.
    void AddPoint(double x, double y);
    void ClearPoints();
    int PointCount() const { return int(points_.size()); }
    int PointCapacity() const { return int(points_.capacity()); }
    // Relative to the first point; raises "Invalid Points array index".
    QPointF Point(int index) const;
    const std::vector<QPointF>& PolylinePoints() const { return points_; }

    void ApplyChanges() override;
    void PaintToBitmap(TIEBitmap& dest, int width, int height) override;
    bool Hit(QPointF p, double tolerance) const override;
    void SaveToStream(QDataStream& out, bool withPixels) const override;
    void LoadFromStream(QDataStream& in) override;

private:
    std::vector<QPointF> points_;
    QPointF base_;        // bitmap position of the relative origin
    QPointF appliedPos_;  // PosX, PosY as the last ApplyChanges left them
    bool pointsAdded_ = false;
};

}  // namespace qpt
