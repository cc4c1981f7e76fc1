#include "app/HandOver.h"

#include <QFileInfo>

#include "support/MainIni.h"
#include "support/NameValueList.h"
#include "support/Paths.h"

namespace qpt {

THandOver ReadHandOver() {
    THandOver handOver;
    const QString temp = GetTempFolder();
    if (!temp.isEmpty()) handOver.picturePath = temp + "QPTPinTemp.bmp";
    TNameValueList startPin;
    startPin.AddStrings(ReadMainIniSection("StartPin"));
    const auto number = [&startPin](const char* key) {
        bool ok = false;
        const int value = startPin.Values(QLatin1String(key)).trimmed().toInt(&ok);
        return ok ? value : 0;
    };
    const int left = number("Left"), top = number("Top");
    // Right and Bottom lie just outside the rectangle.
    handOver.rect = QRect(left, top, number("Right") - left, number("Bottom") - top);
    return handOver;
}

bool HandOverPictureExists(const THandOver& handOver) {
    return !handOver.picturePath.isEmpty() && QFileInfo(handOver.picturePath).isFile();
}

}  // namespace qpt
