#include "support/ScreenRecordSettingsData.h"

#include <QFileInfo>
#include <climits>
#include <variant>

#include "support/IniFileIo.h"
#include "support/MainIni.h"
#include "support/Paths.h"
#include "support/SafeIniFile.h"

namespace qpt {
namespace {

using Settings = TScreenRecordSettingsData;

// A hot key's code key; its text key is read only when the code says so.
struct HotkeyKeys {
    int slot;
    const char* textKey;
};

using Field = std::variant<QString Settings::*, bool Settings::*, qint32 Settings::*,
                           quint8 Settings::*, HotkeyKeys>;

// Every key the settings object knows, in the order they are read. The type
// of a key is the type of its field; a null default means `DefaultCapturePath`.
// A number outside its bounds reads as the default.
struct KnownKey {
    const char* section;
    const char* key;
    const char* defaultValue;
    Field field;
    int low = INT_MIN;
    int high = INT_MAX;
};

const KnownKey kKnownKeys[] = {
    {"Main", "Language", "English", &Settings::Language},
    {"Main", "Startup", "1", &Settings::StartWithSystem},
    {"Auto Update", "Enable", "1", &Settings::AutoUpdate},
    {"Screenshot", "CapturePath", nullptr, &Settings::CapturePath},
    {"Screenshot", "MainUi", "1", &Settings::MainUi},
    {"Screenshot", "SaveTip", "1", &Settings::SaveTip},
    {"Format", "JpegQuality", "90", &Settings::JpegQuality, 1, 100},
    {"Format", "ScreenFmat", "0", &Settings::ImageFormat},
    {"Hotkey", "nCapKey", "-1", HotkeyKeys{TTab_Hotkeys::kArea, "CapKey"}},
    {"Hotkey", "nCapFullKey", "-1", HotkeyKeys{TTab_Hotkeys::kFullScreen, "CapFullKey"}},
    {"Hotkey", "nCapWinKey", "-1", HotkeyKeys{TTab_Hotkeys::kWindow, "CapWinKey"}},
    {"Hotkey", "nCaplongKey", "-1", HotkeyKeys{TTab_Hotkeys::kLong, "CaplongKey"}},
    {"Share", "UploadUrl", kDefaultUploadUrl, &Settings::UploadUrl},
    {"Share", "ClientId", kDefaultClientId, &Settings::ClientId},
    {"Share", "CaFile", "", &Settings::CaFile},
    {"Share", "UploadTimeoutMs", "20000", &Settings::UploadTimeoutMs, 1000, 300000},
};

template <class... F>
struct Overloaded : F... {
    using F::operator()...;
};
template <class... F>
Overloaded(F...) -> Overloaded<F...>;

// Sets one field from `text`; `ini`, when given, is read with that text as
// the default, otherwise the text itself is taken.
void Assign(Settings& s, const KnownKey& k, const QString& text, const TSafeIniFile* ini) {
    const QString section = QLatin1String(k.section), key = QLatin1String(k.key);
    const int number = text.toInt();
    const auto integer = [&] {
        const int value = ini ? ini->ReadInteger(section, key, number) : number;
        return value < k.low || value > k.high ? number : value;
    };
    std::visit(
        Overloaded{
            [&](QString Settings::*f) { s.*f = ini ? ini->ReadString(section, key, text) : text; },
            [&](bool Settings::*f) { s.*f = ini ? ini->ReadBool(section, key, number) : number; },
            [&](qint32 Settings::*f) { s.*f = integer(); },
            [&](quint8 Settings::*f) { s.*f = quint8(integer()); },
            [&](HotkeyKeys h) {
                if (!ini) return;  // the defaults come with the hot key table
                s.Hotkeys->Apply(h.slot, ini->ReadInteger(section, key, number), [&] {
                    return ini->ReadString(section, QLatin1String(h.textKey),
                                           TTab_Hotkeys::DefaultText(h.slot));
                });
            },
        },
        k.field);
}

QString DefaultOf(const Settings& s, const KnownKey& k) {
    return k.defaultValue ? QString::fromLatin1(k.defaultValue) : s.DefaultCapturePath;
}

std::unique_ptr<Settings>& Instance() {
    static std::unique_ptr<Settings> instance;
    return instance;
}

}  // namespace

TScreenRecordSettingsData::TScreenRecordSettingsData() {
    ResetDefaults(false);
    Load();
}

void TScreenRecordSettingsData::ResetDefaults(bool keepLanguage) {
    DefaultCapturePath = GetSpecialFolder(kFolderMyPictures) + QStringLiteral("/Zelk Screenshot/");
    for (const KnownKey& k : kKnownKeys) {
        const auto* text = std::get_if<QString Settings::*>(&k.field);
        if (keepLanguage && text && *text == &Settings::Language) continue;
        Assign(*this, k, DefaultOf(*this, k), nullptr);
    }
    Hotkeys->ResetDefaults();
}

void TScreenRecordSettingsData::Load() {
    const QString path = MainIniPath();
    if (!path.isEmpty() && MakeIniFolder(QFileInfo(path).path())) {
        // Freeing the file writes it back (loading counts as a change), as the host expects.
        TSafeIniFile ini(path);
        for (const KnownKey& k : kKnownKeys)
            Assign(*this, k, DefaultOf(*this, k), &ini);
    }
    if (!QFileInfo(CapturePath).isDir()) CapturePath = DefaultCapturePath;
}

QString TScreenRecordSettingsData::FormatName() const {
    static const char* const kNames[] = {"JPEG", "PNG", "BMP"};
    return ImageFormat < std::size(kNames) ? QString::fromLatin1(kNames[ImageFormat]) : QString();
}

void CreateSettingsData() {
    if (!Instance()) Instance() = std::make_unique<Settings>();
}

TScreenRecordSettingsData* SettingsData() {
    return Instance().get();
}

}  // namespace qpt
