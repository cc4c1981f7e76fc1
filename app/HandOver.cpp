#include "app/HandOver.h"

#include <QFileInfo>
#include <algorithm>

#include "support/MainIni.h"
#include "support/NameValueList.h"
#include "support/Paths.h"

namespace qpt {

namespace {

// Window positions travel as 16-bit signed numbers, sizes as 16-bit unsigned
// ones, of which the server's pictures take only 15.
constexpr qint64 kMinPosition = -32768, kMaxPosition = 32767, kMaxSize = 32767;

}  // namespace

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
    handOver.rect = HandOverRect(number("Left"), number("Top"), number("Right"), number("Bottom"));
    return handOver;
}

QRect HandOverRect(int left, int top, int right, int bottom) {
    const auto position = [](qint64 v) { return int(std::clamp(v, kMinPosition, kMaxPosition)); };
    const auto size = [](qint64 v) { return int(std::clamp<qint64>(v, 0, kMaxSize)); };
    return QRect(position(left), position(top), size(qint64(right) - left),
                 size(qint64(bottom) - top));
}

bool HandOverPictureExists(const THandOver& handOver) {
    return !handOver.picturePath.isEmpty() && QFileInfo(handOver.picturePath).isFile();
}

}  // namespace qpt
