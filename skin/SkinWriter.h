#pragma once

#include <QStringList>
#include <optional>

class QObject;
class QMetaProperty;
class QVariant;

namespace qpt {

struct TSkinValue;

// Writes an object's published state as "name=value" lines in the text form,
// sub-objects as dotted names ("Font.Height=-12"), so that it can be compared
// with skin sections or read back line by line through TSkinReader.
// Published means: a writable, stored property declared by one of our own
// classes, or a sub-object property; the framework's own properties and skin
// classes are left out.
class TSkinWriter {
public:
    static QStringList Write(const QObject* object);
    // The value of a property in text form; none for types without one.
    static std::optional<TSkinValue> FromVariant(const QMetaProperty& property,
                                                 const QVariant& value);

private:
    static void WriteObject(const QObject* object, const QString& prefix, int depth,
                            QStringList& lines);
};

}  // namespace qpt
