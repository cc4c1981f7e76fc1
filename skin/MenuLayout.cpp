#include "skin/MenuLayout.h"

#include <algorithm>

namespace qpt::menulayout {

namespace {

constexpr int kFrame = 1;
constexpr int kMinArrowRoom = 16;

// Distance from the paint rectangle's left edge to the text.
int TextLeftOffset(const TMenuMetrics& m) {
    int offset = m.ItemLeftMargin + m.ItemPadding;
    if (m.HasBar) offset += IconCellWidth(m) + 2 * m.ItemPadding + 1 + 2 * m.IconSpaceX;
    return offset;
}

int TextRightOffset(const TMenuMetrics& m, bool hasSubItems) {
    return m.ItemPadding + m.ItemRightMargin + (hasSubItems ? ArrowRoom(m) : 0);
}

}  // namespace

int IconCellWidth(const TMenuMetrics& m) {
    return m.IconMargin != 0 ? m.IconMargin : m.IconSize.width();
}

int IconBarWidth(const TMenuMetrics& m) {
    return 2 * m.IconSpaceX + IconCellWidth(m) + 2 * m.ItemPadding;
}

int ArrowRoom(const TMenuMetrics& m) {
    return std::max(m.ArrowWidth, kMinArrowRoom);
}

int RowHeight(const TMenuMetrics& m, const TMenuRowSpec& row) {
    if (!row.Visible) return 0;
    if (row.Line) return std::max(1, 2 * m.ItemSeparatorBorder + 1);
    int height = std::max(m.ItemHeight, row.TextHeight + 2 * m.ItemPadding);
    if (m.HasBar) height = std::max(height, m.IconSize.height() + 2 * m.ItemPadding);
    return height;
}

TMenuLayout Layout(const TMenuMetrics& m, const std::vector<TMenuRowSpec>& rows) {
    const int inset = kFrame + m.ItemBorderWidth;
    int width = 0;
    for (const TMenuRowSpec& row : rows)
        if (row.Visible && !row.Line)
            width = std::max(
                width, TextLeftOffset(m) + row.TextWidth + TextRightOffset(m, row.HasSubItems));
    TMenuLayout layout;
    layout.Size.setWidth(width + 2 * kFrame);
    int y = inset;
    for (const TMenuRowSpec& row : rows) {
        const int height = RowHeight(m, row);
        layout.Rows.push_back(height ? QRect(inset, y, layout.Size.width() - 2 * inset, height)
                                     : QRect());
        y += height;
    }
    layout.Size.setHeight(y + inset);
    return layout;
}

QRect PaintRect(const TMenuMetrics& m, const QRect& row) {
    return row.adjusted(-m.ItemBorderWidth, 0, m.ItemBorderWidth, 0);
}

QRect TextRect(const TMenuMetrics& m, const QRect& paint, bool hasSubItems) {
    return paint.adjusted(TextLeftOffset(m), 0, -TextRightOffset(m, hasSubItems), 0);
}

QRect ArrowRect(const TMenuMetrics& m, const QRect& paint, QSize arrow) {
    const QRect text = TextRect(m, paint, true);
    return QRect(text.right() + 1 + (ArrowRoom(m) - arrow.width()) / 2,
                 paint.top() + (paint.height() - arrow.height()) / 2, arrow.width(),
                 arrow.height());
}

QRect IconCell(const TMenuMetrics& m, const QRect& paint) {
    const int height = m.IconSize.height();
    return QRect(paint.left() + m.ItemPadding + m.IconSpaceX + m.IconOffsetX,
                 paint.top() + (paint.height() - height) / 2 + m.IconOffsetY, IconCellWidth(m),
                 height);
}

QRect IconBar(const TMenuMetrics& m, const QRect& client) {
    return QRect(client.left() + kFrame, client.top() + kFrame, IconBarWidth(m),
                 client.height() - 2 * kFrame);
}

QLine VertLine(const TMenuMetrics& m, const QRect& client) {
    const int x = client.left() + IconBarWidth(m) + 1;
    return QLine(x, client.top() + kFrame + m.ItemBorderWidth, x,
                 client.bottom() - kFrame - m.ItemBorderWidth);
}

QLine SeparatorLine(const TMenuMetrics& m, const QRect& paint, const QRect& client, bool vertLine) {
    const int y = paint.top() + m.ItemSeparatorBorder;
    const int left = m.HasBar && vertLine ? client.left() + IconBarWidth(m) + 3 : paint.left() + 2;
    return QLine(left, y, paint.right() - 2, y);
}

TIconChoice IconChoice(int imageIndex, int listCount, int itemCount, bool enabled) {
    if (imageIndex < 0) return {};
    const bool twins = itemCount > 0 && listCount >= 2 * itemCount;
    const int half = listCount / 2;
    if (twins && imageIndex < half) return {enabled ? half + imageIndex : imageIndex, false};
    if (imageIndex >= listCount) return {};
    return {imageIndex, !enabled};
}

}  // namespace qpt::menulayout
