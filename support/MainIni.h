#pragma once

#include <QString>

namespace qpt {

// "Main.ini" in the settings folder; empty when there is no settings folder.
QString MainIniPath();

// One value of any ini file, or `defaultValue` when the file or the key is
// missing or the file cannot be read. Reading never creates or changes the file.
QString ReadIniFile(const QString& fileName, const QString& section, const QString& key,
                    const QString& defaultValue);

// All access to "Main.ini" goes through these two; the file is never held
// open, so the host and this program can take turns with it. A write
// rewrites the whole file (as UTF-16), making it and its folders when missing.
QString ReadMainIni(const QString& section, const QString& key, const QString& defaultValue);
void WriteMainIni(const QString& section, const QString& key, const QString& value);

}  // namespace qpt
