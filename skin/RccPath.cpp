#include "skin/RccPath.h"

#include <QFileInfo>

namespace qpt {

namespace {

QString WithoutExtension(const QString& path) {
    const QFileInfo info(path);
    const QString suffix = info.suffix();
    return suffix.isEmpty() ? path : path.left(path.size() - suffix.size() - 1);
}

}  // namespace

TRccPath TRccPath::Normalize(const QString& path) {
    TRccPath result;
    result.path = QString(path).replace(u'\\', u'/');
    result.stem = WithoutExtension(result.path);
    const QString& stem = result.stem;
    const bool isRcc = QFileInfo(result.path).suffix().compare(u"rcc", Qt::CaseInsensitive) == 0;
    result.alt = stem + (isRcc ? QLatin1String(".dll") : QLatin1String(".rcc"));
    result.name = QFileInfo(stem).fileName().toLower();
    return result;
}

QString TRccPath::Existing() const {
    if (QFileInfo(path).isFile()) return path;
    if (QFileInfo(alt).isFile()) return alt;
    return path;
}

bool TRccPath::Exists() const {
    return QFileInfo(path).isFile() || QFileInfo(alt).isFile();
}

bool SamePackage(const QString& a, const QString& b) {
    if (a.isEmpty() || b.isEmpty()) return false;
    return WithoutExtension(QString(a).replace(u'\\', u'/'))
               .compare(WithoutExtension(QString(b).replace(u'\\', u'/')), Qt::CaseInsensitive) ==
           0;
}

}  // namespace qpt
