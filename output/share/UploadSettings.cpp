#include "output/share/UploadSettings.h"

#include <QUrl>

#include "support/MainIni.h"

namespace qpt {

namespace {

QString ReadShareKey(const char* key, const QString& defaultValue) {
    const QString value =
        ReadMainIni(QString::fromLatin1(kShareSection), QString::fromLatin1(key), defaultValue)
            .trimmed();
    return value.isEmpty() ? defaultValue : value;
}

}  // namespace

TUploadSettings ReadUploadSettings() {
    const TUploadSettings defaults;
    TUploadSettings settings;
    settings.uploadUrl = ReadShareKey("UploadUrl", defaults.uploadUrl);
    settings.clientId = ReadShareKey("ClientId", defaults.clientId);
    settings.caFile = ReadShareKey("CaFile", defaults.caFile);
    return settings;
}

QString UploadAddress(const TUploadSettings& settings) {
    const QString separator =
        settings.uploadUrl.contains(u'?') ? QStringLiteral("&") : QStringLiteral("?");
    return settings.uploadUrl + separator + QStringLiteral("client_id=") +
           QString::fromLatin1(QUrl::toPercentEncoding(settings.clientId));
}

}  // namespace qpt
