#pragma once

#include <array>

#include "imaging/IEVectorLayer.h"

namespace qpt {

class TIECanvas;

// Rectangle, ellipse, arrow and straight-line marks.
class TIEShapeLayer : public TIEVectorLayer {
public:
    explicit TIEShapeLayer(TIELayerList* owner);

    TIEShape Shape = iesEllipse;
    int32_t ShapeModifier = 0;
    uint8_t ArrowSize = 0;  // head of an arrow: 0 small, 1 medium, 2 large
    // Where the creating drag began, in bitmap pixels: an arrow or a straight
    // line points away from the corner nearest to it.
    QPoint DragStart;

    void PaintToBitmap(TIEBitmap& dest, int width, int height) override;
    bool SupersampledFor(int destWidth, int destHeight) const override;
    bool Hit(QPointF p, double tolerance) const override;
    void SaveToStream(QDataStream& out, bool withPixels) const override;
    void LoadFromStream(QDataStream& in) override;

    // 1: tail bottom left, 2: top left, 3: top right, 4: bottom right. Kept
    // from the last paint when DragStart is on no corner.
    int ArrowDirection() const { return arrowDirection_; }

private:
    int PenWidthFor(int width) const;
    void PaintBox(TIECanvas& canvas, int width, int height, int pen);
    void PaintOutline(TIECanvas& canvas, int width, int height, int pen);
    void UpdateArrowDirection();
    std::vector<QPointF> ArrowInLayerSpace();
    std::vector<QPointF> BoxOutline1000() const;
    std::pair<QPointF, QPointF> Diagonal() const;

    int arrowDirection_ = 2;
    std::vector<QPointF> outline1000_;  // made once, for the rotated path
};

// The arrow's fixed six-point outline: tail, inner quarter point, wing, tip,
// wing, inner quarter point. The head is sized in absolute pixels.
std::array<QPoint, 6> IEArrowOutline(QPoint tail, QPoint tip, int arrowSize);

}  // namespace qpt
