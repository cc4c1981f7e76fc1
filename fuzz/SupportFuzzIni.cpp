// Ini files come from the host, from skin packages and from users: any bytes
// must load without harm, answer every lookup, and save to text that loads
// back to the same content.
#include <cstddef>
#include <cstdint>

#include "support/IniText.h"
#include "support/SafeIniFile.h"

namespace {

void Touch(qpt::TSafeIniFile& ini) {
    for (const QString& section : ini.ReadSections()) {
        for (const QString& key : ini.ReadSection(section)) {
            (void)ini.ReadInteger(section, key, 7);
            (void)ini.ReadDateTime(section, key, {});
            ini.WriteString(section, key, ini.ReadString(section, key, {}));
        }
        (void)ini.ReadSectionValues(section);
        (void)ini.ValueExists(section, QStringLiteral("k"));
    }
    ini.WriteBool(QStringLiteral("Fuzz"), QStringLiteral("seen"), true);
}

QByteArray Saved(const qpt::TSafeIniFile& ini) {
    return qpt::EncodeIniText(ini.GetStrings());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    qpt::TSafeIniFile ini;
    ini.LoadFromStream(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    Touch(ini);
    const QByteArray first = Saved(ini);

    // Saved text is in normal form: loading it gives the same lines again,
    // and text that was read faithfully is saved so that it reads so again.
    qpt::TSafeIniFile again;
    again.LoadFromStream(first);
    if (again.GetStrings() != ini.GetStrings()) __builtin_trap();
    if (ini.LastError() == 0 && again.LastError() != 0) __builtin_trap();
    return 0;
}
