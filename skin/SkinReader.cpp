#include "skin/SkinReader.h"

#include <QMetaEnum>
#include <QMetaProperty>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <limits>

#include "skin/ColorTable.h"
#include "skin/SkinValue.h"

namespace qpt {

namespace {

using Kind = TSkinValue::Kind;

QVariant Refuse(QString* error, const QString& reason) {
    if (error) *error = reason;
    return {};
}

QVariant InvalidIdent(QString* error, const TSkinValue& value) {
    return Refuse(error, QStringLiteral("Invalid Ident value: ") + value.text);
}

QVariant BoolValue(const TSkinValue& value, QString* error) {
    if (value.kind == Kind::Integer) return value.integer != 0;
    if (value.kind != Kind::Ident) return Refuse(error, QStringLiteral("boolean expected"));
    if (value.text.compare(u"True", Qt::CaseInsensitive) == 0) return true;
    if (value.text.compare(u"False", Qt::CaseInsensitive) == 0) return false;
    return InvalidIdent(error, value);
}

// A number given for an enumeration must still be one of its values (or, for
// a set, made of its bits): anything else is no value of the type at all.
bool IsEnumValue(const QMetaEnum& meta, qint64 number) {
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        return false;
    const int v = int(number);
    if (!meta.isFlag()) return meta.valueToKey(v) != nullptr;
    int bits = 0;
    for (int i = 0; i < meta.keyCount(); ++i)
        bits |= meta.value(i);
    return (v & ~bits) == 0;
}

QVariant EnumValue(const QMetaEnum& meta, const TSkinValue& value, QString* error) {
    if (value.kind == Kind::Integer) {
        if (IsEnumValue(meta, value.integer)) return int(value.integer);
        return Refuse(error, QStringLiteral("value out of range"));
    }
    if (meta.isFlag() && value.kind == Kind::Set) {
        int bits = 0;
        for (const QString& name : value.SetNames()) {
            bool ok = false;
            bits |= meta.keyToValue(name.toLatin1().constData(), &ok);
            if (!ok) return InvalidIdent(error, TSkinValue::Ident(name));
        }
        return bits;
    }
    if (!meta.isFlag() && value.kind == Kind::Ident) {
        bool ok = false;
        const int v = meta.keyToValue(value.text.toLatin1().constData(), &ok);
        return ok ? QVariant(v) : InvalidIdent(error, value);
    }
    return Refuse(error, meta.isFlag() ? QStringLiteral("set expected")
                                       : QStringLiteral("identifier expected"));
}

QVariant IntegerValue(int typeId, qint64 value, QString* error) {
    constexpr qint64 kIntMin = std::numeric_limits<qint32>::min();
    switch (typeId) {
        case QMetaType::Int:
            if (value < kIntMin || value > std::numeric_limits<qint32>::max()) break;
            return int(value);
        case QMetaType::UInt:
            // Colours are also written signed: both spellings give the same bits.
            if (value < kIntMin || value > std::numeric_limits<quint32>::max()) break;
            return quint32(value);
        case QMetaType::Double:
        case QMetaType::Float:
            return double(value);
        default:
            return value;
    }
    return Refuse(error, QStringLiteral("number out of range"));
}

QVariant NumberValue(int typeId, const TSkinValue& value, QString* error) {
    if (value.kind == Kind::Integer) return IntegerValue(typeId, value.integer, error);
    if (value.kind == Kind::Float) {
        if (typeId == QMetaType::Double || typeId == QMetaType::Float) return value.number;
        return Refuse(error, QStringLiteral("integer expected"));
    }
    // Colour properties take colour names, which the colour table maps to
    // fixed values or to the id of a skin colour.
    if (value.kind == Kind::Ident && typeId == QMetaType::UInt) {
        quint32 color = 0;
        IdentToColor(value.text, color);
        return color;
    }
    if (value.kind == Kind::Ident) return InvalidIdent(error, value);
    return Refuse(error, QStringLiteral("number expected"));
}

QStringList Lines(const QString& text) {
    QString unified = text;
    unified.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (unified.endsWith(u'\n')) unified.chop(1);
    return unified.isEmpty() ? QStringList() : unified.split(u'\n');
}

QVariant StringListValue(const TSkinValue& value, QString* error) {
    if (value.kind == Kind::String) return Lines(value.text);
    if (value.kind != Kind::List) return Refuse(error, QStringLiteral("list of strings expected"));
    QStringList lines;
    for (const TSkinValue& item : value.items) {
        if (item.kind != Kind::String) return Refuse(error, QStringLiteral("string expected"));
        lines.append(item.text);
    }
    return lines;
}

}  // namespace

bool TSkinReader::IsOurs(const QMetaProperty& property) {
    return QLatin1String(property.enclosingMetaObject()->className()).startsWith(u"qpt::");
}

// Our names come first: "font" is the framework's own QFont property of every
// widget, while a skin line "font.Height" means the control's Font.
QMetaProperty TSkinReader::FindProperty(const QObject* object, const QString& name) {
    const QMetaObject* meta = object->metaObject();
    // Skin lines mostly spell names as declared: no scan for those.
    const int exact = meta->indexOfProperty(name.toLatin1().constData());
    if (exact >= 0 && IsOurs(meta->property(exact))) return meta->property(exact);
    QMetaProperty fallback;
    int fallbackRank = 4;
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        const QLatin1String candidate(property.name());
        if (name.compare(candidate, Qt::CaseInsensitive) != 0) continue;
        const int rank = (IsOurs(property) ? 0 : 2) + (name == candidate ? 0 : 1);
        if (rank == 0) return property;
        if (rank < fallbackRank) {
            fallback = property;
            fallbackRank = rank;
        }
    }
    return fallback;
}

QObject* TSkinReader::SubObject(const QObject* object, const QMetaProperty& property) {
    if (!(property.metaType().flags() & QMetaType::PointerToQObject)) return nullptr;
    return property.read(object).value<QObject*>();
}

QVariant TSkinReader::ToVariant(const QMetaProperty& property, const TSkinValue& value,
                                QString* error) {
    if (property.isEnumType()) return EnumValue(property.enumerator(), value, error);
    const int typeId = property.metaType().id();
    switch (typeId) {
        case QMetaType::Bool:
            return BoolValue(value, error);
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::Double:
        case QMetaType::Float:
            return NumberValue(typeId, value, error);
        case QMetaType::QString:
            if (value.kind == Kind::String) return value.text;
            return value.kind == Kind::Ident ? InvalidIdent(error, value)
                                             : Refuse(error, QStringLiteral("string expected"));
        case QMetaType::QStringList:
            return StringListValue(value, error);
        case QMetaType::QByteArray:
            if (value.kind == Kind::Binary) return value.bytes;
            if (value.kind == Kind::String) return value.text.toUtf8();
            return Refuse(error, QStringLiteral("binary data expected"));
        default:
            return Refuse(error, QStringLiteral("property type %1 cannot be set from text")
                                     .arg(QLatin1String(property.typeName())));
    }
}

TSkinReader::TResult TSkinReader::SetProperty(QObject* target, const QString& path,
                                              const TSkinValue& value, QString* error) {
    const QStringList segments = path.split(u'.');
    QObject* object = target;
    for (qsizetype i = 0; object && i + 1 < segments.size(); ++i)
        object = SubObject(object, FindProperty(object, segments[i]));
    if (!object) return TResult::Unknown;
    const QMetaProperty property = FindProperty(object, segments.last());
    if (!property.isValid() || !property.isWritable()) return TResult::Unknown;
    const QVariant converted = ToVariant(property, value, error);
    if (!converted.isValid()) return TResult::Invalid;
    if (property.write(object, converted)) return TResult::Applied;
    if (error) *error = QStringLiteral("value out of range for ") + path;
    return TResult::Invalid;
}

TSkinReader::TResult TSkinReader::SetPropertyText(QObject* target, const QString& path,
                                                  const QString& text, QString* error) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || !TSkinValue::IsLiteralStart(trimmed.front()))
        return SetProperty(target, path, TSkinValue::String(text), error);
    const std::optional<TSkinValue> value = TSkinValue::FromText(trimmed, error);
    if (!value) return TResult::Invalid;
    return SetProperty(target, path, *value, error);
}

}  // namespace qpt
