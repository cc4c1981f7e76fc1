#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>
#include <vector>

#include "support/color/ColorNames.h"

namespace qpt {

// The look of a stretch of markup text; what is left at its default takes
// the label's own font.
struct THtmStyle {
    QString face;
    int sizePt = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    // 1 raised, -1 lowered.
    int script = 0;
    quint32 color = clDefault;
    quint32 bgColor = clNone;
    // Index into THtmDocument::links, or -1.
    int link = -1;

    bool operator==(const THtmStyle&) const = default;
};

enum class THtmAlign : uint8_t { Left, Center, Right };
enum class THtmVAlign : uint8_t { Bottom, Top, Middle };

// What starts a line: its alignment, its indent, and whether it may wrap.
struct THtmBlock {
    THtmAlign align = THtmAlign::Left;
    int indent = 0;
    bool noWrap = false;

    bool operator==(const THtmBlock&) const = default;
};

struct THtmItem {
    enum class TKind : uint8_t { Text, Break, Image, Rule };
    TKind kind = TKind::Text;
    // Text: the characters; Image: the picture's source.
    QString text;
    // Image: the text shown when the picture cannot be found.
    QString alt;
    THtmStyle style;
    THtmBlock block;
    // Image and Rule: the size asked for, 0 for the natural one.
    int width = 0;
    int height = 0;
    THtmVAlign valign = THtmVAlign::Bottom;
};

struct THtmLinkRef {
    QString href;
    QString title;
    int maxLine = 0;
    int lineSpace = 0;
};

// The page behind the text: a picture, or a fill from `color` to `colorTo`.
struct THtmBackground {
    QString picture;
    quint32 color = clNone;
    quint32 colorTo = clDefault;
    bool vertical = false;
};

struct THtmDocument {
    std::vector<THtmItem> items;
    std::vector<THtmLinkRef> links;
    THtmBackground background;
};

// The bounds the reader keeps hostile markup within.
inline constexpr int kHtmMaxNesting = 64;
inline constexpr int kHtmMaxPictureSide = 2048;
inline constexpr int kHtmMinFontPt = 1;
inline constexpr int kHtmMaxFontPt = 96;

// Reads the markup of a TRdHtmLabel into items. Nothing in the text is ever
// refused: tags the reader does not know are skipped, a tag left open at the
// end is dropped, and numbers are held within the bounds above.
THtmDocument ParseHtm(QStringView markup);

// The text of the items without markup: breaks as "\n", pictures as their
// alternative text.
QString HtmPlainText(const THtmDocument& document);

}  // namespace qpt
