#include "tests/skin/SkinPackageBuilder.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QProcess>

#include "tests/common/ScratchHome.h"

namespace qpt::testing {

QString BuildPackage(const QString& folder, const QString& fileName,
                     const std::map<QString, QByteArray>& files, const QStringList& options) {
    const QString source = folder + fileName + ".src/";
    QString qrc = "<RCC><qresource prefix=\"/\">\n";
    for (const auto& [name, bytes] : files) {
        WriteFile(source + name, bytes);
        qrc += "<file>" + name + "</file>\n";
    }
    qrc += "</qresource></RCC>\n";
    WriteFile(source + "package.qrc", qrc.toUtf8());
    const QString target = folder + fileName;
    QProcess rcc;
    rcc.start(QPT_RCC, QStringList{"--binary", "-o", target} + options +
                           QStringList{source + "package.qrc"});
    if (!rcc.waitForFinished(30000) || rcc.exitCode() != 0) return {};
    return target;
}

QByteArray PngBytes(int width, int height, QRgb color) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

}  // namespace qpt::testing
