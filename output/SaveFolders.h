#pragma once

#include <QString>

namespace qpt {

// Creates a folder path level by level, each missing level with its parents.
// Backslashes count as delimiters and doubled delimiters as one. False when
// a level could not be made (a file in the way, no permission).
bool ForceFolderTree(const QString& path);

// One of the user's shell folders by its conventional name: "My Pictures",
// "Personal" (documents), "Desktop", "My Music", "My Video", "Templates",
// "Fonts", "AppData", "Local AppData", "Cache". Without a trailing
// delimiter; empty for a name that is not known or a folder that cannot be
// told.
QString ShellFolderPath(const QString& name);

}  // namespace qpt
