#include "imaging/IEShapeLayer.h"

#include <cmath>

#include "imaging/IECanvas.h"
#include "imaging/IELayerStreamFormat.h"
#include "imaging/IEOutlineHit.h"

namespace qpt {

namespace {

struct ArrowHead {
    double length;
    double halfAngle;  // degrees
};
constexpr ArrowHead kArrowHeads[3] = {{15, 10}, {20, 15}, {28, 26}};

bool IsWholeTurnOf180(double degrees) {
    return std::fmod(std::fabs(degrees), 180.0) == 0;
}

}  // namespace

std::array<QPoint, 6> IEArrowOutline(QPoint tail, QPoint tip, int arrowSize) {
    const ArrowHead head = kArrowHeads[std::clamp(arrowSize, 0, 2)];
    const double toRad = M_PI / 180.0;
    const double x0 = tail.x(), y0 = tail.y(), x1 = tip.x(), y1 = tip.y();
    const double d = std::atan2(y1 - y0, x1 - x0) / toRad;
    auto wing = [&](double angle) {
        return QPointF(x1 - std::ceil(std::cos(angle * toRad) * head.length),
                       y1 - std::ceil(std::sin(angle * toRad) * head.length));
    };
    const QPointF w2 = wing(d - head.halfAngle), w1 = wing(d + head.halfAngle);
    const QPointF m = (w2 + w1) / 2, q2 = (w2 + m) / 2, q1 = (w1 + m) / 2;
    auto up = [](QPointF p) { return QPoint(int(std::ceil(p.x())), int(std::ceil(p.y()))); };
    return {up(tail), up(q2), up(w2), up(tip), up(w1), up(q1)};
}

TIEShapeLayer::TIEShapeLayer(TIELayerList* owner) : TIEVectorLayer(ielkShape, owner) {
    BorderColor = clBlack;
    BorderWidth = 1;
    FillColor = clRed;
    FillColor2 = clNone;
}

// Supersampling costs four times the pixels: above one million destination
// pixels it would cost too much.
bool TIEShapeLayer::SupersampledFor(int destWidth, int destHeight) const {
    return AntiAlias && int64_t(destWidth) * destHeight < 1000000;
}

int TIEShapeLayer::PenWidthFor(int width) const {
    if (BorderColor == clNone || BorderWidth <= 0 || Width <= 0) return 0;
    return std::max(1, int(std::lround(BorderWidth * width / Width)));
}

void TIEShapeLayer::PaintToBitmap(TIEBitmap& dest, int width, int height) {
    if (!IEAllocateCanvas(dest, width, height)) return;
    TIECanvas canvas(dest);
    if (!canvas.IsValid()) return;
    const int pen = PenWidthFor(width);
    canvas.SmoothingMode = AntiAlias ? iesmAntiAlias : iesmNone;
    canvas.Pen = TIEPen{BorderColor, double(pen), 255};
    canvas.Brush = TIEBrush{FillColor, FillColor == clNone ? iebsClear : iebsSolid, 255, FillColor2,
                            FillGradient};
    const bool box = Shape == iesEllipse || Shape == iesRectangle || Shape == iesRoundRect;
    if (box && IsWholeTurnOf180(Rotate) && !AspectRatioLocked)
        PaintBox(canvas, width, height, pen);
    else
        PaintOutline(canvas, width, height, pen);
}

// The stroke is centred on its path: a path inset by half the pen puts the
// pen's outer edge on the box edge.
void TIEShapeLayer::PaintBox(TIECanvas& canvas, int width, int height, int pen) {
    const double inset = pen / 2.0;
    const QRectF r(inset, inset, width - pen, height - pen);
    if (Shape == iesEllipse) {
        canvas.FillEllipse(r);
        canvas.DrawEllipse(r);
    } else {
        canvas.FillRectangle(r);
        canvas.DrawRectangle(r);
    }
}

void TIEShapeLayer::UpdateArrowDirection() {
    const double x = std::trunc(DragStart.x() - PosX), y = std::trunc(DragStart.y() - PosY);
    const double w = std::trunc(Width), h = std::trunc(Height);
    // A pixel of slack: the box may be rounded next to the press.
    auto near = [](double a, double b) { return std::fabs(a - b) <= 1; };
    const bool left = near(x, 0), right = near(x, w), top = near(y, 0), bottom = near(y, h);
    if (left && bottom)
        arrowDirection_ = 1;
    else if (left && top)
        arrowDirection_ = 2;
    else if (right && top)
        arrowDirection_ = 3;
    else if (right && bottom)
        arrowDirection_ = 4;
}

std::vector<QPointF> TIEShapeLayer::ArrowInLayerSpace() {
    UpdateArrowDirection();
    const int w = int(std::lround(Width)), h = int(std::lround(Height));
    const QPoint corners[4][2] = {
        {{0, h}, {w, 0}}, {{0, 0}, {w, h}}, {{w, 0}, {0, h}}, {{w, h}, {0, 0}}};
    const auto& pair = corners[arrowDirection_ - 1];
    std::vector<QPointF> outline;
    for (QPoint p : IEArrowOutline(pair[0], pair[1], ArrowSize))
        outline.emplace_back(p);
    return outline;
}

// Rectangle and ellipse outlines in a 1000 by 1000 box, for the rotated path.
std::vector<QPointF> TIEShapeLayer::BoxOutline1000() const {
    if (Shape == iesRectangle || Shape == iesRoundRect)
        return {{0, 0}, {1000, 0}, {1000, 1000}, {0, 1000}};
    std::vector<QPointF> points;
    for (int i = 0; i < 72; ++i) {
        const double a = i * M_PI / 36;
        points.emplace_back(500 + 500 * std::cos(a), 500 + 500 * std::sin(a));
    }
    return points;
}

void TIEShapeLayer::PaintOutline(TIECanvas& canvas, int width, int height, int pen) {
    std::vector<QPointF> points;
    double fromW = 1000, fromH = 1000;
    if (Shape == iesArrow || Shape == iesLine) {
        points = ArrowInLayerSpace();
        fromW = std::max(1.0, std::round(Width));
        fromH = std::max(1.0, std::round(Height));
    } else {
        if (outline1000_.empty()) outline1000_ = BoxOutline1000();
        points = outline1000_;
    }
    // The pen stays inside the box: an inset of half the pen, rounded up to whole pixels.
    const int wholeInset = (pen + 1) / 2;
    const double inset = wholeInset;
    const double sx = (width - 2 * inset) / fromW, sy = (height - 2 * inset) / fromH;
    const QPointF centre(width / 2.0, height / 2.0);
    const double a = -Rotate * M_PI / 180, c = std::cos(a), s = std::sin(a);
    for (QPointF& p : points) {
        const QPointF q(inset + p.x() * sx - centre.x(), inset + p.y() * sy - centre.y());
        p = centre + QPointF(q.x() * c - q.y() * s, q.x() * s + q.y() * c);
    }
    if (Shape == iesLine) {
        canvas.DrawLine(points[0], points[3]);
        return;
    }
    canvas.FillPolygon(points);
    canvas.DrawPolygon(points);
}

// Tail and tip of an arrow or straight line, by the corner the drag began at.
std::pair<QPointF, QPointF> TIEShapeLayer::Diagonal() const {
    const QRectF box = QRectF(PosX, PosY, Width, Height).normalized();
    switch (arrowDirection_) {
        case 1:
            return {box.bottomLeft(), box.topRight()};
        case 3:
            return {box.topRight(), box.bottomLeft()};
        case 4:
            return {box.bottomRight(), box.topLeft()};
        default:
            return {box.topLeft(), box.bottomRight()};
    }
}

bool TIEShapeLayer::Hit(QPointF p, double tolerance) const {
    const QRectF box = QRectF(PosX, PosY, Width, Height).normalized();
    const bool filled = FillColor != clNone;
    const double reach = std::max(1, BorderWidth) / 2.0 + tolerance;
    switch (Shape) {
        case iesEllipse:
            return IEEllipseHit(box, p, filled, reach);
        case iesArrow: {
            const auto [tail, tip] = Diagonal();
            QPolygonF outline;
            for (QPoint q : IEArrowOutline(tail.toPoint(), tip.toPoint(), ArrowSize))
                outline << QPointF(q);
            return outline.containsPoint(p, Qt::OddEvenFill) ||
                   IEPolygonEdgeDistance(p, outline, true) <= reach;
        }
        case iesLine: {
            const auto [from, to] = Diagonal();
            return IESegmentDistance(p, from, to) <= reach;
        }
        default:
            return IERectangleHit(box, p, filled, reach);
    }
}

void TIEShapeLayer::SaveToStream(QDataStream& out, bool withPixels) const {
    TIELayer::SaveToStream(out, withPixels);
    out << quint8(Shape) << qint32(ShapeModifier) << quint8(ArrowSize) << qint32(DragStart.x())
        << qint32(DragStart.y()) << qint32(arrowDirection_);
}

void TIEShapeLayer::LoadFromStream(QDataStream& in) {
    TIELayer::LoadFromStream(in);
    Shape = TIEShape(IEReadByte(in, 101));
    ShapeModifier = IEReadInt(in, INT32_MIN, INT32_MAX);
    ArrowSize = IEReadByte(in, 2);
    const int x = IEReadInt(in, INT32_MIN, INT32_MAX);
    DragStart = QPoint(x, IEReadInt(in, INT32_MIN, INT32_MAX));
    arrowDirection_ = IEReadInt(in, 1, 4);
    outline1000_.clear();
}

}  // namespace qpt
