#pragma once

#include <QImage>
#include <QWidget>

#include "skin/RdImageButton.h"

namespace qpt::testing {

inline const QRgb kNormal = qRgb(200, 0, 0);
inline const QRgb kOver = qRgb(0, 200, 0);
inline const QRgb kDown = qRgb(0, 0, 200);
inline const QRgb kSelected = qRgb(200, 200, 0);
inline const QRgb kDisabled = qRgb(90, 90, 90);
inline const QRgb kIcon = qRgb(0, 200, 200);
inline const QRgb kIconHover = qRgb(200, 0, 200);
inline const QRgb kIconDown = qRgb(255, 255, 255);

void SetPicture(TRdPictureProperty* property, const QImage& image);
// A picture of one colour.
void SetPicture(TRdPictureProperty* property, QRgb color, QSize size = QSize(8, 8));
// What the widget paints over nothing.
QImage Shot(QWidget& widget);

// A 200 x 100 window with one 100 x 40 button at (10, 10) with a picture for
// every state, counting its clicks.
struct ImageButtonStage {
    QWidget window;
    TRdImageButton* button = new TRdImageButton(&window);
    int clicks = 0;
    int iconClicks = 0;

    ImageButtonStage();
    // A 10 x 10 icon at the right edge: x 90..99 of the button.
    void AddIcon();
    QRgb Body() { return Shot(*button).pixel(20, 20); }
    QRgb Icon() { return Shot(*button).pixel(95, 20); }
};

}  // namespace qpt::testing
