#pragma once

#include <QString>
#include <QStringList>

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
// The name=value lines of one section, read in one pass for a caller that
// wants several keys of it; empty when the file or the section is missing.
QStringList ReadMainIniSection(const QString& section);
void WriteMainIni(const QString& section, const QString& key, const QString& value);

}  // namespace qpt
