#pragma once

#include <QImage>
#include <QRect>

namespace qpt::testing {

// The application object of the in-process tests, on the offscreen platform
// unless the test chose another. Made once and never destroyed: at exit Qt's
// input devices would go after their owner.
void MakeTestApplication();

// Leaves a picture and its rectangle where the host leaves them.
void WriteHandOver(const QImage& picture, const QRect& rect);

// A plain picture of one colour.
QImage PlainPicture(QSize size);

}  // namespace qpt::testing
