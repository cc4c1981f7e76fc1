#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <utility>
#include <vector>

namespace qpt {

// One tag of the markup as written: its name and attribute names in upper
// case, the values as they stand (without their quotes).
struct THtmTag {
    QString name;
    bool closing = false;
    std::vector<std::pair<QString, QString>> attributes;

    // The value of the first attribute of that (upper-case) name.
    std::optional<QString> Value(QStringView attribute) const;
};

// Reads the tag whose "<" is at `pos` and returns the position after its
// ">", or -1 when the text ends first.
qsizetype ReadHtmTag(QStringView text, qsizetype pos, THtmTag& tag);

// The character an entity such as "&amp;" at `pos` stands for, and how many
// characters it takes; nothing when no entity the reader knows starts there.
std::optional<std::pair<QChar, int>> ReadHtmEntity(QStringView text, qsizetype pos);

// The leading whole number of `value` (a sign allowed), held within
// low..high; `fallback` when there is none.
int HtmNumber(QStringView value, int fallback, int low, int high);

// A colour written as "#rrggbb", a colour name with or without its "cl"
// ("red", "clRed") or a number; nothing when it is none of these.
std::optional<quint32> HtmColor(const QString& value);

}  // namespace qpt
