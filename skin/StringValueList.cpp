#include "skin/StringValueList.h"

namespace qpt {

int TStringValueList::LowerBound(const QString& name) const {
    int low = 0;
    int high = Count();
    while (low < high) {
        const int mid = (low + high) / 2;
        if (Compare(Names(mid), name) < 0)
            low = mid + 1;
        else
            high = mid;
    }
    return low;
}

int TStringValueList::IndexOfName(const QString& name) const {
    const int at = LowerBound(name);
    return at < Count() && Compare(Names(at), name) == 0 ? at : -1;
}

int TStringValueList::Add(const QString& line, std::unique_ptr<TStringListEx> object) {
    const QString name = NameOf(line);
    const int at = LowerBound(name);
    if (at < Count() && Compare(Names(at), name) == 0) return at;
    InsertItem(at, Item{line, std::move(object)});
    return at;
}

void TStringValueList::Put(int index, const QString& line) {
    std::unique_ptr<TStringListEx> object = std::move(items_[index].object);
    Delete(index);
    const int existing = IndexOfName(NameOf(line));
    if (existing >= 0) Delete(existing);
    Add(line, std::move(object));
}

}  // namespace qpt
