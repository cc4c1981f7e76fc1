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

// The picture file exists; without it the session ends before any window.
bool HandOverPictureExists(const THandOver& handOver);

}  // namespace qpt
