#pragma once

#include <QString>

#include "support/ScreenRecordSettingsData.h"

namespace qpt {

// Where the picture is posted, with which client id, trusting which CA, and
// how long a connection or a stalled transfer is waited for.
struct TUploadSettings {
    QString uploadUrl = QString::fromLatin1(kDefaultUploadUrl);
    QString clientId = QString::fromLatin1(kDefaultClientId);
    // Empty: the system's certificate store. Otherwise the only CA file
    // trusted.
    QString caFile;
    int timeoutMs = kDefaultUploadTimeoutMs;
};

// Section "Share" as the settings object read it; an emptied address or id
// counts as missing.
TUploadSettings UploadSettingsOf(const TScreenRecordSettingsData& data);

// The upload address with the client id as query key "client_id", added
// after any query the address already has.
QString UploadAddress(const TUploadSettings& settings);

}  // namespace qpt
