#pragma once

#include <QString>

namespace qpt {

// The reference text of a picture in the skin's "images" folder, by the stem
// of its name: "bg_window" gives "imgname=images/bg_window.png".
QString SkinImageText(const QString& stem);

// The colour value of a named skin colour such as "text_color.cl_text_b";
// it takes its value from whichever skin is loaded when it is painted.
quint32 NamedSkinColor(const QString& name);

}  // namespace qpt
