#pragma once

#include "imaging/IEVectorLayer.h"

namespace qpt {

// A straight line between two points given as fractions of the layer box.
class TIELineLayer : public TIEVectorLayer {
public:
    explicit TIELineLayer(TIELayerList* owner);

    TColor LineColor = clBlack;
    int32_t LineWidth = 1;
    TColor LineFillColor = clWhite;
    uint8_t LineStartShape = 0;  // none
    uint8_t LineEndShape = 0;    // none
    int32_t LineShapeSize = 20;
    TIEFont LabelFont;
    QString LabelText;
    int32_t LabelPosition = 2;
    int32_t LabelAlignment = 6;
    double LineLength = 0;
    QPointF LineStart{0, 0};  // fractions of Width and Height
    QPointF LineEnd{1, 1};

    // Places the box around two bitmap points, leaving room for the pen.
    void SetEndPoints(QPointF from, QPointF to);

    // A line's look lives in its own fields; the common setters reach them.
    void SetBorderColor(TColor color) override;
    void SetBorderWidth(int32_t width) override;
    void SetFillColor(TColor color) override;

    void PaintToBitmap(TIEBitmap& dest, int width, int height) override;
    bool Hit(QPointF p, double tolerance) const override;
    void TurnOver(bool x, bool y) override;
    void SaveToStream(QDataStream& out, bool withPixels) const override;
    void LoadFromStream(QDataStream& in) override;
};

}  // namespace qpt
