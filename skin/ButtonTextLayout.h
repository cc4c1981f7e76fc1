#pragma once

#include <QFont>
#include <QMargins>
#include <QRect>
#include <QStringList>

#include "skin/ImageButtonTypes.h"

namespace qpt {

// How an image button places its caption.
struct TButtonTextStyle {
    TAlignment Align = TImageButtonTypes::taCenter;
    TTextLayout AlignY = TImageButtonTypes::tlCenter;
    int Offset = 20;    // from the side the caption is aligned to
    int TopOffset = 0;  // moves the caption down
    QMargins Margins;
    int MaxLine = 0;  // 0: no limit
    bool WordWrap = false;
    TAlignment WrapAlign = TImageButtonTypes::taLeftJustify;  // of the lines in the block
    bool ShowAccelChar = false;
    bool EllipsisByHeight = true;
};

// How it places its icon; an empty Size means no icon.
struct TButtonIconStyle {
    QSize Size;
    TAlignment Align = TImageButtonTypes::taRightJustify;
    TTextLayout AlignY = TImageButtonTypes::tlCenter;
    int Offset = 0;
    int OffsetY = 0;
    bool AlignByText = false;  // next to the caption instead of the client edge
    bool AlignYByText = false;
};

struct TButtonLayout {
    QRect Room;  // what the caption may fill
    QRect Text;  // the caption block as drawn
    QRect Icon;
    QStringList Lines;  // as drawn, cut with an ellipsis where needed
    int LineHeight = 0;
    QSize FullText;  // the caption uncut, on one line unless wrapped
    bool Ellipsis = false;
    bool WordBreak = false;
};

// Lays out caption and icon in the client rectangle. Single lines are
// measured with QFontMetrics; wrapped text with QTextLayout, which breaks
// like an edit control: at word boundaries, and inside a word that is longer
// than the line.
TButtonLayout LayoutButtonText(const QRect& client, const QString& caption, const QFont& font,
                               const TButtonTextStyle& text, const TButtonIconStyle& icon);

// The caption as shown: with ShowAccelChar a single '&' marks the access key
// and is not drawn, "&&" draws one '&'.
QString ShownCaption(const QString& caption, bool showAccelChar);

}  // namespace qpt
