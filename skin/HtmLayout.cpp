#include "skin/HtmLayout.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <climits>

#include "skin/SkinQColor.h"

namespace qpt {

namespace {

const QString kDots = QStringLiteral("...");
constexpr int kRuleMargin = 2;

struct TPlaced {
    THtmFragment fragment;
    int ascent = 0;
    int descent = 0;
    int rise = 0;
};

int TrailingBlanks(const QString& text) {
    int count = 0;
    while (count < text.size() && text[text.size() - 1 - count] == u' ')
        ++count;
    return count;
}

// The longest start of `text`, at least one character, that fits `width`.
int FittingChars(const QString& text, const QFontMetrics& metrics, int width) {
    int low = 1, high = int(text.size());
    while (low < high) {
        const int mid = (low + high + 1) / 2;
        if (metrics.horizontalAdvance(text.left(mid)) <= width)
            low = mid;
        else
            high = mid - 1;
    }
    return low;
}

class THtmLayouter {
public:
    THtmLayouter(const THtmDocument& document, const THtmLayoutOptions& options)
        : document_(document), options_(options) {
        out_.linkCut.assign(document.links.size(), false);
        linkLines_.assign(document.links.size(), 0);
    }

    THtmLayout Run();

private:
    void Words(int index, const QString& text);
    void Picture(int index);
    void Rule(int index);
    void StartLine(const THtmBlock& block);
    bool EndLine(const QFont& emptyFont);
    void Place(int index, const QString& text, const QFontMetrics& metrics, int rise);
    void PlaceBox(int index, int width, int ascent, int descent);
    void EndWithDots(THtmFragment& fragment, int limit);
    void CutLink(int link);
    bool LinkFull(int link) const;
    bool Wraps(const THtmItem& item) const {
        return options_.wordWrap && options_.width > 0 && !item.block.noWrap;
    }
    int Avail() const { return options_.width > 0 ? options_.width : INT_MAX / 4; }
    const QFont& FontOf(int index);

    const THtmDocument& document_;
    const THtmLayoutOptions& options_;
    THtmLayout out_;
    std::vector<TPlaced> line_;
    std::vector<int> linkLines_;
    THtmBlock block_;
    bool lineStarted_ = false;
    bool full_ = false;
    int x_ = 0;
    int top_ = 0;
    int bottom_ = 0;
    size_t lastLineStart_ = 0;
    int skipLink_ = -1;
    int fontItem_ = -1;
    QFont font_;
};

const QFont& THtmLayouter::FontOf(int index) {
    if (index == fontItem_) return font_;
    const THtmStyle& style = document_.items[size_t(index)].style;
    const bool ownFont = style.link >= 0 && options_.linkFont;
    font_ = HtmFont(ownFont ? options_.linkFont(style.link) : options_.font, style);
    fontItem_ = index;
    return font_;
}

THtmLayout THtmLayouter::Run() {
    for (int i = 0; i < int(document_.items.size()) && !full_; ++i) {
        const THtmItem& item = document_.items[size_t(i)];
        if (skipLink_ >= 0 && item.style.link != skipLink_) skipLink_ = -1;
        switch (item.kind) {
            case THtmItem::TKind::Text:
                if (skipLink_ < 0) Words(i, item.text);
                break;
            case THtmItem::TKind::Image:
                if (skipLink_ < 0) Picture(i);
                break;
            case THtmItem::TKind::Rule:
                Rule(i);
                break;
            case THtmItem::TKind::Break:
                StartLine(item.block);
                EndLine(FontOf(i));
                break;
        }
    }
    if (!full_ && !line_.empty()) EndLine(options_.font);
    out_.size.setHeight(bottom_);
    for (THtmFragment& fragment : out_.fragments)
        if (document_.items[size_t(fragment.item)].kind == THtmItem::TKind::Rule &&
            fragment.rect.width() == 0)
            fragment.rect.setWidth(qMax(out_.size.width() - fragment.rect.x(), 1));
    return std::move(out_);
}

void THtmLayouter::StartLine(const THtmBlock& block) {
    if (lineStarted_) return;
    lineStarted_ = true;
    block_ = block;
    x_ = block.indent;
}

bool THtmLayouter::LinkFull(int link) const {
    if (link < 0) return false;
    const int maxLine = document_.links[size_t(link)].maxLine;
    if (maxLine <= 0) return false;
    for (const TPlaced& placed : line_)
        if (placed.fragment.link == link) return linkLines_[size_t(link)] + 1 >= maxLine;
    return false;
}

void THtmLayouter::Words(int index, const QString& text) {
    const THtmItem& item = document_.items[size_t(index)];
    const QFontMetrics metrics(FontOf(index));
    const int rise = item.style.script > 0   ? metrics.ascent() / 2
                     : item.style.script < 0 ? -metrics.ascent() / 4
                                             : 0;
    for (qsizetype pos = 0; pos < text.size() && !full_;) {
        qsizetype end = pos;
        while (end < text.size() && text[end] != u' ')
            ++end;
        while (end < text.size() && text[end] == u' ')
            ++end;
        QString piece = text.mid(pos, end - pos);
        pos = end;
        StartLine(item.block);
        const int wordWidth =
            metrics.horizontalAdvance(piece.left(piece.size() - TrailingBlanks(piece)));
        if (Wraps(item) && x_ + wordWidth > Avail() && !line_.empty()) {
            if (LinkFull(item.style.link)) return CutLink(item.style.link);
            if (!EndLine(FontOf(index))) return;
            StartLine(item.block);
        }
        // A word wider than a whole line is broken where it has to be.
        while (Wraps(item) && line_.empty() && piece.size() > 1 &&
               x_ + metrics.horizontalAdvance(piece.trimmed()) > Avail()) {
            const int count = FittingChars(piece, metrics, Avail() - x_);
            Place(index, piece.left(count), metrics, rise);
            piece = piece.mid(count);
            if (LinkFull(item.style.link)) return CutLink(item.style.link);
            if (!EndLine(FontOf(index))) return;
            StartLine(item.block);
        }
        Place(index, piece, metrics, rise);
    }
}

void THtmLayouter::Place(int index, const QString& text, const QFontMetrics& metrics, int rise) {
    const int width = metrics.horizontalAdvance(text);
    if (!line_.empty() && line_.back().fragment.item == index) {
        THtmFragment& last = line_.back().fragment;
        last.text += text;
        last.rect.setWidth(last.rect.width() + width);
    } else {
        TPlaced placed;
        placed.fragment.item = index;
        placed.fragment.text = text;
        placed.fragment.link = document_.items[size_t(index)].style.link;
        placed.fragment.rect = QRect(x_, 0, width, metrics.height());
        placed.ascent = metrics.ascent() + qMax(rise, 0);
        placed.descent = metrics.descent() + qMax(-rise, 0);
        placed.rise = rise;
        line_.push_back(std::move(placed));
    }
    x_ += width;
}

void THtmLayouter::PlaceBox(int index, int width, int ascent, int descent) {
    TPlaced placed;
    placed.fragment.item = index;
    placed.fragment.link = document_.items[size_t(index)].style.link;
    placed.fragment.rect = QRect(x_, 0, width, ascent + descent);
    placed.ascent = ascent;
    placed.descent = descent;
    line_.push_back(std::move(placed));
    x_ += width;
}

void THtmLayouter::Picture(int index) {
    const THtmItem& item = document_.items[size_t(index)];
    QSize size = options_.pictureSize ? options_.pictureSize(item.text) : QSize();
    if (size.isEmpty()) {
        // A picture that cannot be found shows its alternative text.
        if (!item.alt.isEmpty()) Words(index, item.alt);
        return;
    }
    if (item.width > 0 && item.height > 0)
        size = QSize(item.width, item.height);
    else if (item.width > 0)
        size = QSize(item.width, qMax(1, int(qint64(size.height()) * item.width / size.width())));
    else if (item.height > 0)
        size = QSize(qMax(1, int(qint64(size.width()) * item.height / size.height())), item.height);
    size = size.boundedTo(QSize(kHtmMaxPictureSide, kHtmMaxPictureSide));

    StartLine(item.block);
    if (Wraps(item) && x_ + size.width() > Avail() && !line_.empty()) {
        if (!EndLine(FontOf(index))) return;
        StartLine(item.block);
    }
    const int textAscent = QFontMetrics(FontOf(index)).ascent();
    int ascent = size.height();
    if (item.valign == THtmVAlign::Top)
        ascent = qMin(size.height(), textAscent);
    else if (item.valign == THtmVAlign::Middle)
        ascent = qMin(size.height(), (size.height() + textAscent) / 2);
    PlaceBox(index, size.width(), ascent, size.height() - ascent);
}

void THtmLayouter::Rule(int index) {
    const THtmItem& item = document_.items[size_t(index)];
    if (!line_.empty() && !EndLine(options_.font)) return;
    StartLine(item.block);
    const int width = item.width > 0                       ? item.width
                      : options_.width > item.block.indent ? options_.width - item.block.indent
                                                           : 0;
    PlaceBox(index, width, item.height + kRuleMargin, kRuleMargin);
    line_.back().fragment.rect.setHeight(item.height);
    EndLine(options_.font);
}

void THtmLayouter::EndWithDots(THtmFragment& fragment, int limit) {
    const QFontMetrics metrics(FontOf(fragment.item));
    QString text = fragment.text;
    while (!text.isEmpty() && fragment.rect.x() + metrics.horizontalAdvance(text + kDots) > limit)
        text.chop(1);
    text.chop(TrailingBlanks(text));
    fragment.text = text + kDots;
    fragment.rect.setWidth(metrics.horizontalAdvance(fragment.text));
    if (fragment.link >= 0) out_.linkCut[size_t(fragment.link)] = true;
}

void THtmLayouter::CutLink(int link) {
    for (size_t i = line_.size(); i-- > 0;) {
        THtmFragment& fragment = line_[i].fragment;
        if (fragment.link != link || fragment.text.isEmpty()) continue;
        EndWithDots(fragment, Avail());
        if (i + 1 == line_.size()) x_ = fragment.rect.x() + fragment.rect.width();
        break;
    }
    out_.linkCut[size_t(link)] = true;
    skipLink_ = link;
}

bool THtmLayouter::EndLine(const QFont& emptyFont) {
    const QFontMetrics metrics(emptyFont);
    int ascent = line_.empty() ? metrics.ascent() : 0;
    int descent = line_.empty() ? metrics.descent() : 0;
    int space = options_.lineSpacing;
    for (const TPlaced& placed : line_) {
        ascent = qMax(ascent, placed.ascent);
        descent = qMax(descent, placed.descent);
        if (placed.fragment.link >= 0)
            space = qMax(space, options_.lineSpacing +
                                    document_.links[size_t(placed.fragment.link)].lineSpace);
    }
    if (options_.height > 0 && out_.lines > 0 && top_ + ascent + descent > options_.height) {
        // The last line that fits says that more was there.
        full_ = true;
        out_.cut = true;
        for (size_t i = out_.fragments.size(); i-- > lastLineStart_;) {
            if (out_.fragments[i].text.isEmpty()) continue;
            EndWithDots(out_.fragments[i], Avail());
            break;
        }
        line_.clear();
        return false;
    }
    int width = x_;
    if (!line_.empty() && !line_.back().fragment.text.isEmpty()) {
        const THtmFragment& last = line_.back().fragment;
        width -= QFontMetrics(FontOf(last.item))
                     .horizontalAdvance(last.text.right(TrailingBlanks(last.text)));
    }
    if (options_.width > 0 && width > options_.width) out_.cut = true;
    int shift = 0;
    if (options_.width > 0 && block_.align == THtmAlign::Right) shift = options_.width - width;
    if (options_.width > 0 && block_.align == THtmAlign::Center)
        shift = (options_.width - width) / 2;
    shift = qMax(shift, 0);

    lastLineStart_ = out_.fragments.size();
    std::vector<int> counted;
    for (TPlaced& placed : line_) {
        THtmFragment& fragment = placed.fragment;
        fragment.rect.moveTo(fragment.rect.x() + shift, top_ + ascent - placed.ascent);
        fragment.baseline = top_ + ascent - placed.rise;
        const int link = fragment.link;
        if (link >= 0 && std::find(counted.begin(), counted.end(), link) == counted.end()) {
            counted.push_back(link);
            ++linkLines_[size_t(link)];
        }
        out_.fragments.push_back(std::move(fragment));
    }
    ++out_.lines;
    out_.size.setWidth(qMax(out_.size.width(), width + shift));
    bottom_ = top_ + ascent + descent;
    top_ = bottom_ + qMax(space, -(ascent + descent) + 1);
    line_.clear();
    lineStarted_ = false;
    return true;
}

THtmLinkLook LookOf(const THtmStyle& style, const THtmLayoutOptions& options,
                    const THtmPaintContext& context) {
    if (style.link >= 0 && context.linkLook)
        return context.linkLook(style.link, style.link == context.hoverLink);
    return {options.font, SkinQColor(style.color, context.textColor), QColor()};
}

}  // namespace

int THtmLayout::LinkAt(const QPoint& point) const {
    for (const THtmFragment& fragment : fragments)
        if (fragment.link >= 0 && fragment.rect.contains(point)) return fragment.link;
    return -1;
}

QFont HtmFont(const QFont& base, const THtmStyle& style) {
    QFont font = base;
    if (!style.face.isEmpty()) font.setFamily(style.face);
    int pixels = base.pixelSize() > 0 ? base.pixelSize() : qRound(base.pointSizeF() * 96 / 72);
    if (style.sizePt > 0) pixels = qMax(1, style.sizePt * 96 / 72);
    if (style.script != 0) pixels = qMax(1, pixels * 7 / 10);
    font.setPixelSize(qMax(pixels, 1));
    if (style.bold) font.setBold(true);
    if (style.italic) font.setItalic(true);
    if (style.underline) font.setUnderline(true);
    if (style.strike) font.setStrikeOut(true);
    return font;
}

THtmLayout LayoutHtm(const THtmDocument& document, const THtmLayoutOptions& options) {
    return THtmLayouter(document, options).Run();
}

void PaintHtm(QPainter& painter, const THtmDocument& document, const THtmLayout& layout,
              const QPoint& origin, const THtmLayoutOptions& options,
              const THtmPaintContext& context) {
    for (const THtmFragment& fragment : layout.fragments) {
        const THtmItem& item = document.items[size_t(fragment.item)];
        const QRect rect = fragment.rect.translated(origin);
        if (item.kind == THtmItem::TKind::Rule) {
            painter.fillRect(rect, SkinQColor(item.style.color, context.textColor));
            continue;
        }
        if (item.kind == THtmItem::TKind::Image && fragment.text.isEmpty()) {
            if (context.drawPicture) context.drawPicture(painter, item.text, rect);
            continue;
        }
        const THtmLinkLook look = LookOf(item.style, options, context);
        if (look.background.isValid() && look.background.alpha() > 0)
            painter.fillRect(rect, look.background);
        if (item.style.bgColor != clNone) painter.fillRect(rect, SkinQColor(item.style.bgColor));
        painter.setFont(HtmFont(look.font, item.style));
        painter.setPen(item.style.link >= 0 ? look.color
                                            : SkinQColor(item.style.color, context.textColor));
        painter.drawText(QPoint(rect.x(), origin.y() + fragment.baseline), fragment.text);
    }
}

}  // namespace qpt
