#pragma once

#include <vector>

#include "skin/ColorTable.h"

namespace qpt {

class TMemIniFile;
class TStyleClasses;

// Where the named colours come from, in the order they are entered: the
// sections of class "color" of the style ini files (red first), then every
// section of "color_setting.ini" but "validate", whose key "type" tells the
// order of that file.
std::vector<ColorSection> ColorSectionsOf(const TStyleClasses& styles, const TMemIniFile& colorIni);

}  // namespace qpt
