#include "skin/SkinValue.h"

#include <cmath>
#include <limits>

namespace qpt {

namespace {

// Lists inside lists are legal, but outside data could nest them deep enough
// to exhaust the stack.
constexpr int kMaxDepth = 32;

bool IsIdentStart(QChar c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
}
bool IsIdentChar(QChar c) {
    return IsIdentStart(c) || (c >= u'0' && c <= u'9') || c == u'.';
}
bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}
int HexDigit(QChar c) {
    if (IsDigit(c)) return c.unicode() - u'0';
    if (c >= u'a' && c <= u'f') return c.unicode() - u'a' + 10;
    if (c >= u'A' && c <= u'F') return c.unicode() - u'A' + 10;
    return -1;
}

class Parser {
public:
    explicit Parser(QStringView text) : s_(text) {}

    std::optional<TSkinValue> ParseAll(QString* error) {
        std::optional<TSkinValue> value = Value(0);
        SkipBlanks();
        if (value && pos_ < s_.size()) Fail(QStringLiteral("unexpected text after the value"));
        if (!error_.isEmpty()) {
            if (error) *error = error_ + QStringLiteral(" at %1").arg(pos_);
            return std::nullopt;
        }
        return value;
    }

private:
    QChar Peek() const { return pos_ < s_.size() ? s_[pos_] : QChar(); }
    bool AtEnd() const { return pos_ >= s_.size(); }
    void SkipBlanks() {
        while (!AtEnd() && Peek().isSpace())
            ++pos_;
    }
    std::nullopt_t Fail(const QString& reason) {
        if (error_.isEmpty()) error_ = reason;
        return std::nullopt;
    }
    bool Failed(const QString& reason) {
        Fail(reason);
        return false;
    }

    std::optional<TSkinValue> Value(int depth) {
        SkipBlanks();
        const QChar c = Peek();
        if (AtEnd()) return Fail(QStringLiteral("value expected"));
        if (IsIdentStart(c)) return TSkinValue::Ident(Ident());
        if (IsDigit(c) || c == u'-' || c == u'+' || c == u'$') return Number();
        if (c == u'\'' || c == u'#') return String();
        if (c == u'[') return Set();
        if (c == u'(') return List(depth);
        if (c == u'{') return Binary();
        return Fail(QStringLiteral("no value starts with '%1'").arg(c));
    }

    QString Ident() {
        const qsizetype start = pos_;
        while (!AtEnd() && IsIdentChar(Peek()))
            ++pos_;
        return s_.mid(start, pos_ - start).toString();
    }

    std::optional<TSkinValue> Number() {
        const bool negative = Peek() == u'-';
        if (Peek() == u'-' || Peek() == u'+') ++pos_;
        if (Peek() == u'$') return Hex(negative);
        const qsizetype start = pos_;
        bool isFloat = false;
        while (IsDigit(Peek()))
            ++pos_;
        if (pos_ == start) return Fail(QStringLiteral("digits expected"));
        if (Peek() == u'.') {
            isFloat = true;
            ++pos_;
            if (!IsDigit(Peek())) return Fail(QStringLiteral("digits expected after '.'"));
            while (IsDigit(Peek()))
                ++pos_;
        }
        if (Peek() == u'e' || Peek() == u'E') {
            isFloat = true;
            ++pos_;
            if (Peek() == u'-' || Peek() == u'+') ++pos_;
            if (!IsDigit(Peek())) return Fail(QStringLiteral("digits expected in the exponent"));
            while (IsDigit(Peek()))
                ++pos_;
        }
        const QStringView digits = s_.mid(start, pos_ - start);
        bool ok = false;
        if (isFloat) {
            const double value = digits.toDouble(&ok);
            if (!ok || !std::isfinite(value)) return Fail(QStringLiteral("number out of range"));
            return TSkinValue::Float(negative ? -value : value);
        }
        // Parsed without its sign so that the lowest value fits once negated.
        const quint64 magnitude = digits.toULongLong(&ok);
        const quint64 limit = quint64(std::numeric_limits<qint64>::max()) + (negative ? 1 : 0);
        if (!ok || magnitude > limit) return Fail(QStringLiteral("number out of range"));
        return TSkinValue::Integer(negative ? qint64(0 - magnitude) : qint64(magnitude));
    }

    // Hex numbers are bit patterns: "$FFFFFFFFFFFFFFFF" is -1, as colours and
    // masks are written.
    std::optional<TSkinValue> Hex(bool negative) {
        ++pos_;
        quint64 value = 0;
        int count = 0;
        for (int d; (d = HexDigit(Peek())) >= 0; ++pos_, ++count) {
            if (count == 16) return Fail(QStringLiteral("hex number too long"));
            value = value << 4 | quint64(d);
        }
        if (count == 0) return Fail(QStringLiteral("hex digits expected"));
        return TSkinValue::Integer(negative ? qint64(0 - value) : qint64(value));
    }

    std::optional<TSkinValue> String() {
        QString result;
        for (;;) {
            if (!StringPart(result)) return std::nullopt;
            // Parts follow each other directly, or are joined by "+".
            if (Peek() == u'\'' || Peek() == u'#') continue;
            const qsizetype before = pos_;
            SkipBlanks();
            if (Peek() != u'+') {
                pos_ = before;
                return TSkinValue::String(result);
            }
            ++pos_;
            SkipBlanks();
            if (Peek() != u'\'' && Peek() != u'#')
                return Fail(QStringLiteral("string expected after '+'"));
        }
    }

    bool StringPart(QString& out) {
        if (Peek() == u'#') return CharCode(out);
        ++pos_;  // opening quote
        for (;;) {
            if (AtEnd()) return Failed(QStringLiteral("unterminated string"));
            const QChar c = s_[pos_++];
            if (c != u'\'') {
                out += c;
                continue;
            }
            if (Peek() != u'\'') return true;
            out += u'\'';
            ++pos_;
        }
    }

    bool CharCode(QString& out) {
        ++pos_;
        quint32 code = 0;
        bool any = false;
        const bool hex = Peek() == u'$';
        if (hex) ++pos_;
        for (; !AtEnd(); ++pos_) {
            const int d = hex ? HexDigit(Peek()) : (IsDigit(Peek()) ? Peek().unicode() - u'0' : -1);
            if (d < 0) break;
            code = code * (hex ? 16 : 10) + quint32(d);
            any = true;
            if (code > 0x10FFFF) return Failed(QStringLiteral("character code out of range"));
        }
        if (!any) return Failed(QStringLiteral("character code expected after '#'"));
        // Single UTF-16 units, lone surrogates included, stand as they are so
        // that any string can be written and read back.
        if (code <= 0xFFFF)
            out += QChar(char16_t(code));
        else
            out += QString::fromUcs4(reinterpret_cast<const char32_t*>(&code), 1);
        return true;
    }

    std::optional<TSkinValue> Set() {
        ++pos_;
        QStringList names;
        SkipBlanks();
        if (Peek() == u']') {
            ++pos_;
            return TSkinValue::Set(names);
        }
        for (;;) {
            SkipBlanks();
            if (!IsIdentStart(Peek())) return Fail(QStringLiteral("set element expected"));
            names.append(Ident());
            SkipBlanks();
            if (Peek() == u']') break;
            if (Peek() != u',') return Fail(QStringLiteral("',' or ']' expected"));
            ++pos_;
        }
        ++pos_;
        return TSkinValue::Set(names);
    }

    std::optional<TSkinValue> List(int depth) {
        if (depth >= kMaxDepth) return Fail(QStringLiteral("lists nested too deep"));
        ++pos_;
        QList<TSkinValue> items;
        for (;;) {
            SkipBlanks();
            if (AtEnd()) return Fail(QStringLiteral("unterminated list"));
            if (Peek() == u')') break;
            std::optional<TSkinValue> item = Value(depth + 1);
            if (!item) return std::nullopt;
            items.append(std::move(*item));
        }
        ++pos_;
        return TSkinValue::List(items);
    }

    std::optional<TSkinValue> Binary() {
        ++pos_;
        QByteArray bytes;
        int high = -1;
        for (;; ++pos_) {
            if (AtEnd()) return Fail(QStringLiteral("unterminated binary data"));
            const QChar c = Peek();
            if (c == u'}') break;
            if (c.isSpace()) continue;
            const int d = HexDigit(c);
            if (d < 0) return Fail(QStringLiteral("hex digit expected in binary data"));
            if (high < 0) {
                high = d;
            } else {
                bytes.append(char(high << 4 | d));
                high = -1;
            }
        }
        if (high >= 0) return Fail(QStringLiteral("odd number of hex digits"));
        ++pos_;
        return TSkinValue::Binary(bytes);
    }

    QStringView s_;
    qsizetype pos_ = 0;
    QString error_;
};

bool Printable(QChar c) {
    return c.unicode() >= 0x20 && c.unicode() != 0x7F;
}

QString StringText(const QString& value) {
    if (value.isEmpty()) return QStringLiteral("''");
    QString out;
    bool quoted = false;
    for (const QChar c : value) {
        if (Printable(c) != quoted) {
            out += u'\'';
            quoted = !quoted;
        }
        if (!quoted)
            out += u'#' + QString::number(c.unicode());
        else
            out += c == u'\'' ? QStringLiteral("''") : QString(c);
    }
    if (quoted) out += u'\'';
    return out;
}

QString FloatText(double value) {
    QString text = QString::number(value, 'g', 17);
    // Without a point or an exponent it would read back as an integer.
    if (!text.contains(u'.') && !text.contains(u'e')) text += QStringLiteral(".0");
    return text;
}

}  // namespace

TSkinValue TSkinValue::Ident(const QString& name) {
    TSkinValue v;
    v.kind = Kind::Ident;
    v.text = name;
    return v;
}
TSkinValue TSkinValue::Integer(qint64 value) {
    TSkinValue v;
    v.kind = Kind::Integer;
    v.integer = value;
    return v;
}
TSkinValue TSkinValue::Float(double value) {
    TSkinValue v;
    v.kind = Kind::Float;
    v.number = value;
    return v;
}
TSkinValue TSkinValue::String(const QString& value) {
    TSkinValue v;
    v.kind = Kind::String;
    v.text = value;
    return v;
}
TSkinValue TSkinValue::Set(const QStringList& names) {
    TSkinValue v;
    v.kind = Kind::Set;
    for (const QString& name : names)
        v.items.append(Ident(name));
    return v;
}
TSkinValue TSkinValue::List(const QList<TSkinValue>& items) {
    TSkinValue v;
    v.kind = Kind::List;
    v.items = items;
    return v;
}
TSkinValue TSkinValue::Binary(const QByteArray& bytes) {
    TSkinValue v;
    v.kind = Kind::Binary;
    v.bytes = bytes;
    return v;
}

std::optional<TSkinValue> TSkinValue::FromText(QStringView text, QString* error) {
    return Parser(text).ParseAll(error);
}

QString TSkinValue::ToText() const {
    switch (kind) {
        case Kind::Ident:
            return text;
        case Kind::Integer:
            return QString::number(integer);
        case Kind::Float:
            return FloatText(number);
        case Kind::String:
            return StringText(text);
        case Kind::Set:
            return u'[' + SetNames().join(QStringLiteral(", ")) + u']';
        case Kind::List: {
            QStringList parts;
            for (const TSkinValue& item : items)
                parts.append(item.ToText());
            return u'(' + parts.join(u' ') + u')';
        }
        case Kind::Binary:
            return u'{' + QString::fromLatin1(bytes.toHex().toUpper()) + u'}';
    }
    return {};
}

bool TSkinValue::IsLiteralStart(QChar c) {
    return IsIdentStart(c) || IsDigit(c) || c == u'-' || c == u'+' || c == u'$' || c == u'\'' ||
           c == u'#' || c == u'[' || c == u'(' || c == u'{';
}

QStringList TSkinValue::SetNames() const {
    QStringList names;
    for (const TSkinValue& item : items)
        names.append(item.text);
    return names;
}

bool TSkinValue::operator==(const TSkinValue& other) const {
    if (kind != other.kind) return false;
    switch (kind) {
        case Kind::Ident:
        case Kind::String:
            return text == other.text;
        case Kind::Integer:
            return integer == other.integer;
        case Kind::Float:
            return number == other.number;
        case Kind::Set:
        case Kind::List:
            return items == other.items;
        case Kind::Binary:
            return bytes == other.bytes;
    }
    return false;
}

}  // namespace qpt
