#include "support/IniHashedStringList.h"

namespace qpt {

TIniHashedStringList::TIniHashedStringList(bool caseSensitive) : caseSensitive_(caseSensitive) {}

TIniHashedStringList::~TIniHashedStringList() = default;

bool TIniHashedStringList::NameOf(const QString& line, QString* name) {
    const qsizetype eq = line.indexOf(u'=');
    if (eq < 0) return false;
    *name = line.left(eq);
    return true;
}

int TIniHashedStringList::AddObject(const QString& line,
                                    std::unique_ptr<TIniHashedStringList> object) {
    const int index = Count();
    lines_.push_back(Line{line, std::move(object)});
    // An appended line can only become the first of its key, never displace one.
    if (byLine_.valid) Enter(byLine_, Fold(line), index);
    QString name;
    if (byName_.valid && NameOf(line, &name)) Enter(byName_, Fold(name), index);
    Changed();
    return index;
}

void TIniHashedStringList::Put(int index, const QString& line) {
    if (index < 0 || index >= Count()) return;
    Line& slot = lines_[size_t(index)];
    QString oldName, newName;
    const bool hadName = NameOf(slot.text, &oldName);
    const bool hasName = NameOf(line, &newName);
    Replace(byLine_, Fold(slot.text), true, Fold(line), true, index);
    Replace(byName_, Fold(oldName), hadName, Fold(newName), hasName, index);
    slot.text = line;
    Changed();
}

void TIniHashedStringList::Delete(int index) {
    if (index < 0 || index >= Count()) return;
    lines_.erase(lines_.begin() + index);
    byLine_.valid = false;
    byName_.valid = false;
    Changed();
}

void TIniHashedStringList::Clear() {
    if (lines_.empty()) return;
    lines_.clear();
    byLine_ = Table{};
    byName_ = Table{};
    Changed();
}

int TIniHashedStringList::IndexOf(const QString& line) const {
    if (!byLine_.valid) Rebuild(byLine_, false);
    return byLine_.index.value(Fold(line), -1);
}

int TIniHashedStringList::IndexOfName(const QString& name) const {
    if (!byName_.valid) Rebuild(byName_, true);
    return byName_.index.value(Fold(name), -1);
}

QString TIniHashedStringList::Names(int index) const {
    QString name;
    NameOf(Get(index), &name);
    return name;
}

QString TIniHashedStringList::ValueFromIndex(int index) const {
    const QString& line = Get(index);
    const qsizetype eq = line.indexOf(u'=');
    return eq < 0 ? QString() : line.mid(eq + 1);
}

QStringList TIniHashedStringList::Strings() const {
    QStringList out;
    out.reserve(Count());
    for (const Line& line : lines_)
        out.append(line.text);
    return out;
}

void TIniHashedStringList::Rebuild(Table& table, bool byName) const {
    table.index.clear();
    table.index.reserve(Count());
    QString key;
    for (int i = 0; i < Count(); ++i) {
        if (!byName)
            Enter(table, Fold(Get(i)), i);
        else if (NameOf(Get(i), &key))
            Enter(table, Fold(key), i);
    }
    table.valid = true;
}

void TIniHashedStringList::Enter(Table& table, const QString& key, int index) const {
    auto it = table.index.find(key);
    if (it == table.index.end())
        table.index.insert(key, index);
    else if (*it > index)
        *it = index;
}

// Keeps a table valid across the replacement of one line. Only when the old
// key pointed at this very line may a later duplicate have to take its place,
// and finding that would cost a scan: then the table is rebuilt on demand.
void TIniHashedStringList::Replace(Table& table, const QString& oldKey, bool hadOld,
                                   const QString& newKey, bool hasNew, int index) {
    if (!table.valid) return;
    if (hadOld && !(hasNew && oldKey == newKey) && table.index.value(oldKey, -1) == index) {
        table.valid = false;
        return;
    }
    if (hasNew) Enter(table, newKey, index);
}

void TIniHashedStringList::Changed() {
    if (onChange_) onChange_();
}

}  // namespace qpt
