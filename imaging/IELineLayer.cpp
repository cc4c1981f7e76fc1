#include "imaging/IELineLayer.h"

#include <cmath>

#include "imaging/IECanvas.h"
#include "imaging/IELayerStreamFormat.h"
#include "imaging/IEOutlineHit.h"

namespace qpt {

TIELineLayer::TIELineLayer(TIELayerList* owner) : TIEVectorLayer(ielkLine, owner) {
    BorderColor = clBlack;
    FillColor = clWhite;
}

void TIELineLayer::SetEndPoints(QPointF from, QPointF to) {
    const double margin = std::max(1, LineWidth) / 2.0 + 1;
    const QRectF box = QRectF(from, to).normalized().adjusted(-margin, -margin, margin, margin);
    PosX = box.x();
    PosY = box.y();
    Width = box.width();
    Height = box.height();
    LineStart = QPointF((from.x() - PosX) / Width, (from.y() - PosY) / Height);
    LineEnd = QPointF((to.x() - PosX) / Width, (to.y() - PosY) / Height);
    LineLength = std::hypot(to.x() - from.x(), to.y() - from.y());
    Changed(true);
}

void TIELineLayer::SetBorderColor(TColor color) {
    LineColor = color;
    TIELayer::SetBorderColor(color);
}

void TIELineLayer::SetBorderWidth(int32_t width) {
    LineWidth = width;
    TIELayer::SetBorderWidth(width);
}

void TIELineLayer::SetFillColor(TColor color) {
    LineFillColor = color;
    TIELayer::SetFillColor(color);
}

bool TIELineLayer::Hit(QPointF p, double tolerance) const {
    const QPointF origin(PosX, PosY);
    auto at = [&](QPointF f) { return origin + QPointF(f.x() * Width, f.y() * Height); };
    return IESegmentDistance(p, at(LineStart), at(LineEnd)) <=
           std::max(1, LineWidth) / 2.0 + tolerance;
}

void TIELineLayer::TurnOver(bool x, bool y) {
    auto mirror = [&](QPointF f) { return QPointF(x ? 1 - f.x() : f.x(), y ? 1 - f.y() : f.y()); };
    LineStart = mirror(LineStart);
    LineEnd = mirror(LineEnd);
}

void TIELineLayer::PaintToBitmap(TIEBitmap& dest, int width, int height) {
    if (!IEAllocateCanvas(dest, width, height)) return;
    TIECanvas canvas(dest);
    if (!canvas.IsValid() || LineWidth <= 0 || LineColor == clNone || Width <= 0 || Height <= 0)
        return;
    const double pen = std::round(LineWidth * (width / Width + height / Height) / 2);
    canvas.SmoothingMode = AntiAlias ? iesmAntiAlias : iesmNone;
    canvas.Pen = TIEPen{LineColor, pen, 255};
    canvas.DrawLine(QPointF(LineStart.x() * width, LineStart.y() * height),
                    QPointF(LineEnd.x() * width, LineEnd.y() * height));
}

void TIELineLayer::SaveToStream(QDataStream& out, bool withPixels) const {
    TIELayer::SaveToStream(out, withPixels);
    out << quint32(LineColor) << qint32(LineWidth) << quint32(LineFillColor)
        << quint8(LineStartShape) << quint8(LineEndShape) << qint32(LineShapeSize) << LabelFont.Name
        << qint32(LabelFont.Size) << quint32(LabelFont.Color) << LabelFont.Bold << LabelFont.Italic
        << LabelFont.Underline << LabelText << qint32(LabelPosition) << qint32(LabelAlignment)
        << LineLength << LineStart.x() << LineStart.y() << LineEnd.x() << LineEnd.y();
}

void TIELineLayer::LoadFromStream(QDataStream& in) {
    TIELayer::LoadFromStream(in);
    const double M = kMaxCoordinate;
    LineColor = IEReadColor(in);
    LineWidth = IEReadInt(in, 0, 100000);
    LineFillColor = IEReadColor(in);
    LineStartShape = IEReadByte(in, 255);
    LineEndShape = IEReadByte(in, 255);
    LineShapeSize = IEReadInt(in, 0, 100000);
    LabelFont.Name = IEReadString(in);
    LabelFont.Size = IEReadInt(in, 0, 10000);
    LabelFont.Color = IEReadColor(in);
    LabelFont.Bold = IEReadBool(in);
    LabelFont.Italic = IEReadBool(in);
    LabelFont.Underline = IEReadBool(in);
    LabelText = IEReadString(in);
    LabelPosition = IEReadInt(in, INT32_MIN, INT32_MAX);
    LabelAlignment = IEReadInt(in, INT32_MIN, INT32_MAX);
    LineLength = IEReadDouble(in, 0, M);
    const double sx = IEReadDouble(in, -M, M), sy = IEReadDouble(in, -M, M);
    const double ex = IEReadDouble(in, -M, M), ey = IEReadDouble(in, -M, M);
    LineStart = QPointF(sx, sy);
    LineEnd = QPointF(ex, ey);
}

}  // namespace qpt
