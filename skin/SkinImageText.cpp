#include "skin/SkinImageText.h"

#include "skin/ColorTable.h"

namespace qpt {

QString SkinImageText(const QString& stem) {
    return QStringLiteral("imgname=images/") + stem + QStringLiteral(".png");
}

quint32 NamedSkinColor(const QString& name) {
    quint32 value = 0;
    IdentToColor(name, value);
    return value;
}

}  // namespace qpt
