// Skin packages lie in the program folder, where a broken download or a
// damaged disk can leave any bytes. Whatever the package check accepts must
// register, list and read back in full without harm.
#include <QDirIterator>
#include <QFile>
#include <QResource>
#include <cstddef>
#include <cstdint>

#include "skin/RccCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    if (!qpt::IsSoundRccPackage(bytes)) return 0;
    const auto* package = reinterpret_cast<const uchar*>(bytes.constData());
    const QString root = QStringLiteral("/fuzz");
    if (!QResource::registerResource(package, root)) return 0;
    QDirIterator it(QStringLiteral(":/fuzz"), QDir::AllEntries | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly)) file.readAll();
    }
    QResource::unregisterResource(package, root);
    return 0;
}
