#pragma once

#include <QString>
#include <memory>

#include "support/Tab_Hotkeys.h"

namespace qpt {

// Where a shared picture is posted: the public image host, unless section
// "Share" names another (a test's, or a user's own host).
inline constexpr char kDefaultUploadUrl[] = "https://api.imgur.com/3/image";
inline constexpr char kDefaultClientId[] = "0f3e9b1d7a2c486";
// How long an upload may wait for the connection, and then for the next
// bytes to move.
inline constexpr int kDefaultUploadTimeoutMs = 20000;

// The product's settings as read from "Main.ini" once at start-up. It is
// never written back: this program changes settings through `WriteMainIni`
// only, so the object may go stale and nothing depends on it staying fresh.
class TScreenRecordSettingsData {
public:
    // Defaults, then the values of the file.
    TScreenRecordSettingsData();

    // `keepLanguage` leaves `Language` as it is.
    void ResetDefaults(bool keepLanguage);
    // Reads every known key (a first start leaves an empty file behind), then
    // falls back to `DefaultCapturePath` when `CapturePath` is not a folder.
    void Load();
    // "JPEG", "PNG" or "BMP" for `ImageFormat` 0, 1, 2; empty beyond.
    QString FormatName() const;

    std::unique_ptr<TTab_Hotkeys> Hotkeys = std::make_unique<TTab_Hotkeys>();
    QString Language;
    bool StartWithSystem = true;
    bool AutoUpdate = true;
    QString CapturePath;
    bool MainUi = true;
    bool SaveTip = true;
    QString DefaultCapturePath;  // My Pictures plus "Zelk Screenshot/"
    quint8 ImageFormat = 0;
    qint32 JpegQuality = 90;  // 1..100
    QString UploadUrl;
    QString ClientId;
    QString CaFile;                                    // empty: the system's certificate store
    qint32 UploadTimeoutMs = kDefaultUploadTimeoutMs;  // 1000..300000
};

// The process-wide instance, made in module start-up (once; later calls keep
// it). Null before that.
void CreateSettingsData();
TScreenRecordSettingsData* SettingsData();

}  // namespace qpt
