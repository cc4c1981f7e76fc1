#include "skin/StringListEx.h"

namespace qpt {

void TStringListEx::SetCaseSensitive(bool on) {
    if (caseSensitive_ == on) return;
    caseSensitive_ = on;
    Changed();
}

QString TStringListEx::NameOf(const QString& line) {
    const qsizetype eq = line.indexOf(u'=');
    return eq < 0 ? line : line.left(eq);
}

QString TStringListEx::ValueFromIndex(int index) const {
    const QString& line = Strings(index);
    const qsizetype eq = line.indexOf(u'=');
    return eq < 0 ? QString() : line.mid(eq + 1);
}

QStringList TStringListEx::Lines() const {
    QStringList lines;
    lines.reserve(Count());
    for (const Item& item : items_)
        lines.append(item.line);
    return lines;
}

int TStringListEx::Compare(const QString& a, const QString& b) const {
    return QString::compare(a, b, caseSensitive_ ? Qt::CaseSensitive : Qt::CaseInsensitive);
}

int TStringListEx::IndexOf(const QString& line) const {
    for (int i = 0; i < Count(); ++i)
        if (Compare(items_[i].line, line) == 0) return i;
    return -1;
}

int TStringListEx::IndexOfName(const QString& name) const {
    for (int i = 0; i < Count(); ++i)
        if (Compare(NameOf(items_[i].line), name) == 0) return i;
    return -1;
}

QString TStringListEx::Values(const QString& name) const {
    const int index = IndexOfName(name);
    return index < 0 ? QString() : ValueFromIndex(index);
}

int TStringListEx::Add(const QString& line, std::unique_ptr<TStringListEx> object) {
    InsertItem(Count(), Item{line, std::move(object)});
    return Count() - 1;
}

void TStringListEx::Put(int index, const QString& line) {
    items_[index].line = line;
    Changed();
}

void TStringListEx::Delete(int index) {
    items_.erase(items_.begin() + index);
    Changed();
}

void TStringListEx::Clear() {
    items_.clear();
    Changed();
}

void TStringListEx::AddStrings(const QStringList& lines) {
    for (const QString& line : lines)
        Add(line);
}

void TStringListEx::SetValue(const QString& name, const QString& value) {
    SetLine(name + u'=' + value);
}

void TStringListEx::SetLine(const QString& line) {
    const int index = IndexOfName(NameOf(line));
    if (index >= 0)
        Put(index, line);
    else
        Add(line);
}

void TStringListEx::InsertItem(int index, Item item) {
    items_.insert(items_.begin() + index, std::move(item));
    Changed();
}

}  // namespace qpt
