#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "support/Paths.h"

namespace qpt {

namespace {

struct MountEntry {
    QString mountPoint;
    QString type;
};

// mountinfo escapes blanks and a few other bytes as \ooo octal.
QString Unescape(const QByteArray& field) {
    QByteArray out;
    for (int i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size()) {
            bool ok = false;
            const int code = field.mid(i + 1, 3).toInt(&ok, 8);
            if (ok) {
                out += static_cast<char>(code);
                i += 3;
                continue;
            }
        }
        out += field[i];
    }
    return QFile::decodeName(out);
}

// The mount that holds the path: the longest mount point that prefixes it.
MountEntry FindMount(const QString& path) {
    QFile info("/proc/self/mountinfo");
    MountEntry best;
    if (!info.open(QIODevice::ReadOnly)) return best;
    for (const QByteArray& line : info.readAll().split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype dash = fields.indexOf("-");
        if (fields.size() < 5 || dash < 0 || dash + 1 >= fields.size()) continue;
        const QString point = Unescape(fields[4]);
        const bool prefixes = point == "/" || path == point || path.startsWith(point + '/');
        if (prefixes && point.size() >= best.mountPoint.size())
            best = {point, QString::fromLatin1(fields[dash + 1])};
    }
    return best;
}

bool IsNetworkOrOptical(const QString& type) {
    static const QStringList kTypes = {"nfs",   "nfs4",  "cifs",      "smb",     "smb2",
                                       "smb3",  "smbfs", "9p",        "ceph",    "afs",
                                       "ncpfs", "coda",  "glusterfs", "iso9660", "udf"};
    if (kTypes.contains(type)) return true;
    // Every fuse file system that reaches another machine says so in its subtype.
    static const QStringList kFuseNetwork = {"fuse.sshfs",      "fuse.rclone",    "fuse.s3fs",
                                             "fuse.gvfsd-fuse", "fuse.curlftpfs", "fuse.davfs"};
    return kFuseNetwork.contains(type);
}

bool ReadsOne(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) && f.read(1) == "1";
}

// The block device behind the folder is marked removable, itself or, for a
// partition, its parent disk.
bool IsOnRemovableDevice(const QString& path) {
    struct stat st {};
    if (::stat(QFile::encodeName(path).constData(), &st) != 0) return false;
    const QString device =
        QStringLiteral("/sys/dev/block/%1:%2").arg(major(st.st_dev)).arg(minor(st.st_dev));
    if (!QFileInfo::exists(device)) return false;
    return ReadsOne(device + "/removable") || ReadsOne(device + "/../removable");
}

QString NearestExisting(QString path) {
    path = QDir::cleanPath(QDir(path).absolutePath());
    while (!QFileInfo::exists(path) && path != "/")
        path = QFileInfo(path).absolutePath();
    return path;
}

}  // namespace

bool IsFixedLocalDisk(const QString& path) {
    if (path.trimmed().isEmpty()) return false;
    const QString existing = NearestExisting(path);
    const MountEntry mount = FindMount(existing);
    if (mount.type.isEmpty() || IsNetworkOrOptical(mount.type)) return false;
    return !IsOnRemovableDevice(existing);
}

}  // namespace qpt
