#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace qpt::testing {

// The build installed with DESTDIR into a temporary folder under the prefix
// /usr, stripped, as the package installs it; removed with the object.
class InstalledTree {
public:
    InstalledTree();

    bool ok() const { return ok_; }
    const QByteArray& log() const { return log_; }
    QString root() const { return dir_.path(); }  // what DESTDIR named
    QString prefix() const { return root() + "/usr"; }
    QString programDir() const { return prefix() + "/lib/qptpin"; }
    // A path as the installed program sees it, found in the tree.
    QString Resolve(const QString& installedPath) const { return root() + installedPath; }

private:
    QTemporaryDir dir_;
    bool ok_ = false;
    QByteArray log_;
};

// The files under a folder, as paths relative to it, sorted.
QStringList FilesUnder(const QString& folder);

}  // namespace qpt::testing
