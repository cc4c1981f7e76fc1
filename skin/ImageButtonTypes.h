#pragma once

#include <QObject>

namespace qpt {

// The enumerations an image button publishes, under the names skins and
// forms write for them.
class TImageButtonTypes {
    Q_GADGET

public:
    enum TAlignment { taLeftJustify, taRightJustify, taCenter };
    Q_ENUM(TAlignment)
    enum TTextLayout { tlTop, tlCenter, tlBottom };
    Q_ENUM(TTextLayout)
    // The line of the caption's font a check box lines up with.
    enum TFontLine { flTopLine, flCenterLine, flBaseLine };
    Q_ENUM(TFontLine)
    // ibeSingle lays the old picture over the new one and fades it out;
    // ibeDouble fades both.
    enum TAniEffect { ibeNone, ibeSingle, ibeDouble };
    Q_ENUM(TAniEffect)
};

using TAlignment = TImageButtonTypes::TAlignment;
using TTextLayout = TImageButtonTypes::TTextLayout;
using TFontLine = TImageButtonTypes::TFontLine;
using TAniEffect = TImageButtonTypes::TAniEffect;

}  // namespace qpt
