#include "support/Paths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#include "support/SafeFileIo.h"
#include "support/UserDirs.h"

namespace qpt {

namespace {

// One line of four numbers; a bigger file is no version file.
constexpr qint64 kMaxVersionFileSize = 4096;

QString Env(const char* name) {
    return qEnvironmentVariable(name).trimmed();
}

QString PasswordHome() {
    const passwd* pw = ::getpwuid(::getuid());
    return pw && pw->pw_dir ? QString::fromLocal8Bit(pw->pw_dir) : QString();
}

QString WithoutTrailingSlash(QString path) {
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QString Home() {
    const QString home = Env("HOME");
    return WithoutTrailingSlash(home.isEmpty() ? PasswordHome() : home);
}

// A base folder from its XDG variable, else the home folder plus a fallback.
QString XdgBase(const char* variable, const QString& underHome) {
    const QString value = Env(variable);
    if (QDir::isAbsolutePath(value)) return WithoutTrailingSlash(value);
    const QString home = Home();
    return home.isEmpty() ? QString() : home + '/' + underHome;
}

QString ConfigHome() {
    return XdgBase("XDG_CONFIG_HOME", ".config");
}

QString UserDir(const char* key, const QString& fallbackUnderHome) {
    const QString home = Home();
    const QString configured = ReadUserDir(ConfigHome() + "/user-dirs.dirs", key, home);
    if (!configured.isEmpty()) return configured;
    return home.isEmpty() ? QString() : home + '/' + fallbackUnderHome;
}

// The folder is ours alone: a real folder (not a link), owned by us, 0700.
bool IsPrivateFolder(const QByteArray& path) {
    struct stat st {};
    if (::lstat(path.constData(), &st) != 0) return false;
    return S_ISDIR(st.st_mode) && st.st_uid == ::getuid() && (st.st_mode & 07777) == 0700;
}

}  // namespace

QString GetSpecialFolder(int number) {
    switch (number) {
        case kFolderAppData:
            return ConfigHome();
        case kFolderLocalAppData:
            return XdgBase("XDG_DATA_HOME", ".local/share");
        case kFolderInternetCache:
            return XdgBase("XDG_CACHE_HOME", ".cache");
        case kFolderFonts:
            return XdgBase("XDG_DATA_HOME", ".local/share") + "/fonts";
        case kFolderProfile:
            return Home();
        case kFolderMyPictures:
            return UserDir("XDG_PICTURES_DIR", "Pictures");
        case kFolderPersonal:
            return UserDir("XDG_DOCUMENTS_DIR", "Documents");
        case kFolderMyMusic:
            return UserDir("XDG_MUSIC_DIR", "Music");
        case kFolderMyVideo:
            return UserDir("XDG_VIDEOS_DIR", "Videos");
        case kFolderDesktop:
            return UserDir("XDG_DESKTOP_DIR", "Desktop");
        case kFolderTemplates:
            return UserDir("XDG_TEMPLATES_DIR", "Templates");
        default:
            return {};
    }
}

QString GetTempFolder() {
    const QString runtime = Env("XDG_RUNTIME_DIR");
    const QString folder = runtime.isEmpty() ? QStringLiteral("/tmp/qpt-%1").arg(::getuid())
                                             : WithoutTrailingSlash(runtime) + "/qpt";
    const QByteArray native = QFile::encodeName(folder);
    // mkdir under a umask can only take bits away, never add group or other.
    if (::mkdir(native.constData(), 0700) != 0 && errno != EEXIST) return {};
    return IsPrivateFolder(native) ? folder + '/' : QString();
}

QString ProgramFolder() {
    const QFileInfo exe(QFile::symLinkTarget("/proc/self/exe"));
    return exe.absolutePath() + '/';
}

QString SettingsFolder() {
    const QString appData = GetSpecialFolder(kFolderAppData);
    return appData.isEmpty() ? QString() : appData + "/Zelk Screenshot/";
}

QString GetUserName() {
    const passwd* pw = ::getpwuid(::getuid());
    return pw && pw->pw_name ? QString::fromLocal8Bit(pw->pw_name) : QString();
}

QString GetHostVersion(const QString& folder) {
    const QString base = folder.isEmpty() ? ProgramFolder() : folder;
    QByteArray bytes;
    if (ReadRegularFile(QDir(base).filePath("QptHost.version"), kMaxVersionFileSize, &bytes) == 0) {
        const QString line = QString::fromUtf8(bytes.left(bytes.indexOf('\n'))).trimmed();
        static const QRegularExpression fourNumbers(R"(^\d{1,5}\.\d{1,5}\.\d{1,5}\.\d{1,5}$)");
        if (fourNumbers.match(line).hasMatch()) return line;
    }
    return QStringLiteral("1.0.0.0");
}

QString GetFolderPath(int code) {
    // The application frame's codes, mapped to special folder numbers; the
    // numbers that have no meaning on this platform come back empty.
    static const int kCodeToNumber[] = {
        -1, -1, -1, 32, 33, 34, 8,  16, 2,  6,  7,  40, 26, 28, -1, 38, 43, 11,
        35, 28, 20, 21, 19, 9,  13, 14, 27, 39, 41, 42, 43, 44, 48, 56, 59, 5,
    };
    if (code == 2) return GetTempFolder();
    if (code < 0 || code >= static_cast<int>(std::size(kCodeToNumber))) return {};
    return GetSpecialFolder(kCodeToNumber[code]);
}

bool OpenUrlViaShell(const QString& url) {
    return QDesktopServices::openUrl(QUrl(url));
}

}  // namespace qpt
