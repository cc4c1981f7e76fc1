#include "skin/RccPackages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QResource>
#include <QStringList>
#include <map>
#include <mutex>

#include "skin/RccCheck.h"
#include "support/SafeFileIo.h"

namespace qpt {

namespace {

// A package is registered from the bytes that were checked, not from its
// file, which could change in between; the bytes must live as long as the
// registration, and unregistering needs them and the very root again.
struct Package {
    QString root;
    QByteArray bytes;
    const uchar* data() const { return reinterpret_cast<const uchar*>(bytes.constData()); }
};

struct Registry {
    std::mutex lock;
    std::map<QString, Package> packages;  // by path
};

Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

QString RootOf(const QString& path) {
    return u'/' + QFileInfo(path).completeBaseName().toLower();
}

}  // namespace

bool RccRegister(const QString& path) {
    Registry& r = TheRegistry();
    std::lock_guard lock(r.lock);
    if (path.isEmpty() || r.packages.count(path)) return false;
    Package package{RootOf(path), {}};
    if (ReadRegularFile(path, kMaxRccFileSize, &package.bytes) != 0 ||
        !IsSoundRccPackage(package.bytes) ||
        !QResource::registerResource(package.data(), package.root))
        return false;
    r.packages.emplace(path, std::move(package));
    return true;
}

void RccUnregister(const QString& path) {
    Registry& r = TheRegistry();
    std::lock_guard lock(r.lock);
    const auto it = r.packages.find(path);
    if (it == r.packages.end()) return;
    QResource::unregisterResource(it->second.data(), it->second.root);
    r.packages.erase(it);
}

bool RccIsRegistered(const QString& path) {
    Registry& r = TheRegistry();
    std::lock_guard lock(r.lock);
    return r.packages.count(path) > 0;
}

QByteArray RccData(const QString& resourceName) {
    // Anything else would be a path in the file system.
    if (!resourceName.startsWith(QLatin1String(":/"))) return {};
    QFile file(resourceName);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll();
}

void RccEnum(const QString& folder, QString& folders, QString& files) {
    folders.clear();
    files.clear();
    if (!folder.startsWith(QLatin1String(":/"))) return;
    const QDir dir(folder);
    for (const QString& name : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        folders += name + u'|';
    for (const QString& name : dir.entryList(QDir::Files, QDir::Name))
        files += name + u'|';
}

}  // namespace qpt
