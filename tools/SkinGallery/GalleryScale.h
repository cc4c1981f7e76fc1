#pragma once

#include <QSize>

class QObject;

namespace qpt {

// The double-size skin ("classic2") is drawn for a program that doubles its
// own sizes: the gallery does the same, so that every picture meets a
// control of the size it was drawn for. Set once, before any section.
void SetGalleryScale(int scale);
int Scaled(int pixels);
QSize Scaled(const QSize& size);
// Scales every skin font at or below `root` once; a font met again is left.
void ScaleFonts(QObject* root);

}  // namespace qpt
