#pragma once

#include <QString>
#include <QTemporaryDir>
#include <map>
#include <optional>
#include <string>

#include "tests/common/QtPrinters.h"

namespace qpt::testing {

// A throw-away home for one test: HOME, the XDG folders and the runtime
// folder point into a fresh temporary folder, and are put back afterwards.
class ScratchHome {
public:
    ScratchHome();
    ~ScratchHome();
    ScratchHome(const ScratchHome&) = delete;
    ScratchHome& operator=(const ScratchHome&) = delete;

    QString root() const { return dir_.path() + '/'; }
    QString home() const { return root() + "home/"; }
    QString configHome() const { return home() + ".config/"; }
    QString runtimeDir() const { return root() + "run/"; }

    // Sets (or, with nullopt, removes) a variable for the rest of the test.
    void setEnv(const std::string& name, std::optional<std::string> value);

private:
    QTemporaryDir dir_;
    std::map<std::string, std::optional<std::string>> saved_;
};

// Writes bytes to a file, making its folder.
void WriteFile(const QString& path, const QByteArray& bytes);
QByteArray ReadFile(const QString& path);
// The program's log (UTF-16 after its byte-order mark) as text, empty when
// there is none.
QString ReadLogText(const QString& path);

}  // namespace qpt::testing
