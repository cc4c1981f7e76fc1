#include "skin/RccPackages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QResource>
#include <QStringList>
#include <map>
#include <mutex>

namespace qpt {

namespace {

// Unregistering needs the very path and root given at registration.
struct Registry {
    std::mutex lock;
    std::map<QString, QString> roots;  // path -> root
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
    if (path.isEmpty() || r.roots.count(path)) return false;
    const QString root = RootOf(path);
    if (!QFileInfo(path).isFile() || !QResource::registerResource(path, root)) return false;
    r.roots[path] = root;
    return true;
}

void RccUnregister(const QString& path) {
    Registry& r = TheRegistry();
    std::lock_guard lock(r.lock);
    const auto it = r.roots.find(path);
    if (it == r.roots.end()) return;
    QResource::unregisterResource(path, it->second);
    r.roots.erase(it);
}

bool RccIsRegistered(const QString& path) {
    Registry& r = TheRegistry();
    std::lock_guard lock(r.lock);
    return r.roots.count(path) > 0;
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
