#pragma once

#include <QString>

namespace qpt {

// Section "Share" of "Main.ini": where the picture is posted and with which
// client id. A test, or a user behind an image host of their own, points
// them elsewhere; the defaults are the public service.
inline constexpr char kShareSection[] = "Share";
inline constexpr char kDefaultUploadUrl[] = "https://api.imgur.com/3/image";
inline constexpr char kDefaultClientId[] = "0f3e9b1d7a2c486";

struct TUploadSettings {
    QString uploadUrl = QString::fromLatin1(kDefaultUploadUrl);
    QString clientId = QString::fromLatin1(kDefaultClientId);
    // Empty: the system's certificate store. Otherwise the only CA file
    // trusted.
    QString caFile;
};

// Reads the section afresh; an empty value counts as missing.
TUploadSettings ReadUploadSettings();

// The upload address with the client id as query key "client_id", added
// after any query the address already has.
QString UploadAddress(const TUploadSettings& settings);

}  // namespace qpt
