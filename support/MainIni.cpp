#include "support/MainIni.h"

#include <QFileInfo>

#include "support/Paths.h"
#include "support/SafeIniFile.h"

namespace qpt {

QString MainIniPath() {
    const QString folder = SettingsFolder();
    return folder.isEmpty() ? QString() : folder + QStringLiteral("Main.ini");
}

QString ReadIniFile(const QString& fileName, const QString& section, const QString& key,
                    const QString& defaultValue) {
    if (fileName.isEmpty() || !QFileInfo::exists(fileName)) return defaultValue;
    TSafeIniFile ini;  // nameless: never writes
    ini.LoadFromFile(fileName);
    return ini.ReadString(section, key, defaultValue);
}

QString ReadMainIni(const QString& section, const QString& key, const QString& defaultValue) {
    return ReadIniFile(MainIniPath(), section, key, defaultValue);
}

QStringList ReadMainIniSection(const QString& section) {
    const QString path = MainIniPath();
    if (path.isEmpty() || !QFileInfo::exists(path)) return {};
    TSafeIniFile ini;  // nameless: never writes
    ini.LoadFromFile(path);
    return ini.ReadSectionValues(section);
}

void WriteMainIni(const QString& section, const QString& key, const QString& value) {
    const QString path = MainIniPath();
    if (path.isEmpty()) return;
    TSafeIniFile ini(path);
    ini.WriteString(section, key, value);
    ini.UpdateFile();
}

}  // namespace qpt
