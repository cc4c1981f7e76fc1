#pragma once

#include <QString>

namespace qpt {

// Reads one folder of the desktop's user-dirs file (lines such as
// XDG_PICTURES_DIR="$HOME/Pictures"). Empty when the file or the key is
// missing, or the value is not a usable absolute path.
QString ReadUserDir(const QString& userDirsFile, const char* key, const QString& home);

}  // namespace qpt
