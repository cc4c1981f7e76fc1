#include "annotate/SkinNames.h"

#include "skin/ColorTable.h"
#include "skin/SkinQColor.h"

namespace qpt {

QString SkinPicture(const QString& name) {
    return "imgname=images/" + name + ".png";
}

TColor SkinColorValue(const QString& name) {
    TColor value = TColorTable::kUndefinedColor;
    IdentToColor(name, value);
    return value;
}

QColor SkinColor(const QString& name) {
    return SkinQColor(SkinColorValue(name));
}

}  // namespace qpt
