#include "tests/common/ScratchHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdlib>
#include <stdexcept>

namespace qpt::testing {

namespace {
std::optional<std::string> CurrentEnv(const std::string& name) {
    const char* v = std::getenv(name.c_str());
    if (!v) return std::nullopt;
    return std::string(v);
}
}  // namespace

ScratchHome::ScratchHome() {
    if (!dir_.isValid()) throw std::runtime_error("no temporary folder");
    QDir().mkpath(home());
    QDir().mkpath(runtimeDir());
    QFile::setPermissions(runtimeDir(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    setEnv("HOME", home().toStdString());
    setEnv("XDG_CONFIG_HOME", std::nullopt);
    setEnv("XDG_DATA_HOME", std::nullopt);
    setEnv("XDG_RUNTIME_DIR", runtimeDir().toStdString());
}

ScratchHome::~ScratchHome() {
    for (const auto& [name, value] : saved_) {
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
    }
}

void ScratchHome::setEnv(const std::string& name, std::optional<std::string> value) {
    if (!saved_.count(name)) saved_[name] = CurrentEnv(name);
    if (value)
        ::setenv(name.c_str(), value->c_str(), 1);
    else
        ::unsetenv(name.c_str());
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw std::runtime_error("cannot write " + path.toStdString());
    f.write(bytes);
}

QByteArray ReadFile(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return {};
    return f.readAll();
}

QString ReadLogText(const QString& path) {
    const QByteArray bytes = ReadFile(path);
    if (bytes.size() < 2) return {};
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData() + 2),
                              (bytes.size() - 2) / 2);
}

}  // namespace qpt::testing
