#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringView>
#include <optional>

namespace qpt {

// One value in the text form that form resources and skin ini lines share:
//   True  clRed  text_color.cl_text_b      identifiers (booleans, enums, colours)
//   12  -3  $FF  1.5  2E3                  numbers
//   'It''s'#13#10'ok'  'a' + 'b'           strings, "#" codes outside the quotes
//   [fsBold, fsItalic]                     sets of identifiers
//   ('one' 'two' 3)                        lists of any values
//   {0A1B}                                 binary data in hex
// Outside data arrives in this form, so reading never trusts its input: any
// text gives either a value or a reason.
struct TSkinValue {
    enum class Kind { Ident, Integer, Float, String, Set, List, Binary };

    Kind kind = Kind::Ident;
    QString text;  // Ident and String
    qint64 integer = 0;
    double number = 0;
    QByteArray bytes;
    QList<TSkinValue> items;  // Set (identifiers only) and List

    static TSkinValue Ident(const QString& name);
    static TSkinValue Integer(qint64 value);
    static TSkinValue Float(double value);
    static TSkinValue String(const QString& value);
    static TSkinValue Set(const QStringList& names);
    static TSkinValue List(const QList<TSkinValue>& items);
    static TSkinValue Binary(const QByteArray& bytes);

    // The whole text must be one value, with blanks around it allowed.
    static std::optional<TSkinValue> FromText(QStringView text, QString* error = nullptr);
    // Text that FromText reads back to an equal value.
    QString ToText() const;

    // Whether a value starting with this character is meant in the text form;
    // anything else in a skin line is a plain string as it stands.
    static bool IsLiteralStart(QChar c);

    QStringList SetNames() const;
    bool operator==(const TSkinValue& other) const;
};

}  // namespace qpt
