#include "skin/ButtonTextLayout.h"

#include <QFontMetrics>
#include <QTextLayout>
#include <algorithm>

namespace qpt {

namespace {

using T = TImageButtonTypes;

int AlignedX(int start, int room, int size, TAlignment align) {
    if (align == T::taLeftJustify) return start;
    if (align == T::taRightJustify) return start + room - size;
    return start + (room - size) / 2;
}

int AlignedY(int start, int room, int size, TTextLayout align) {
    if (align == T::tlTop) return start;
    if (align == T::tlBottom) return start + room - size;
    return start + (room - size) / 2;
}

// An offset moves away from the side it is aligned to.
int Toward(int offset, bool farSide) {
    return farSide ? -offset : offset;
}

QRect TextRoom(const QRect& client, const TButtonTextStyle& text, const TButtonIconStyle& icon) {
    QRect room = client;
    if (text.Align == T::taLeftJustify) room.setLeft(room.left() + text.Offset);
    if (text.Align == T::taRightJustify) room.setRight(room.right() - text.Offset);
    room.setLeft(std::max(room.left(), client.left() + text.Margins.left()));
    room.setRight(std::min(room.right(), client.right() - text.Margins.right()));
    // An icon placed above the caption by a negative offset keeps that room.
    if (!icon.Size.isEmpty() && icon.AlignYByText && icon.OffsetY < 0)
        room.setTop(room.top() - icon.OffsetY);
    if (text.AlignY == T::tlTop) room.setTop(room.top() + text.Margins.top());
    if (text.AlignY == T::tlBottom) room.setBottom(room.bottom() - text.Margins.bottom());
    if (text.AlignY == T::tlCenter) room.translate(0, text.TopOffset);
    return room;
}

QRect IconAtClient(const QRect& client, const TButtonIconStyle& icon) {
    const int x = AlignedX(client.left(), client.width(), icon.Size.width(), icon.Align) +
                  Toward(icon.Offset, icon.Align == T::taRightJustify);
    const int y = AlignedY(client.top(), client.height(), icon.Size.height(), icon.AlignY) +
                  Toward(icon.OffsetY, icon.AlignY == T::tlBottom);
    return QRect(QPoint(x, y), icon.Size);
}

// The caption gives way to an icon at the client edge, and keeps room for one
// that will sit beside it.
void MakeRoomForIcon(QRect& room, const QRect& iconRect, const TButtonTextStyle& text,
                     const TButtonIconStyle& icon) {
    if (icon.AlignByText) {
        const int need = icon.Size.width() + icon.Offset;
        if (icon.Align == T::taLeftJustify) room.setLeft(room.left() + need);
        if (icon.Align == T::taRightJustify) room.setRight(room.right() - need);
        return;
    }
    if (icon.Align == T::taLeftJustify)
        room.setLeft(iconRect.right() + 1 + (text.Align == T::taLeftJustify ? text.Offset : 0));
    if (icon.Align == T::taRightJustify)
        room.setRight(iconRect.left() - 1 - (text.Align == T::taRightJustify ? text.Offset : 0));
}

QRect IconBesideText(const QRect& atClient, const QRect& textRect, const TButtonIconStyle& icon) {
    QRect result = atClient;
    const int w = icon.Size.width();
    if (icon.AlignByText) {
        if (icon.Align == T::taLeftJustify) result.moveLeft(textRect.left() - icon.Offset - w);
        if (icon.Align == T::taRightJustify) result.moveLeft(textRect.right() + 1 + icon.Offset);
        if (icon.Align == T::taCenter)
            result.moveLeft(AlignedX(textRect.left(), textRect.width(), w, T::taCenter) +
                            icon.Offset);
    }
    if (icon.AlignYByText)
        result.moveTop(
            AlignedY(textRect.top(), textRect.height(), icon.Size.height(), icon.AlignY) +
            Toward(icon.OffsetY, icon.AlignY == T::tlBottom));
    return result;
}

void MeasureOneLine(TButtonLayout& layout, const QString& shown, const QFontMetrics& metrics) {
    const int width = layout.Room.width();
    layout.FullText = QSize(metrics.horizontalAdvance(shown), metrics.height());
    if (layout.FullText.width() <= width || shown.isEmpty()) {
        layout.Lines = QStringList{shown};
        return;
    }
    layout.Lines = QStringList{metrics.elidedText(shown, Qt::ElideRight, std::max(width, 0))};
    layout.Ellipsis = true;
}

// How many wrapped lines are drawn: TextMaxLine, and with EllipsisByHeight the
// whole lines that fit the room's height.
int LinesToKeep(int count, int roomHeight, int lineHeight, const TButtonTextStyle& text) {
    int keep = count;
    if (text.MaxLine > 0) keep = std::min(keep, text.MaxLine);
    if (text.EllipsisByHeight && keep * lineHeight > roomHeight)
        keep = std::min(keep, std::max(1, roomHeight / std::max(lineHeight, 1)));
    return keep;
}

int WidestParagraph(const QString& shown, const QFontMetrics& metrics) {
    int widest = 0;
    for (const QString& paragraph : shown.split(QLatin1Char('\n')))
        widest = std::max(widest, metrics.horizontalAdvance(paragraph));
    return widest;
}

void MeasureWrapped(TButtonLayout& layout, const QString& shown, const QFont& font,
                    const TButtonTextStyle& text) {
    const QFontMetrics metrics(font);
    const int width = std::max(layout.Room.width(), 1);
    QString flow = shown;
    flow.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout lines(flow, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    lines.setTextOption(option);
    std::vector<std::pair<int, int>> spans;
    lines.beginLayout();
    for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
        line.setLineWidth(width);
        spans.emplace_back(line.textStart(), line.textLength());
    }
    lines.endLayout();
    const int count = int(spans.size());
    layout.FullText = QSize(WidestParagraph(shown, metrics), count * metrics.height());
    layout.WordBreak = count > 1;
    const int keep = LinesToKeep(count, layout.Room.height(), metrics.height(), text);
    for (int i = 0; i < keep; ++i)
        layout.Lines.append(shown.mid(spans[i].first, spans[i].second).trimmed());
    if (keep == count) return;
    QString rest = shown.mid(spans[keep - 1].first).simplified();
    layout.Lines.last() =
        metrics.elidedText(rest + QStringLiteral(" \u2026"), Qt::ElideRight, width);
    layout.Ellipsis = true;
}

QSize BlockSize(const TButtonLayout& layout, const QFontMetrics& metrics) {
    int width = 0;
    for (const QString& line : layout.Lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    return QSize(width, int(layout.Lines.size()) * layout.LineHeight);
}

}  // namespace

QString ShownCaption(const QString& caption, bool showAccelChar) {
    if (!showAccelChar) return caption;
    QString shown;
    shown.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&') && i + 1 < caption.size()) ++i;
        shown.append(caption[i]);
    }
    return shown;
}

TButtonLayout LayoutButtonText(const QRect& client, const QString& caption, const QFont& font,
                               const TButtonTextStyle& text, const TButtonIconStyle& icon) {
    TButtonLayout layout;
    const QFontMetrics metrics(font);
    layout.LineHeight = metrics.height();
    layout.Room = TextRoom(client, text, icon);
    const bool hasIcon = !icon.Size.isEmpty();
    if (hasIcon) {
        layout.Icon = IconAtClient(client, icon);
        MakeRoomForIcon(layout.Room, layout.Icon, text, icon);
    }
    const QString shown = ShownCaption(caption, text.ShowAccelChar);
    if (text.WordWrap)
        MeasureWrapped(layout, shown, font, text);
    else
        MeasureOneLine(layout, shown, metrics);
    const QSize block = BlockSize(layout, metrics);
    layout.Text =
        QRect(AlignedX(layout.Room.left(), layout.Room.width(), block.width(), text.Align),
              AlignedY(layout.Room.top(), layout.Room.height(), block.height(), text.AlignY),
              block.width(), block.height());
    if (hasIcon) layout.Icon = IconBesideText(layout.Icon, layout.Text, icon);
    return layout;
}

}  // namespace qpt
