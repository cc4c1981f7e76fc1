#include "skin/HtmTag.h"

#include "skin/ColorValue.h"
#include "support/color/ColorNames.h"

namespace qpt {

namespace {

struct TEntity {
    const char16_t* name;
    char16_t value;
};

constexpr TEntity kEntities[] = {
    {u"&nbsp;", 0x00A0}, {u"&lt;", u'<'},     {u"&gt;", u'>'},       {u"&amp;", u'&'},
    {u"&quot;", u'"'},   {u"&sect;", 0x00A7}, {u"&permil;", 0x2030}, {u"&reg;", 0x00AE},
    {u"&copy;", 0x00A9}, {u"&para;", 0x00B6}, {u"&trade;", 0x2122},  {u"&euro;", 0x20AC},
};

bool IsNameChar(QChar c) {
    return c.isLetterOrNumber() || c == u'-' || c == u'_' || c == u':';
}

qsizetype SkipBlanks(QStringView text, qsizetype pos, qsizetype end) {
    while (pos < end && text[pos].isSpace())
        ++pos;
    return pos;
}

QString ReadValue(QStringView text, qsizetype& pos, qsizetype end) {
    if (pos >= end) return {};
    const QChar quote = text[pos];
    if (quote == u'"' || quote == u'\'') {
        const qsizetype close = text.indexOf(quote, pos + 1);
        const qsizetype stop = close < 0 || close > end ? end : close;
        QString value = text.mid(pos + 1, stop - pos - 1).toString();
        pos = stop < end ? stop + 1 : end;
        return value;
    }
    const qsizetype start = pos;
    while (pos < end && !text[pos].isSpace())
        ++pos;
    return text.mid(start, pos - start).toString();
}

void ReadAttributes(QStringView text, qsizetype pos, qsizetype end, THtmTag& tag) {
    while ((pos = SkipBlanks(text, pos, end)) < end) {
        const qsizetype start = pos;
        while (pos < end && IsNameChar(text[pos]))
            ++pos;
        if (pos == start) {
            ++pos;  // stray characters such as a closing "/" carry nothing
            continue;
        }
        QString name = text.mid(start, pos - start).toString().toUpper();
        pos = SkipBlanks(text, pos, end);
        QString value;
        if (pos < end && text[pos] == u'=') {
            pos = SkipBlanks(text, pos + 1, end);
            value = ReadValue(text, pos, end);
        }
        tag.attributes.emplace_back(std::move(name), std::move(value));
    }
}

}  // namespace

std::optional<QString> THtmTag::Value(QStringView attribute) const {
    for (const auto& [name, value] : attributes)
        if (name == attribute) return value;
    return std::nullopt;
}

qsizetype ReadHtmTag(QStringView text, qsizetype pos, THtmTag& tag) {
    // A quoted ">" belongs to a value, not to the end of the tag.
    qsizetype end = pos + 1;
    QChar quote;
    for (; end < text.size(); ++end) {
        const QChar c = text[end];
        if (!quote.isNull()) {
            if (c == quote) quote = QChar();
        } else if (c == u'"' || c == u'\'') {
            // Only a quote that opens a value counts; "don't" in a stray tag does not.
            if (end > 0 && (text[end - 1] == u'=' || text[end - 1].isSpace())) quote = c;
        } else if (c == u'>') {
            break;
        }
    }
    if (end >= text.size()) return -1;
    qsizetype at = pos + 1;
    tag = THtmTag();
    tag.closing = at < end && text[at] == u'/';
    if (tag.closing) ++at;
    const qsizetype nameStart = at;
    while (at < end && IsNameChar(text[at]))
        ++at;
    tag.name = text.mid(nameStart, at - nameStart).toString().toUpper();
    ReadAttributes(text, at, end, tag);
    return end + 1;
}

std::optional<std::pair<QChar, int>> ReadHtmEntity(QStringView text, qsizetype pos) {
    for (const TEntity& entity : kEntities) {
        const QStringView name(entity.name);
        if (text.mid(pos, name.size()).compare(name, Qt::CaseInsensitive) == 0)
            return std::pair(QChar(entity.value), int(name.size()));
    }
    return std::nullopt;
}

int HtmNumber(QStringView value, int fallback, int low, int high) {
    value = value.trimmed();
    qsizetype pos = 0;
    const bool negative = pos < value.size() && value[pos] == u'-';
    if (pos < value.size() && (value[pos] == u'-' || value[pos] == u'+')) ++pos;
    if (pos >= value.size() || !value[pos].isDigit()) return fallback;
    qint64 number = 0;
    for (; pos < value.size() && value[pos].isDigit(); ++pos)
        number = qMin<qint64>(number * 10 + value[pos].digitValue(), qint64(1) << 40);
    return int(qBound(qint64(low), negative ? -number : number, qint64(high)));
}

std::optional<quint32> HtmColor(const QString& value) {
    const QString name = value.trimmed();
    if (name.isEmpty()) return std::nullopt;
    for (const StandardColor& color : StandardColors()) {
        const QStringView full(color.name);
        if (name.compare(full, Qt::CaseInsensitive) == 0 ||
            name.compare(full.mid(2), Qt::CaseInsensitive) == 0)
            return color.value;
    }
    return ParseColorValue(name, ColorOrder::RGB);
}

}  // namespace qpt
