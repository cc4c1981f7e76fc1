#include "skin/SkinQColor.h"

#include "skin/ColorTable.h"
#include "support/color/ColorNames.h"

namespace qpt {

QColor SkinQColor(quint32 value, const QColor& fallback) {
    if (value == clDefault) return fallback;
    if (value == clNone) return QColor(0, 0, 0, 0);
    const quint32 rgb = ColorToRGB(value);
    const int alpha = int(rgb >> 24);
    return QColor(int(rgb & 0xFF), int((rgb >> 8) & 0xFF), int((rgb >> 16) & 0xFF),
                  alpha == 0 ? 255 : alpha);
}

}  // namespace qpt
