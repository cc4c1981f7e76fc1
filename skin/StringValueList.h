#pragma once

#include "skin/StringListEx.h"

namespace qpt {

// An always sorted list ordered by the name part of its lines alone, so that
// IndexOf finds a line by its name whatever its value. A name is present at
// most once: adding a name that is there returns the line that has it.
class TStringValueList : public TStringListEx {
public:
    bool Sorted() const override { return true; }

    int IndexOf(const QString& line) const override { return IndexOfName(NameOf(line)); }
    int IndexOfName(const QString& name) const override;
    int Add(const QString& line, std::unique_ptr<TStringListEx> object = nullptr) override;
    // Replacing deletes and reinserts, so the order holds when the name changes.
    void Put(int index, const QString& line) override;

private:
    // First position whose name is not below the given one.
    int LowerBound(const QString& name) const;
};

}  // namespace qpt
