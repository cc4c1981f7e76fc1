#include "tests/install/InstalledTree.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>

namespace qpt::testing {

InstalledTree::InstalledTree() {
    QProcess install;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DESTDIR", dir_.path());
    install.setProcessEnvironment(environment);
    install.setProcessChannelMode(QProcess::MergedChannels);
    install.start(QPT_CMAKE, {"--install", QPT_BINARY_DIR, "--prefix", "/usr", "--strip"});
    ok_ = install.waitForFinished(120000) && install.exitStatus() == QProcess::NormalExit &&
          install.exitCode() == 0;
    log_ = install.readAll();
}

QStringList FilesUnder(const QString& folder) {
    QStringList files;
    const QDir base(folder);
    QDirIterator it(folder, QDir::Files | QDir::System | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files << base.relativeFilePath(it.next());
    files.sort();
    return files;
}

}  // namespace qpt::testing
