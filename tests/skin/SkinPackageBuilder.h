#pragma once

#include <QByteArray>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <map>

namespace qpt::testing {

// Packs the files (name inside the package -> bytes) into the Qt resource
// file `folder` + `fileName` with the resource compiler, given `options`
// (compression, format version) besides; returns its path, or an empty
// string when packing failed.
QString BuildPackage(const QString& folder, const QString& fileName,
                     const std::map<QString, QByteArray>& files, const QStringList& options = {});

// A PNG file of one colour.
QByteArray PngBytes(int width, int height, QRgb color);

}  // namespace qpt::testing
