#pragma once

#include <QRect>
#include <QString>

namespace qpt {

// What the host leaves behind before it starts this program: the captured
// picture in the temporary folder and its rectangle in section "StartPin".
struct THandOver {
    QString picturePath;  // empty when there is no temporary folder
    QRect rect;           // desktop pixels; may be empty
};

THandOver ReadHandOver();

// The rectangle from the four "StartPin" values, with Right and Bottom just
// outside it. The sizes are worked out in 64 bits (the difference of two
// 32-bit values may not fit in 32), and position and size are clamped to
// what an X11 window can have: a host of another version that writes
// extreme values still gets a window, never a process without one.
QRect HandOverRect(int left, int top, int right, int bottom);

// The picture file exists; without it the session ends before any window.
bool HandOverPictureExists(const THandOver& handOver);

}  // namespace qpt
