#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <vector>

#include "imaging/IEBitmap.h"
#include "imaging/IELayerTypes.h"

namespace qpt {

enum TIESmoothingMode : uint8_t { iesmNone, iesmAntiAlias };
enum TIEBrushStyle : uint8_t { iebsSolid = 0, iebsClear = 1 };

struct TIEPen {
    TColor Color = clBlack;
    double Width = 1;  // 0: no pen
    int Transparency = 255;
};

struct TIEBrush {
    TColor Color = clWhite;
    TIEBrushStyle Style = iebsSolid;
    int Transparency = 255;
    TColor GradientColor2 = clNone;  // clNone: plain colour
    uint8_t Gradient = 1;            // 1 horizontal, otherwise vertical
};

// Anti-aliased drawing on an ie24RGB or ie32RGB bitmap, through a QPainter
// over the bitmap's own rows. Pen and brush are read at each call.
class TIECanvas {
public:
    explicit TIECanvas(TIEBitmap& target);
    ~TIECanvas();
    TIECanvas(const TIECanvas&) = delete;
    TIECanvas& operator=(const TIECanvas&) = delete;

    bool IsValid() const { return !image_.isNull(); }

    TIEPen Pen;
    TIEBrush Brush;
    TIESmoothingMode SmoothingMode = iesmAntiAlias;
    bool TextAntiAlias = true;

    void DrawLine(QPointF from, QPointF to);
    void DrawRectangle(const QRectF& r);
    void FillRectangle(const QRectF& r);
    void DrawEllipse(const QRectF& r);
    void FillEllipse(const QRectF& r);
    void DrawPolygon(const std::vector<QPointF>& points);
    void FillPolygon(const std::vector<QPointF>& points);
    // Open chain of straight segments.
    void DrawPolyline(const std::vector<QPointF>& points);
    void DrawClosedCurve(const std::vector<QPointF>& points);
    void DrawCurve(const std::vector<QPointF>& points);
    void DrawText(const QRectF& r, const QString& text, const QFont& font, int flags);

    QPainter& Painter() { return painter_; }

private:
    bool UsePen();
    bool UseBrush(const QRectF& bounds);
    QPainterPath CurvePath(const std::vector<QPointF>& points, bool closed) const;

    QImage image_;
    QPainter painter_;
};

QColor IEQColor(TColor color, int alpha = 255);

}  // namespace qpt
