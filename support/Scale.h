#pragma once

#include <QSize>
#include <QString>

class QWidget;

namespace qpt {

// The interface scale, decided once before any form is shown. The picture
// itself is never scaled: only forms and the skin follow this.
void SetScaleEnabled(bool enabled);
bool ScaleActive();
// 2.0 while scaling is on, else 1.0.
double GetScaleFactor();
// Scales a widget and its children (positions, sizes, fonts) by the factor;
// nothing happens while scaling is off or without a widget.
void ScaleControl(QWidget* control);

// Whether a screen counts as high-resolution, from the work area of its
// monitor and the system's logical DPI.
bool IsHighDPIScreen(QSize workArea, int dpi);

// The skin package for the decided scale: the double-size one only when
// scaling is on and the package is there beside the program.
QString ChooseSkinRccFile(bool scaled, const QString& programFolder);

}  // namespace qpt
