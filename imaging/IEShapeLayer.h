#pragma once

#include <array>

#include "imaging/IELayer.h"

namespace qpt {

class TIECanvas;

// Rectangle, ellipse, arrow and straight-line marks.
class TIEShapeLayer : public TIELayer {
public:
    explicit TIEShapeLayer(TIELayerList* owner);

    TIEShape Shape = iesEllipse;
    int32_t ShapeModifier = 0;

    void PaintToBitmap(TIEBitmap& dest, int width, int height) override;
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

    int arrowDirection_ = 2;
};

// The arrow's fixed six-point outline: tail, inner quarter point, wing, tip,
// wing, inner quarter point. The head is sized in absolute pixels.
std::array<QPoint, 6> IEArrowOutline(QPoint tail, QPoint tip, int arrowSize);

}  // namespace qpt
