#pragma once

#include <QString>
#include <QVariant>

class QObject;
class QMetaProperty;

namespace qpt {

struct TSkinValue;

// Sets a published property of an object by its dotted path ("Font.Height",
// "ImageOption.Left", "Background.Text"): every segment but the last must be
// a property holding a sub-object. Names match ignoring case.
//
// Conversions follow the property's type: identifiers for booleans ("True"),
// enumerations (their key names) and colours, which are quint32 properties
// and take any colour name or skin colour identifier; sets for flags; strings
// for text, string lists (one item per line, or a list of strings) and bytes.
class TSkinReader {
public:
    enum class TResult {
        Applied,
        Unknown,  // no such property along the path: skipped quietly
        Invalid,  // the value does not fit the property
    };

    static TResult SetProperty(QObject* target, const QString& path, const TSkinValue& value,
                               QString* error = nullptr);
    // A skin or form line's right side: text-form values are read as such,
    // anything else is a plain string as it stands.
    static TResult SetPropertyText(QObject* target, const QString& path, const QString& text,
                                   QString* error = nullptr);

    // Whether one of our classes declares the property, not the framework.
    static bool IsOurs(const QMetaProperty& property);
    // The property of that name, exactly or ignoring case, ours before the
    // framework's; invalid when none.
    static QMetaProperty FindProperty(const QObject* object, const QString& name);
    // The object a property holds, when it holds one.
    static QObject* SubObject(const QObject* object, const QMetaProperty& property);
    // The value converted for the property's type; invalid with a reason when
    // it cannot be.
    static QVariant ToVariant(const QMetaProperty& property, const TSkinValue& value,
                              QString* error);
};

}  // namespace qpt
