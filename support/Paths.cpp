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
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <mutex>

#include "support/LogManage.h"
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

// A folder from the environment counts only when it is absolute: a relative
// one would put our folders under whatever the current folder happens to be,
// and the XDG rules say to ignore it.
QString AbsoluteEnv(const char* name) {
    const QString value = Env(name);
    return value.startsWith('/') ? WithoutTrailingSlash(value) : QString();
}

QString Home() {
    const QString home = AbsoluteEnv("HOME");
    return home.isEmpty() ? WithoutTrailingSlash(PasswordHome()) : home;
}

// A base folder from its XDG variable, else the home folder plus a fallback.
QString XdgBase(const char* variable, const QString& underHome) {
    const QString value = AbsoluteEnv(variable);
    if (!value.isEmpty()) return value;
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

// Why the folder may not hold our fixed file names, or empty when it is ours
// alone: a real folder (not a link), owned by us, mode 0700.
QString RefusalOf(const QByteArray& path) {
    struct stat st {};
    if (::lstat(path.constData(), &st) != 0)
        return QStringLiteral("it cannot be looked at (%1)")
            .arg(QString::fromLocal8Bit(strerror(errno)));
    if (S_ISLNK(st.st_mode)) return QStringLiteral("it is a symbolic link");
    if (!S_ISDIR(st.st_mode)) return QStringLiteral("it is not a folder");
    if (st.st_uid != ::getuid())
        return QStringLiteral("it belongs to user %1, not to user %2")
            .arg(st.st_uid)
            .arg(::getuid());
    const mode_t mode = st.st_mode & 07777;
    if (mode != 0700)
        return QStringLiteral("its mode is %1, not 0700").arg(mode, 4, 8, QLatin1Char('0'));
    return {};
}

// Each refusal is told once on standard error and in the log, not at every
// look at the folder; a different folder or reason is told again.
void TellRefusal(const QString& folder, const QString& reason) {
    static std::mutex lock;
    static QString told;
    const QString message = QStringLiteral("QptPin: the private temporary folder %1 is refused: %2")
                                .arg(folder, reason);
    std::lock_guard guard(lock);
    if (message == told) return;
    told = message;
    std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    WriteLog(message);
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
    const QString runtime = AbsoluteEnv("XDG_RUNTIME_DIR");
    const QString folder =
        runtime.isEmpty() ? QStringLiteral("/tmp/qpt-%1").arg(::getuid()) : runtime + "/qpt";
    const QByteArray native = QFile::encodeName(folder);
    // mkdir under a umask can only take bits away, never add group or other.
    errno = 0;
    if (::mkdir(native.constData(), 0700) != 0 && errno != EEXIST) {
        TellRefusal(
            folder,
            QStringLiteral("it cannot be made (%1)").arg(QString::fromLocal8Bit(strerror(errno))));
        return {};
    }
    const QString refusal = RefusalOf(native);
    if (refusal.isEmpty()) return folder + '/';
    TellRefusal(folder, refusal);
    return {};
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
