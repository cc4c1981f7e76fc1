#include "skin/LabelText.h"

#include <QFontMetrics>
#include <QTextLayout>
#include <climits>

namespace qpt {

namespace {

const QString kDots = QStringLiteral("...");

struct TShownText {
    QString text;
    int accel = -1;
};

TShownText StripAccelerators(const QString& caption, bool showAccelChar) {
    if (!showAccelChar) return {caption, -1};
    TShownText shown;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] != u'&') {
            shown.text += caption[i];
            continue;
        }
        if (++i >= caption.size()) break;
        if (caption[i] != u'&' && shown.accel < 0) shown.accel = int(shown.text.size());
        shown.text += caption[i];
    }
    return shown;
}

// A line of the shown text and where it starts in it, so that the
// accelerator can be found again after wrapping.
struct TLine {
    QString text;
    int start;
};

bool IsBreak(QChar c, QChar wrapChar) {
    return c == u'\n' || c == u'\r' || (!wrapChar.isNull() && c == wrapChar);
}

std::vector<TLine> SplitParagraphs(const QString& text, QChar wrapChar) {
    std::vector<TLine> paragraphs;
    int start = 0;
    for (int i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !IsBreak(text[i], wrapChar)) continue;
        paragraphs.push_back({text.mid(start, i - start), start});
        if (i + 1 < text.size() && text[i] == u'\r' && text[i + 1] == u'\n') ++i;
        start = i + 1;
    }
    return paragraphs;
}

void WrapParagraph(const TLine& paragraph, const QFont& font, int width,
                   std::vector<TLine>& lines) {
    QTextLayout layout(paragraph.text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        QString piece = paragraph.text.mid(line.textStart(), line.textLength());
        // The blank a line breaks at is not part of what is drawn.
        while (piece.endsWith(u' '))
            piece.chop(1);
        lines.push_back({piece, paragraph.start + line.textStart()});
    }
    layout.endLayout();
    if (paragraph.text.isEmpty()) lines.push_back(paragraph);
}

QString ElideMiddle(const QString& text, const QFontMetrics& metrics, int width) {
    int low = 0, high = int(text.size());
    while (low < high) {
        const int kept = (low + high + 1) / 2;
        const QString candidate = text.left((kept + 1) / 2) + kDots + text.right(kept / 2);
        if (metrics.horizontalAdvance(candidate) <= width)
            low = kept;
        else
            high = kept - 1;
    }
    return text.left((low + 1) / 2) + kDots + text.right(low / 2);
}

// Fits every line into the width, each the way the setting asks.
bool ElideLines(std::vector<TLine>& lines, const QFontMetrics& metrics, int width,
                TEllipsisPosition ellipsis) {
    bool cut = false;
    for (TLine& line : lines) {
        if (metrics.horizontalAdvance(line.text) <= width) continue;
        cut = true;
        line.text = ellipsis == TEllipsisPosition::epPathEllipsis
                        ? ElideMiddle(line.text, metrics, width)
                        : ElideText(line.text, metrics, width,
                                    ellipsis == TEllipsisPosition::epWordEllipsis, false);
    }
    return cut;
}

bool CutsLines(const TLabelTextOptions& options) {
    return options.wordWrap && (options.ellipsis == TEllipsisPosition::epEndEllipsis ||
                                options.ellipsis == TEllipsisPosition::epWordEllipsis);
}

}  // namespace

QString ElideText(const QString& text, const QFontMetrics& metrics, int width, bool atWord,
                  bool always) {
    if (!always && metrics.horizontalAdvance(text) <= width) return text;
    int low = 0, high = int(text.size());
    while (low < high) {
        const int kept = (low + high + 1) / 2;
        if (metrics.horizontalAdvance(text.left(kept) + kDots) <= width)
            low = kept;
        else
            high = kept - 1;
    }
    if (atWord && low < text.size() && text[low] != u' ') {
        const qsizetype blank = text.lastIndexOf(u' ', low);
        if (blank > 0) low = int(blank);
    }
    QString kept = text.left(low);
    while (kept.endsWith(u' '))
        kept.chop(1);
    return kept + kDots;
}

TLabelText LayoutLabelText(const QString& caption, const QFont& font, int width, int maxHeight,
                           const TLabelTextOptions& options) {
    const QFontMetrics metrics(font);
    TShownText shown = StripAccelerators(caption, options.showAccelChar);
    if (shown.text.isEmpty()) shown.text = QStringLiteral(" ");

    std::vector<TLine> lines;
    for (const TLine& paragraph : SplitParagraphs(shown.text, options.wrapChar)) {
        if (options.wordWrap && width > 0)
            WrapParagraph(paragraph, font, width, lines);
        else
            lines.push_back(paragraph);
    }

    TLabelText result;
    result.lineHeight = metrics.height();
    if (options.ellipsis != TEllipsisPosition::epNone && width > 0)
        result.cut = ElideLines(lines, metrics, width, options.ellipsis);
    if (CutsLines(options) && maxHeight > 0 && int(lines.size()) * result.lineHeight > maxHeight) {
        const size_t kept = size_t(qMax(1, maxHeight / result.lineHeight));
        lines.resize(kept);
        TLine& last = lines.back();
        last.text = ElideText(last.text, metrics, width > 0 ? width : INT_MAX / 4,
                              options.ellipsis == TEllipsisPosition::epWordEllipsis, true);
        result.cut = true;
    }

    int widest = 0;
    for (size_t i = 0; i < lines.size(); ++i) {
        const TLine& line = lines[i];
        result.lines << line.text;
        widest = qMax(widest, metrics.horizontalAdvance(line.text));
        const int inLine = shown.accel - line.start;
        if (shown.accel >= 0 && inLine >= 0 && inLine < line.text.size() && result.accelLine < 0) {
            result.accelLine = int(i);
            result.accelPos = inLine;
        }
    }
    result.size = QSize(widest, int(lines.size()) * result.lineHeight);
    return result;
}

}  // namespace qpt
