#pragma once

#include <QColor>
#include <QString>

#include "support/color/ColorNames.h"

namespace qpt {

// The reference text of a picture of the skin's "images" folder, by its name
// without the extension.
QString SkinPicture(const QString& name);

// A named colour of the skin ("text_color.cl_text_b") as a colour value that
// follows the skin; an unknown name reads as the skin's undefined colour.
TColor SkinColorValue(const QString& name);
// The same, as the colour to paint now.
QColor SkinColor(const QString& name);

}  // namespace qpt
