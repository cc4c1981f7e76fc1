#include "skin/HtmMarkup.h"
#include "skin/HtmTag.h"

#include <QStringList>

namespace qpt {

namespace {

constexpr int kListIndent = 16;
constexpr int kMaxIndent = 2000;
constexpr int kMaxLineCount = 1000;
constexpr int kMaxLineSpace = 200;
constexpr int kMaxRuleHeight = 100;
// FONT SIZE 1 to 7, in points.
constexpr int kFontSizes[] = {8, 10, 12, 14, 18, 24, 36};

THtmItem MakeItem(THtmItem::TKind kind) {
    THtmItem item;
    item.kind = kind;
    return item;
}

bool StartsWithUpper(const QString& value, QStringView prefix) {
    return value.trimmed().startsWith(prefix, Qt::CaseInsensitive);
}

// Values may keep a stray quote ("\"TOP"), as sloppy markup writes them.
QString CleanValue(const QString& value) {
    QString clean = value.trimmed().toUpper();
    clean.remove(u'"');
    return clean;
}

THtmAlign ReadAlign(const QString& value, THtmAlign fallback) {
    const QString align = CleanValue(value);
    if (align == u"LEFT") return THtmAlign::Left;
    if (align == u"RIGHT") return THtmAlign::Right;
    if (align == u"CENTER") return THtmAlign::Center;
    return fallback;
}

class THtmReader {
public:
    explicit THtmReader(QStringView text) : text_(text) {}
    THtmDocument Read();

private:
    struct TOpen {
        QString tag;
        THtmStyle style;
        THtmBlock block;
    };
    struct TList {
        bool ordered = false;
        bool circle = false;
        int counter = 1;
    };

    void ReadText(QChar c);
    void Tag(const THtmTag& tag);
    void Close(const QString& name);
    bool Open(const QString& name);
    void Flush();
    void Break();
    void BlockBreak();
    void Add(THtmItem item);

    void Link(const THtmTag& tag);
    void Bold(const THtmTag& tag);
    void Emphasis(const THtmTag& tag);
    void Font(const THtmTag& tag);
    void Rule(const THtmTag& tag);
    void Italic(const THtmTag& tag);
    void ListItem(const THtmTag& tag);
    void List(const THtmTag& tag, bool ordered);
    void Paragraph(const THtmTag& tag, THtmAlign align);
    void Span(const THtmTag& tag);
    void Underline(const THtmTag& tag);
    void NoWrap(const THtmTag& tag);
    void Body(const THtmTag& tag);
    void Image(const THtmTag& tag);
    void FontAttributes(const THtmTag& tag);
    void StyleAttribute(const QString& style);

    QStringView text_;
    THtmDocument document_;
    THtmStyle style_;
    THtmBlock block_;
    std::vector<TOpen> open_;
    std::vector<TList> lists_;
    QString pending_;
    bool lineEmpty_ = true;
};

THtmDocument THtmReader::Read() {
    for (qsizetype pos = 0; pos < text_.size();) {
        const QChar c = text_[pos];
        if (c == u'<') {
            THtmTag tag;
            pos = ReadHtmTag(text_, pos, tag);
            if (pos < 0) break;
            Tag(tag);
        } else if (c == u'&') {
            const auto entity = ReadHtmEntity(text_, pos);
            ReadText(entity ? entity->first : c);
            pos += entity ? entity->second : 1;
        } else if (c == u'\r' && pos + 1 < text_.size() && text_[pos + 1] == u'\n') {
            Break();
            pos += 2;
        } else {
            ReadText(c);
            ++pos;
        }
    }
    Flush();
    return std::move(document_);
}

void THtmReader::ReadText(QChar c) {
    if (c == u'\n') return Break();
    if (c == u'\r') return;
    pending_ += c == u'\t' ? QChar(u' ') : c;
    lineEmpty_ = false;
}

void THtmReader::Add(THtmItem item) {
    item.style = style_;
    item.block = block_;
    document_.items.push_back(std::move(item));
}

void THtmReader::Flush() {
    if (pending_.isEmpty()) return;
    THtmItem item;
    item.text = std::move(pending_);
    pending_.clear();
    Add(std::move(item));
}

void THtmReader::Break() {
    Flush();
    Add(MakeItem(THtmItem::TKind::Break));
    lineEmpty_ = true;
}

void THtmReader::BlockBreak() {
    if (!lineEmpty_) Break();
}

// A tag opens a stretch whose look ends with its closing tag. Past the
// nesting bound tags are still read, but change nothing.
bool THtmReader::Open(const QString& name) {
    if (int(open_.size()) >= kHtmMaxNesting) return false;
    Flush();
    open_.push_back({name, style_, block_});
    return true;
}

// Closes the latest stretch of that name and every one opened inside it,
// so that badly nested markup ends up where the writer meant.
void THtmReader::Close(const QString& name) {
    for (size_t i = open_.size(); i-- > 0;) {
        if (open_[i].tag != name) continue;
        Flush();
        style_ = open_[i].style;
        block_ = open_[i].block;
        open_.resize(i);
        return;
    }
}

void THtmReader::Tag(const THtmTag& tag) {
    if (tag.name.isEmpty()) return;
    const QString& name = tag.name;
    if (tag.closing) {
        if (name == u"P" || name == u"RIGHT" || name == u"UL" || name == u"OL") BlockBreak();
        if ((name == u"UL" || name == u"OL") && !lists_.empty()) lists_.pop_back();
        return Close(name);
    }
    // Each handler takes the names it knows; any other tag is skipped and
    // nothing of it shows.
    switch (name[0].unicode()) {
        case u'A':
            Link(tag);
            break;
        case u'B':
            Bold(tag);
            break;
        case u'E':
            Emphasis(tag);
            break;
        case u'F':
            Font(tag);
            break;
        case u'H':
            Rule(tag);
            break;
        case u'I':
            Italic(tag);
            break;
        case u'L':
            ListItem(tag);
            break;
        case u'O':
            if (name == u"OL") List(tag, true);
            break;
        case u'P':
            if (name == u"P") Paragraph(tag, THtmAlign::Left);
            break;
        case u'R':
            if (name == u"RIGHT") Paragraph(tag, THtmAlign::Right);
            break;
        case u'S':
            Span(tag);
            break;
        case u'U':
            Underline(tag);
            break;
        case u'Z':
            NoWrap(tag);
            break;
        default:
            break;
    }
}

void THtmReader::Link(const THtmTag& tag) {
    if (tag.name != u"A" || !Open(tag.name)) return;
    THtmLinkRef link;
    link.href = tag.Value(u"HREF").value_or(QString());
    link.title = tag.Value(u"TITLE").value_or(QString());
    link.maxLine = HtmNumber(tag.Value(u"MAXLINE").value_or(QString()), 0, 0, kMaxLineCount);
    link.lineSpace =
        HtmNumber(tag.Value(u"LINESPACE").value_or(QString()), 0, -kMaxLineSpace, kMaxLineSpace);
    style_.link = int(document_.links.size());
    document_.links.push_back(std::move(link));
}

void THtmReader::Bold(const THtmTag& tag) {
    if (tag.name == u"BR") {
        Break();
        return;
    }
    if (tag.name == u"BODY") {
        Body(tag);
        return;
    }
    if (tag.name != u"B" || !Open(tag.name)) return;
    style_.bold = true;
}

void THtmReader::Emphasis(const THtmTag& tag) {
    if (tag.name != u"EM" || !Open(tag.name)) return;
    style_.italic = true;
}

void THtmReader::Font(const THtmTag& tag) {
    if (tag.name != u"FONT" || !Open(tag.name)) return;
    FontAttributes(tag);
}

void THtmReader::Italic(const THtmTag& tag) {
    if (tag.name == u"IMG") {
        Image(tag);
        return;
    }
    if (tag.name != u"I" || !Open(tag.name)) return;
    style_.italic = true;
}

void THtmReader::Underline(const THtmTag& tag) {
    if (tag.name == u"UL") {
        List(tag, false);
        return;
    }
    if (tag.name != u"U" || !Open(tag.name)) return;
    style_.underline = true;
}

void THtmReader::NoWrap(const THtmTag& tag) {
    if (tag.name != u"Z" || !Open(tag.name)) return;
    block_.noWrap = true;
}

void THtmReader::Span(const THtmTag& tag) {
    const QString& name = tag.name;
    const bool known = name == u"S" || name == u"STRIKE" || name == u"STRONG" || name == u"SUB" ||
                       name == u"SUP" || name == u"SPAN";
    if (!known || !Open(name)) return;
    if (name == u"S" || name == u"STRIKE") style_.strike = true;
    if (name == u"STRONG") style_.bold = true;
    if (name == u"SUB") style_.script = -1;
    if (name == u"SUP") style_.script = 1;
    if (name == u"SPAN") FontAttributes(tag);
}

void THtmReader::FontAttributes(const THtmTag& tag) {
    if (const auto color = HtmColor(tag.Value(u"COLOR").value_or(QString()))) style_.color = *color;
    if (const auto color = HtmColor(tag.Value(u"BGCOLOR").value_or(QString())))
        style_.bgColor = *color;
    if (const auto face = tag.Value(u"FACE"); face && !face->trimmed().isEmpty())
        style_.face = face->trimmed().left(64);
    if (const auto size = tag.Value(u"SIZE")) {
        const bool relative = size->startsWith(u'+') || size->startsWith(u'-');
        const int number = HtmNumber(*size, 3, -7, 7);
        const int index = qBound(1, relative ? 3 + number : number, 7);
        style_.sizePt = kFontSizes[index - 1];
    }
    if (const auto style = tag.Value(u"STYLE")) StyleAttribute(*style);
}

void THtmReader::StyleAttribute(const QString& style) {
    for (const QString& part : style.split(u';')) {
        const qsizetype colon = part.indexOf(u':');
        if (colon < 0) continue;
        const QString key = part.left(colon + 1).trimmed().toUpper();
        const QString value = part.mid(colon + 1).trimmed();
        if (key == u"FONT-SIZE:" && value.endsWith(u"PT", Qt::CaseInsensitive))
            style_.sizePt = HtmNumber(value, style_.sizePt, kHtmMinFontPt, kHtmMaxFontPt);
        else if (key == u"BACKGROUND-COLOR:")
            style_.bgColor = HtmColor(value).value_or(style_.bgColor);
    }
}

void THtmReader::Body(const THtmTag& tag) {
    THtmBackground& background = document_.background;
    if (const auto picture = tag.Value(u"BACKGROUND")) background.picture = picture->trimmed();
    const auto color = [&](QStringView name) {
        return HtmColor(tag.Value(name).value_or(QString()));
    };
    if (const auto from = color(u"BGCOLOR")) background.color = *from;
    if (const auto to = color(u"BGCOLORTO")) background.colorTo = *to;
    if (const auto from = color(u"BGTOPLEFT")) background.color = *from;
    if (const auto to = color(u"BGTOPRIGHT")) background.colorTo = *to;
    if (const auto dir = tag.Value(u"DIR")) background.vertical = StartsWithUpper(*dir, u"V");
}

void THtmReader::Rule(const THtmTag& tag) {
    if (tag.name != u"HR") return;
    BlockBreak();
    THtmItem rule = MakeItem(THtmItem::TKind::Rule);
    rule.width = HtmNumber(tag.Value(u"WIDTH").value_or(QString()), 0, 0, kHtmMaxPictureSide);
    rule.height = HtmNumber(tag.Value(u"HEIGHT").value_or(QString()), 1, 1, kMaxRuleHeight);
    const THtmStyle style = style_;
    if (const auto color = HtmColor(tag.Value(u"COLOR").value_or(QString()))) style_.color = *color;
    Add(std::move(rule));
    style_ = style;
    lineEmpty_ = true;
}

void THtmReader::Image(const THtmTag& tag) {
    Flush();
    THtmItem image = MakeItem(THtmItem::TKind::Image);
    image.text = tag.Value(u"SRC").value_or(QString()).trimmed();
    image.alt = tag.Value(u"ALT").value_or(QString());
    image.width = HtmNumber(tag.Value(u"WIDTH").value_or(QString()), 0, 0, kHtmMaxPictureSide);
    image.height = HtmNumber(tag.Value(u"HEIGHT").value_or(QString()), 0, 0, kHtmMaxPictureSide);
    const QString align = CleanValue(tag.Value(u"ALIGN").value_or(QString()));
    if (align == u"TOP") image.valign = THtmVAlign::Top;
    if (align == u"MIDDLE") image.valign = THtmVAlign::Middle;
    Add(std::move(image));
    lineEmpty_ = false;
}

void THtmReader::List(const THtmTag& tag, bool ordered) {
    BlockBreak();
    if (!Open(tag.name)) return;
    TList list;
    list.ordered = ordered;
    list.circle = CleanValue(tag.Value(u"TYPE").value_or(QString())) == u"CIRCLE";
    lists_.push_back(list);
    const int indent =
        HtmNumber(tag.Value(u"INDENT").value_or(QString()), kListIndent, 0, kMaxIndent);
    block_.indent = qMin(block_.indent + indent, kMaxIndent);
}

void THtmReader::ListItem(const THtmTag& tag) {
    if (tag.name != u"LI") return;
    BlockBreak();
    Flush();
    TList fallback;
    TList& list = lists_.empty() ? fallback : lists_.back();
    const QString type = CleanValue(tag.Value(u"TYPE").value_or(QString()));
    const bool circle = type == u"CIRCLE" || (type != u"SQUARE" && list.circle);
    const THtmStyle style = style_;
    if (list.ordered) {
        pending_ = QString::number(list.counter) + QStringLiteral(". ");
        list.counter = qMin(list.counter + 1, 1 << 30);
    } else if (circle) {
        pending_ = QStringLiteral("o ");
    } else {
        style_.face = QStringLiteral("Symbol");
        pending_ = QStringLiteral("\u00B7");
        Flush();
        style_ = style;
        pending_ = QStringLiteral(" ");
    }
    Flush();
    lineEmpty_ = false;
}

void THtmReader::Paragraph(const THtmTag& tag, THtmAlign align) {
    BlockBreak();
    if (!Open(tag.name)) return;
    block_.align = ReadAlign(tag.Value(u"ALIGN").value_or(QString()), align);
    if (tag.Value(u"DIR").value_or(QString()).trimmed().toUpper() == u"RTL")
        block_.align = THtmAlign::Right;
    block_.indent =
        HtmNumber(tag.Value(u"INDENT").value_or(QString()), block_.indent, 0, kMaxIndent);
    if (const auto wrap = tag.Value(u"WRAP")) {
        const QString value = CleanValue(*wrap);
        block_.noWrap = value == u"0" || value == u"NO" || value == u"FALSE" || value == u"OFF";
    }
    if (const auto style = tag.Value(u"STYLE")) StyleAttribute(*style);
}

}  // namespace

THtmDocument ParseHtm(QStringView markup) {
    return THtmReader(markup).Read();
}

QString HtmPlainText(const THtmDocument& document) {
    QString text;
    for (const THtmItem& item : document.items) {
        switch (item.kind) {
            case THtmItem::TKind::Text:
                text += item.text;
                break;
            case THtmItem::TKind::Image:
                text += item.alt;
                break;
            case THtmItem::TKind::Break:
            case THtmItem::TKind::Rule:
                text += u'\n';
                break;
        }
    }
    return text;
}

}  // namespace qpt
