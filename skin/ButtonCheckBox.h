#pragma once

#include <QFont>
#include <QRect>

#include "skin/ImageButtonTypes.h"

namespace qpt {

class TRdGraphic;

// Where an image button puts its check box.
struct TCheckBoxPlacement {
    TAlignment AlignX = TImageButtonTypes::taLeftJustify;
    bool AlignXByText = false;  // against the caption, on its outer side
    TTextLayout AlignY = TImageButtonTypes::tlCenter;
    bool AlignYByFont = false;  // on a line of the caption's first row
    TFontLine FontLine = TImageButtonTypes::flCenterLine;
    int Offset = 10;
    int OffsetY = 0;
};

// The check box's rectangle for a picture of `size`, given the client and the
// caption's rectangles and the caption font.
QRect CheckBoxRect(const QRect& client, const QRect& text, const QSize& size, const QFont& font,
                   const TCheckBoxPlacement& placement);

// A click moves 0 (clear) to 1, 1 to 0, and the half state 2 to 1.
int NextCheckState(int state);

// Of one state's pictures: grey when disabled, hover while hot, each only when
// present, else the plain one.
TRdGraphic* PickCheckBoxPicture(TRdGraphic* plain, TRdGraphic* hover, TRdGraphic* grayed,
                                bool enabled, bool hot);

}  // namespace qpt
