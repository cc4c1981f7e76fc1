#include "skin/FillSkinRect.h"

#include <QLinearGradient>
#include <QPainter>

#include "skin/ColorTable.h"

namespace qpt {

namespace {

constexpr quint32 kClNone = 0x1FFFFFFF;
constexpr quint32 kClDefault = 0x20000000;

QColor SkinColor(quint32 value) {
    if (value == kClNone) return QColor(0, 0, 0, 0);
    const quint32 rgb = ColorToRGB(value);
    const int alpha = int(rgb >> 24);
    return QColor(int(rgb & 0xFF), int((rgb >> 8) & 0xFF), int((rgb >> 16) & 0xFF),
                  alpha == 0 ? 255 : alpha);
}

}  // namespace

void FillSkinRect(QPainter& painter, const QRect& rect, quint32 from, quint32 to,
                  TGradientDirection direction) {
    if (rect.isEmpty()) return;
    if (from == kClDefault) from = to;
    if (to == kClDefault) to = from;
    const QColor start = SkinColor(from), end = SkinColor(to);
    if (start.alpha() == 0 && end.alpha() == 0) return;
    if (start == end) {
        painter.fillRect(rect, start);
        return;
    }
    const QPointF last = direction == TGradientDirection::gdHorizontal
                             ? QPointF(rect.right() + 1, rect.top())
                             : QPointF(rect.left(), rect.bottom() + 1);
    QLinearGradient gradient(rect.topLeft(), last);
    gradient.setColorAt(0, start);
    gradient.setColorAt(1, end);
    painter.fillRect(rect, gradient);
}

}  // namespace qpt
