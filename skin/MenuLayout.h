#pragma once

#include <QLine>
#include <QRect>
#include <QSize>
#include <vector>

namespace qpt {

// The numbers a skinned popup menu is measured and painted by, in pixels.
struct TMenuMetrics {
    int ItemPadding = 2;
    int ItemBorderWidth = 0;
    int ItemHeight = 22;
    int ItemSeparatorBorder = 3;
    int ItemRightMargin = 8;
    int ItemLeftMargin = 4;
    int IconSpaceX = 3;
    int IconMargin = 0;  // non-zero: the width of the icon cell
    int IconOffsetX = 0;
    int IconOffsetY = 0;
    QSize IconSize{16, 16};  // of the menu's image list
    int ArrowWidth = 0;      // of the arrow picture; the room is at least 16
    bool HasBar = false;     // the menu shows an icon bar
};

// One row to lay out: its text measured by the caller in its own font.
struct TMenuRowSpec {
    bool Line = false;
    bool Visible = true;
    bool HasSubItems = false;
    int TextWidth = 0;
    int TextHeight = 14;
};

struct TMenuLayout {
    QSize Size;
    std::vector<QRect> Rows;  // empty rectangles for hidden rows
};

// Rectangles below are QRect's: right() and bottom() are the last pixels.
namespace menulayout {

int IconCellWidth(const TMenuMetrics& m);
// B: the width of the icon bar.
int IconBarWidth(const TMenuMetrics& m);
int ArrowRoom(const TMenuMetrics& m);
int RowHeight(const TMenuMetrics& m, const TMenuRowSpec& row);
// Rows stacked inside the one-pixel frame and the item border; the menu is
// as wide as its widest row needs.
TMenuLayout Layout(const TMenuMetrics& m, const std::vector<TMenuRowSpec>& rows);
// What an item paints over: its row widened by the item border on each side.
QRect PaintRect(const TMenuMetrics& m, const QRect& row);
QRect TextRect(const TMenuMetrics& m, const QRect& paint, bool hasSubItems);
// Where the arrow of a sub-menu item goes: right of the text, centred.
QRect ArrowRect(const TMenuMetrics& m, const QRect& paint, QSize arrow);
// The icon (or check mark) cell, centred in the bar and moved by the offsets.
QRect IconCell(const TMenuMetrics& m, const QRect& paint);
// The bar's fill, inside the one-pixel frame of the client rectangle.
QRect IconBar(const TMenuMetrics& m, const QRect& client);
// The bar's edge; both ends are drawn.
QLine VertLine(const TMenuMetrics& m, const QRect& client);
// The separator's line; both ends are drawn. `vertLine` says the bar's edge
// is drawn, which the line then leaves alone.
QLine SeparatorLine(const TMenuMetrics& m, const QRect& paint, const QRect& client, bool vertLine);

// Which picture of an image list of `listCount` shows item `imageIndex` of a
// menu level with `itemCount` entries. A list with twice the entries holds the
// disabled pictures in its first half and the enabled ones in its second;
// otherwise a disabled item is the enabled picture in grey. Index -1: none.
struct TIconChoice {
    int Index = -1;
    bool Gray = false;
};
TIconChoice IconChoice(int imageIndex, int listCount, int itemCount, bool enabled);

}  // namespace menulayout

}  // namespace qpt
