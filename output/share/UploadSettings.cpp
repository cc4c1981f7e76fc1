#include "output/share/UploadSettings.h"

#include <QUrl>

namespace qpt {

namespace {

QString OrDefault(const QString& value, const QString& defaultValue) {
    const QString trimmed = value.trimmed();
    return trimmed.isEmpty() ? defaultValue : trimmed;
}

}  // namespace

TUploadSettings UploadSettingsOf(const TScreenRecordSettingsData& data) {
    TUploadSettings settings;
    settings.uploadUrl = OrDefault(data.UploadUrl, settings.uploadUrl);
    settings.clientId = OrDefault(data.ClientId, settings.clientId);
    settings.caFile = data.CaFile.trimmed();
    settings.timeoutMs = data.UploadTimeoutMs;
    return settings;
}

QString UploadAddress(const TUploadSettings& settings) {
    const QString separator =
        settings.uploadUrl.contains(u'?') ? QStringLiteral("&") : QStringLiteral("?");
    return settings.uploadUrl + separator + QStringLiteral("client_id=") +
           QString::fromLatin1(QUrl::toPercentEncoding(settings.clientId));
}

}  // namespace qpt
