#include "skin/RdValueStrings.h"

#include <stdexcept>

namespace qpt {

bool TRdValueStrings::SetParent(TRdValueStrings* parent) {
    for (const TRdValueStrings* p = parent; p; p = p->parent_)
        if (p == this) return false;
    parent_ = parent;
    return true;
}

QString TRdValueStrings::HashKey(const QString& name) const {
    return CaseSensitive() ? name : name.toUpper();
}

int TRdValueStrings::IndexOfName(const QString& name) const {
    if (!hashValid_) {
        hash_.Clear();
        // The first of two equal names wins, as a linear search would find it.
        for (int i = 0; i < Count(); ++i)
            hash_.Add(HashKey(Names(i)), i);
        hashValid_ = true;
    }
    const int* index = hash_.Find(HashKey(name));
    return index ? *index : -1;
}

bool TRdValueStrings::FindValue(const QString& name, QString* value) const {
    for (const TRdValueStrings* level = this; level; level = level->parent_) {
        const int index = level->IndexOfName(name);
        if (index >= 0) {
            if (value) *value = level->ValueFromIndex(index);
            return true;
        }
    }
    return false;
}

QString TRdValueStrings::Values(const QString& name) const {
    QString value;
    FindValue(name, &value);
    return value;
}

void TRdValueStrings::Assign(const TStringListEx& source) {
    if (&source == this) return;
    for (int i = 0; i < source.Count(); ++i)
        if (source.Objects(i)) throw std::logic_error("not support strings contain object!!!");
    Clear();
    SetCaseSensitive(source.CaseSensitive());
    AddStrings(source.Lines());
}

void TRdValueStrings::AssignTo(TStringListEx& target) const {
    target.Clear();
    for (const TRdValueStrings* level = this; level; level = level->parent_) {
        if (target.Sorted()) {
            // A sorted target keeps the first line of a name it was given.
            target.AddStrings(level->Lines());
            continue;
        }
        QStringList missing;
        for (const QString& line : level->Lines())
            if (target.IndexOfName(NameOf(line)) < 0) missing.append(line);
        // Inherited lines go in front, in their own order.
        QStringList merged = missing + target.Lines();
        target.Clear();
        target.AddStrings(merged);
    }
}

}  // namespace qpt
