#include "skin/ColorValue.h"

#include <QStringList>

namespace qpt {

namespace {

// Red and blue trade places; green and alpha stay.
quint32 SwapRedBlue(quint32 v) {
    return (v & 0xFF00FF00u) | (v & 0xFF) << 16 | (v >> 16 & 0xFF);
}

std::optional<quint32> ParseHex(QStringView digits) {
    if (digits.isEmpty() || digits.size() > 8) return std::nullopt;
    quint32 value = 0;
    for (const QChar c : digits) {
        const char16_t u = c.unicode();
        const int d = (u >= u'0' && u <= u'9')   ? u - u'0'
                      : (u >= u'a' && u <= u'f') ? u - u'a' + 10
                      : (u >= u'A' && u <= u'F') ? u - u'A' + 10
                                                 : -1;
        if (d < 0) return std::nullopt;
        value = value << 4 | quint32(d);
    }
    return value;
}

// A signed 32-bit decimal, kept as its bit pattern.
std::optional<quint32> ParseDecimal(QStringView text) {
    bool ok = false;
    const int value = text.trimmed().toInt(&ok, 10);
    if (!ok) return std::nullopt;
    return quint32(value);
}

std::optional<quint32> ParseTriple(const QString& text) {
    const QStringList parts = text.split(u',');
    if (parts.size() != 3) return std::nullopt;
    quint32 value = 0;
    for (const QString& part : parts) {
        const auto n = ParseDecimal(part);
        if (!n) return std::nullopt;
        value = value << 8 | (*n & 0xFF);
    }
    return value;
}

}  // namespace

std::optional<quint32> ParseColorValue(const QString& text, ColorOrder order) {
    if (text.isEmpty()) return std::nullopt;
    const bool rgb = order == ColorOrder::RGB;
    std::optional<quint32> value;
    if (text.startsWith(u'#')) {
        value = ParseHex(QStringView(text).mid(1));
        return value ? std::optional(SwapRedBlue(*value)) : std::nullopt;
    }
    if (text.startsWith(u'$')) return ParseHex(QStringView(text).mid(1));
    if (text.contains(u','))
        value = ParseTriple(text);
    else if (rgb)
        value = ParseHex(text);
    else if (const auto number = ParseDecimal(text))
        return number;
    else
        return ParseHex(text);
    if (value && rgb) value = SwapRedBlue(*value);
    return value;
}

std::optional<QString> ColorLinkTarget(const QString& text) {
    if (!text.startsWith(u'[')) return std::nullopt;
    QString name = text.mid(1);
    if (name.endsWith(u']')) name.chop(1);
    return name.trimmed();
}

}  // namespace qpt
