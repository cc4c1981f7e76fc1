#include "support/Scale.h"

#include <QFileInfo>
#include <QWidget>
#include <algorithm>

namespace qpt {

namespace {

bool scaleEnabled = false;
constexpr double kScaleFactor = 2.0;

int ScaledBy(int value, int multiplier, int divider) {
    return value * multiplier / divider;
}

// Limits of a widget's size grow with it; an open limit stays open.
void ScaleLimits(QWidget* widget, int multiplier, int divider) {
    const auto scaled = [&](int limit) {
        return limit == 0 || limit == QWIDGETSIZE_MAX ? limit
                                                      : ScaledBy(limit, multiplier, divider);
    };
    const QSize low = widget->minimumSize(), high = widget->maximumSize();
    widget->setMinimumSize(scaled(low.width()), scaled(low.height()));
    widget->setMaximumSize(scaled(high.width()), scaled(high.height()));
}

void ScaleBy(QWidget* widget, int multiplier, int divider) {
    ScaleLimits(widget, multiplier, divider);
    const QRect g = widget->geometry();
    // Top-level windows keep their place on the screen and only grow.
    const QPoint topLeft = widget->isWindow() ? g.topLeft()
                                              : QPoint(ScaledBy(g.x(), multiplier, divider),
                                                       ScaledBy(g.y(), multiplier, divider));
    widget->setGeometry(QRect(topLeft, QSize(ScaledBy(g.width(), multiplier, divider),
                                             ScaledBy(g.height(), multiplier, divider))));
    if (widget->testAttribute(Qt::WA_SetFont)) {
        QFont font = widget->font();
        if (font.pixelSize() > 0)
            font.setPixelSize(ScaledBy(font.pixelSize(), multiplier, divider));
        else
            font.setPointSizeF(font.pointSizeF() * multiplier / divider);
        widget->setFont(font);
    }
    for (QWidget* child : widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        ScaleBy(child, multiplier, divider);
}

}  // namespace

void SetScaleEnabled(bool enabled) {
    scaleEnabled = enabled;
}

bool ScaleActive() {
    return scaleEnabled;
}

double GetScaleFactor() {
    return scaleEnabled ? kScaleFactor : 1.0;
}

void ScaleControl(QWidget* control) {
    if (!scaleEnabled || !control) return;
    ScaleBy(control, int(kScaleFactor * 100), 100);
}

bool IsHighDPIScreen(QSize workArea, int dpi) {
    const int longest = std::max(workArea.width(), workArea.height());
    if (longest <= 1920) return false;
    if (longest < 3000 && dpi < 126) return false;
    return true;
}

QString ChooseSkinRccFile(bool scaled, const QString& programFolder) {
    if (scaled && QFileInfo(programFolder + "skin/classic2.rcc").isFile())
        return QStringLiteral("classic2.rcc");
    return QStringLiteral("classic.rcc");
}

}  // namespace qpt
