#include "support/UserDirs.h"

#include <QDir>

#include "support/SafeFileIo.h"

namespace qpt {

namespace {

// The file holds a handful of lines; anything much bigger is not it.
constexpr qint64 kMaxUserDirsSize = 1 << 20;

// The value as the file writes it: in double quotes, "$HOME" expanded, and
// only absolute paths or paths below $HOME are allowed.
QString ExpandValue(QString value, const QString& home) {
    value = value.trimmed();
    if (value.size() >= 2 && value.startsWith('"') && value.endsWith('"'))
        value = value.mid(1, value.size() - 2);
    value.replace(QStringLiteral("\\\""), QStringLiteral("\""));
    if (value == QLatin1String("$HOME")) return home;
    if (value.startsWith(QLatin1String("$HOME/")))
        return home.isEmpty() ? QString() : home + value.mid(5);
    return QDir::isAbsolutePath(value) ? value : QString();
}

}  // namespace

QString ReadUserDir(const QString& userDirsFile, const char* key, const QString& home) {
    QByteArray bytes;
    if (ReadRegularFile(userDirsFile, kMaxUserDirsSize, &bytes) != 0) return {};
    const QString prefix = QString::fromLatin1(key) + '=';
    QString found;
    for (const QByteArray& raw : bytes.split('\n')) {
        const QString line = QString::fromUtf8(raw).trimmed();
        if (line.startsWith(prefix)) found = ExpandValue(line.mid(prefix.size()), home);
    }
    while (found.size() > 1 && found.endsWith('/'))
        found.chop(1);
    return found;
}

}  // namespace qpt
