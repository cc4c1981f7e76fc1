#pragma once

#include <QString>

namespace qpt {

// Special folder numbers that have a meaning on this platform.
enum SpecialFolder : int {
    kFolderPersonal = 5,  // documents
    kFolderMyMusic = 13,
    kFolderMyVideo = 14,
    kFolderDesktop = 16,
    kFolderFonts = 20,
    kFolderTemplates = 21,
    kFolderAppData = 26,       // per-user settings
    kFolderLocalAppData = 28,  // per-user data
    kFolderInternetCache = 32,
    kFolderMyPictures = 39,
    kFolderProfile = 40,  // home
};

// A special folder, without a trailing delimiter; empty for a number that has
// no meaning here. The environment is always consulted afresh.
QString GetSpecialFolder(int number);

// The per-user private temporary folder with its trailing '/', created with
// mode 0700. Empty when it cannot be made or exists but is not a real folder
// owned by this user with mode 0700: nothing may be written then.
QString GetTempFolder();

// The folder of the running executable, with its trailing '/'.
QString ProgramFolder();

// The settings folder with its trailing '/': the application-data folder plus
// "Zelk Screenshot/". Not created here.
QString SettingsFolder();

// The user's login name; empty when unknown.
QString GetUserName();

// The version of the host program in the given folder (the program folder
// when empty): the first line of "QptHost.version" when it holds four dotted
// numbers, otherwise "1.0.0.0".
QString GetHostVersion(const QString& folder = {});

// Folder codes of the application frame: 2 the temporary folder, the rest
// mapped to special folder numbers; codes with no meaning here give "".
QString GetFolderPath(int code);

// True when the folder (or its nearest existing parent) lies on a local,
// non-removable, non-network, non-optical file system.
bool IsFixedLocalDisk(const QString& path);

// Opens a URL in the user's browser; false when nothing could take it.
bool OpenUrlViaShell(const QString& url);

}  // namespace qpt
