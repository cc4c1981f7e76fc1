#include "skin/SkinWriter.h"

#include <QMetaEnum>
#include <QMetaProperty>
#include <QObject>

#include "skin/ColorTable.h"
#include "skin/RdSkinClass.h"
#include "skin/SkinReader.h"
#include "skin/SkinValue.h"

namespace qpt {

namespace {

// Sub-objects may point back at their owner; nothing we publish nests deeper.
constexpr int kMaxDepth = 8;

std::optional<TSkinValue> EnumText(const QMetaEnum& meta, int value) {
    if (meta.isFlag()) {
        QStringList names;
        for (int i = 0; i < meta.keyCount(); ++i)
            if (meta.value(i) != 0 && (value & meta.value(i)) == meta.value(i))
                names.append(QLatin1String(meta.key(i)));
        return TSkinValue::Set(names);
    }
    const char* key = meta.valueToKey(value);
    return key ? TSkinValue::Ident(QLatin1String(key)) : TSkinValue::Integer(value);
}

TSkinValue ColorText(quint32 color) {
    QString name;
    if (ColorToIdent(color, name)) return TSkinValue::Ident(name);
    return TSkinValue::Integer(color);
}

}  // namespace

std::optional<TSkinValue> TSkinWriter::FromVariant(const QMetaProperty& property,
                                                   const QVariant& value) {
    if (property.isEnumType()) return EnumText(property.enumerator(), value.toInt());
    switch (property.metaType().id()) {
        case QMetaType::Bool:
            return TSkinValue::Ident(value.toBool() ? QStringLiteral("True")
                                                    : QStringLiteral("False"));
        case QMetaType::Int:
        case QMetaType::LongLong:
            return TSkinValue::Integer(value.toLongLong());
        case QMetaType::UInt:
            return ColorText(value.toUInt());
        case QMetaType::Double:
        case QMetaType::Float:
            return TSkinValue::Float(value.toDouble());
        case QMetaType::QString:
            return TSkinValue::String(value.toString());
        case QMetaType::QStringList: {
            QList<TSkinValue> items;
            for (const QString& line : value.toStringList())
                items.append(TSkinValue::String(line));
            return TSkinValue::List(items);
        }
        case QMetaType::QByteArray:
            return TSkinValue::Binary(value.toByteArray());
        default:
            return std::nullopt;
    }
}

QStringList TSkinWriter::Write(const QObject* object) {
    QStringList lines;
    if (object) WriteObject(object, QString(), 0, lines);
    return lines;
}

void TSkinWriter::WriteObject(const QObject* object, const QString& prefix, int depth,
                              QStringList& lines) {
    const QMetaObject* meta = object->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (!TSkinReader::IsOurs(property) || !property.isStored()) continue;
        const QString name = prefix + QLatin1String(property.name());
        if (QObject* sub = TSkinReader::SubObject(object, property)) {
            if (depth < kMaxDepth && !qobject_cast<TRdSkinClass*>(sub))
                WriteObject(sub, name + u'.', depth + 1, lines);
            continue;
        }
        if (!property.isWritable()) continue;
        if (const auto value = FromVariant(property, property.read(object)))
            lines.append(name + u'=' + value->ToText());
    }
}

}  // namespace qpt
