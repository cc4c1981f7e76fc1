#include "support/NameValueList.h"

namespace qpt {

TNameValueList::TNameValueList(bool caseSensitive) : caseSensitive_(caseSensitive) {}

TNameValueList::~TNameValueList() = default;

bool TNameValueList::NameOf(const QString& line, QString* name) {
    const qsizetype eq = line.indexOf(u'=');
    if (eq < 0) return false;
    *name = line.left(eq);
    return true;
}

int TNameValueList::Add(const QString& line, std::unique_ptr<TNameValueList> object) {
    const int index = Count();
    lines_.push_back(Line{line, std::move(object)});
    // An appended line can only become the first of its key, never displace one.
    if (byLine_.valid) Enter(byLine_, Fold(line), index);
    QString name;
    if (byName_.valid && NameOf(line, &name)) Enter(byName_, Fold(name), index);
    Changed();
    return index;
}

void TNameValueList::Put(int index, const QString& line) {
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

void TNameValueList::AddStrings(const QStringList& lines) {
    for (const QString& line : lines)
        Add(line);
}

void TNameValueList::SetCaseSensitive(bool on) {
    if (caseSensitive_ == on) return;
    caseSensitive_ = on;
    DropTables();
    Changed();
}

void TNameValueList::Delete(int index) {
    if (index < 0 || index >= Count()) return;
    lines_.erase(lines_.begin() + index);
    DropTables();
    Changed();
}

void TNameValueList::SetLine(const QString& line) {
    QString name;
    const int index = NameOf(line, &name) ? IndexOfName(name) : IndexOf(line);
    if (index < 0)
        Add(line);
    else
        Put(index, line);
}

void TNameValueList::Clear() {
    if (lines_.empty()) return;
    lines_.clear();
    byLine_ = Table{};
    byName_ = Table{};
    Changed();
}

int TNameValueList::IndexOf(const QString& line) const {
    if (!byLine_.valid) Rebuild(byLine_, false);
    return byLine_.index.value(Fold(line), -1);
}

int TNameValueList::IndexOfName(const QString& name) const {
    if (!byName_.valid) Rebuild(byName_, true);
    return byName_.index.value(Fold(name), -1);
}

QString TNameValueList::Names(int index) const {
    QString name;
    NameOf(Get(index), &name);
    return name;
}

QString TNameValueList::ValueFromIndex(int index) const {
    const QString& line = Get(index);
    const qsizetype eq = line.indexOf(u'=');
    return eq < 0 ? QString() : line.mid(eq + 1);
}

bool TNameValueList::FindValue(const QString& name, QString* value) const {
    for (const TNameValueList* level = this; level; level = level->parent_) {
        const int index = level->IndexOfName(name);
        if (index >= 0) {
            if (value) *value = level->ValueFromIndex(index);
            return true;
        }
    }
    return false;
}

QString TNameValueList::Values(const QString& name) const {
    QString value;
    FindValue(name, &value);
    return value;
}

bool TNameValueList::SetParent(TNameValueList* parent) {
    for (const TNameValueList* p = parent; p; p = p->parent_)
        if (p == this) return false;
    parent_ = parent;
    return true;
}

QStringList TNameValueList::Flattened() const {
    TNameValueList flat(caseSensitive_);
    flat.AddStrings(Strings());
    for (const TNameValueList* level = parent_; level; level = level->parent_) {
        QStringList missing;
        QString name;
        for (const Line& line : level->lines_)
            if (NameOf(line.text, &name) ? flat.IndexOfName(name) < 0 : flat.IndexOf(line.text) < 0)
                missing.append(line.text);
        QStringList merged = missing + flat.Strings();
        flat.Clear();
        flat.AddStrings(merged);
    }
    return flat.Strings();
}

QStringList TNameValueList::Strings() const {
    QStringList out;
    out.reserve(Count());
    for (const Line& line : lines_)
        out.append(line.text);
    return out;
}

void TNameValueList::Rebuild(Table& table, bool byName) const {
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

void TNameValueList::Enter(Table& table, const QString& key, int index) const {
    auto it = table.index.find(key);
    if (it == table.index.end())
        table.index.insert(key, index);
    else if (*it > index)
        *it = index;
}

// Keeps a table valid across the replacement of one line. Only when the old
// key pointed at this very line may a later duplicate have to take its place,
// and finding that would cost a scan: then the table is rebuilt on demand.
void TNameValueList::Replace(Table& table, const QString& oldKey, bool hadOld,
                             const QString& newKey, bool hasNew, int index) {
    if (!table.valid) return;
    if (hadOld && !(hasNew && oldKey == newKey) && table.index.value(oldKey, -1) == index) {
        table.valid = false;
        return;
    }
    if (hasNew) Enter(table, newKey, index);
}

void TNameValueList::DropTables() {
    byLine_.valid = false;
    byName_.valid = false;
}

void TNameValueList::Changed() {
    if (onChange_) onChange_();
}

}  // namespace qpt
