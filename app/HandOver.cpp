#include "app/HandOver.h"

#include <QFileInfo>

#include "support/MainIni.h"
#include "support/Paths.h"

namespace qpt {

namespace {

int ReadStartPin(const char* key) {
    bool ok = false;
    const int value = ReadMainIni("StartPin", key, "0").trimmed().toInt(&ok);
    return ok ? value : 0;
}

}  // namespace

THandOver ReadHandOver() {
    THandOver handOver;
    const QString temp = GetTempFolder();
    if (!temp.isEmpty()) handOver.picturePath = temp + "QPTPinTemp.bmp";
    const int left = ReadStartPin("Left");
    const int top = ReadStartPin("Top");
    // Right and Bottom lie just outside the rectangle.
    handOver.rect = QRect(left, top, ReadStartPin("Right") - left, ReadStartPin("Bottom") - top);
    return handOver;
}

bool HandOverPictureExists(const THandOver& handOver) {
    return !handOver.picturePath.isEmpty() && QFileInfo(handOver.picturePath).isFile();
}

}  // namespace qpt
