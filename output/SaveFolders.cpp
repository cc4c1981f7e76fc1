#include "output/SaveFolders.h"

#include <QDir>
#include <QFileInfo>

#include "support/Paths.h"

namespace qpt {

bool ForceFolderTree(const QString& path) {
    QString normal = path;
    normal.replace('\\', '/');
    while (normal.contains("//"))
        normal.replace("//", "/");
    normal.remove('\r');
    // Level by level, so that a level in the way is found where it stands.
    QString sofar;
    for (const QString& part : normal.split('/')) {
        sofar += part + '/';
        if (QFileInfo(sofar).isDir()) continue;
        if (!QDir().mkpath(sofar)) return false;
    }
    return true;
}

QString ShellFolderPath(const QString& name) {
    static const std::pair<const char*, int> folders[] = {
        {"My Pictures", kFolderMyPictures},
        {"Personal", kFolderPersonal},
        {"Desktop", kFolderDesktop},
        {"My Music", kFolderMyMusic},
        {"My Video", kFolderMyVideo},
        {"Templates", kFolderTemplates},
        {"Fonts", kFolderFonts},
        {"AppData", kFolderAppData},
        {"Local AppData", kFolderLocalAppData},
        {"Cache", kFolderInternetCache},
    };
    for (const auto& [folderName, number] : folders)
        if (name.compare(QLatin1StringView(folderName), Qt::CaseInsensitive) == 0)
            return GetSpecialFolder(number);
    return {};
}

}  // namespace qpt
