#include "imaging/IECanvas.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <algorithm>

namespace qpt {

QColor IEQColor(TColor color, int alpha) {
    if (color == clNone) color = clWhite;  // a colour is needed: white stands in
    return QColor(ColorR(color), ColorG(color), ColorB(color), alpha);
}

TIECanvas::TIECanvas(TIEBitmap& target) : image_(target.WrapQImage()) {
    if (image_.isNull()) return;
    // One picture pixel is one device pixel: text sizes in points assume 96 dpi.
    image_.setDotsPerMeterX(3780);
    image_.setDotsPerMeterY(3780);
    painter_.begin(&image_);
}

TIECanvas::~TIECanvas() {
    if (painter_.isActive()) painter_.end();
}

bool TIECanvas::UsePen() {
    if (Pen.Width <= 0 || Pen.Color == clNone) {
        painter_.setPen(Qt::NoPen);
        return false;
    }
    QPen pen(IEQColor(Pen.Color, Pen.Transparency), Pen.Width);
    pen.setJoinStyle(Qt::MiterJoin);
    pen.setCapStyle(Qt::FlatCap);
    painter_.setPen(pen);
    painter_.setRenderHint(QPainter::Antialiasing, SmoothingMode == iesmAntiAlias);
    return true;
}

bool TIECanvas::UseBrush(const QRectF& bounds) {
    if (Brush.Style == iebsClear || Brush.Color == clNone) {
        painter_.setBrush(Qt::NoBrush);
        return false;
    }
    if (Brush.GradientColor2 == clNone) {
        painter_.setBrush(IEQColor(Brush.Color, Brush.Transparency));
    } else {
        QPointF end = Brush.Gradient == 1 ? bounds.topRight() : bounds.bottomLeft();
        QLinearGradient gradient(bounds.topLeft(), end);
        gradient.setColorAt(0, IEQColor(Brush.Color, Brush.Transparency));
        gradient.setColorAt(1, IEQColor(Brush.GradientColor2, Brush.Transparency));
        painter_.setBrush(gradient);
    }
    painter_.setRenderHint(QPainter::Antialiasing, SmoothingMode == iesmAntiAlias);
    return true;
}

void TIECanvas::DrawLine(QPointF from, QPointF to) {
    if (UsePen()) painter_.drawLine(from, to);
}

void TIECanvas::DrawRectangle(const QRectF& r) {
    if (!UsePen()) return;
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(r);
}

void TIECanvas::FillRectangle(const QRectF& r) {
    if (!UseBrush(r)) return;
    painter_.setPen(Qt::NoPen);
    painter_.drawRect(r);
}

void TIECanvas::DrawEllipse(const QRectF& r) {
    if (!UsePen()) return;
    painter_.setBrush(Qt::NoBrush);
    painter_.drawEllipse(r);
}

void TIECanvas::FillEllipse(const QRectF& r) {
    if (!UseBrush(r)) return;
    painter_.setPen(Qt::NoPen);
    painter_.drawEllipse(r);
}

static QRectF BoundsOf(const std::vector<QPointF>& points) {
    QPolygonF polygon(points.begin(), points.end());
    return polygon.boundingRect();
}

void TIECanvas::DrawPolygon(const std::vector<QPointF>& points) {
    if (points.size() < 2 || !UsePen()) return;
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPolygon(points.data(), int(points.size()));
}

void TIECanvas::FillPolygon(const std::vector<QPointF>& points) {
    if (points.size() < 3 || !UseBrush(BoundsOf(points))) return;
    painter_.setPen(Qt::NoPen);
    painter_.drawPolygon(points.data(), int(points.size()));
}

void TIECanvas::DrawPolyline(const std::vector<QPointF>& points) {
    if (points.empty() || !UsePen()) return;
    QPen pen = painter_.pen();
    pen.setJoinStyle(Qt::RoundJoin);
    pen.setCapStyle(Qt::RoundCap);
    painter_.setPen(pen);
    painter_.setBrush(Qt::NoBrush);
    if (points.size() == 1)
        painter_.drawPoint(points[0]);
    else
        painter_.drawPolyline(points.data(), int(points.size()));
}

// Catmull-Rom segments through every point, as a cardinal spline of tension 0.5.
QPainterPath TIECanvas::CurvePath(const std::vector<QPointF>& points, bool closed) const {
    QPainterPath path;
    const int n = int(points.size());
    if (n < 2) return path;
    auto at = [&](int i) {
        if (closed) return points[(i % n + n) % n];
        return points[std::clamp(i, 0, n - 1)];
    };
    path.moveTo(points[0]);
    const int segments = closed ? n : n - 1;
    for (int i = 0; i < segments; ++i) {
        QPointF p0 = at(i - 1), p1 = at(i), p2 = at(i + 1), p3 = at(i + 2);
        path.cubicTo(p1 + (p2 - p0) / 6.0, p2 - (p3 - p1) / 6.0, p2);
    }
    if (closed) path.closeSubpath();
    return path;
}

void TIECanvas::DrawClosedCurve(const std::vector<QPointF>& points) {
    QPainterPath path = CurvePath(points, true);
    if (UseBrush(path.boundingRect())) painter_.fillPath(path, painter_.brush());
    if (UsePen()) painter_.strokePath(path, painter_.pen());
}

void TIECanvas::DrawCurve(const std::vector<QPointF>& points) {
    if (UsePen()) painter_.strokePath(CurvePath(points, false), painter_.pen());
}

void TIECanvas::DrawText(const QRectF& r, const QString& text, const QFont& font, int flags) {
    painter_.setRenderHint(QPainter::TextAntialiasing, TextAntiAlias);
    painter_.setFont(font);
    painter_.setPen(IEQColor(Pen.Color, Pen.Transparency));
    painter_.drawText(r, flags, text);
}

}  // namespace qpt
