#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

namespace qpt {

// The one list of text lines, most of them name=value, that the ini files
// and the skin keep. A line's name is the part before its first '='; a line
// without '=' has no name and is found only as a whole line (a section name
// in a list of sections, a class name in the skin's groups). Each line may
// own a child list.
//
// Lookups by whole line and by name go through hash tables. A list is filled
// line by line and searched at once, so adding and replacing a line keep the
// tables up to date instead of throwing them away; any other change drops
// them and they are rebuilt at the next lookup. Case is folded unless the
// list is case-sensitive.
//
// A name that is not in the list may be looked up in a parent list, so that
// a skin section states only what differs from the one it inherits.
class TNameValueList {
public:
    explicit TNameValueList(bool caseSensitive = false);
    ~TNameValueList();
    TNameValueList(const TNameValueList&) = delete;
    TNameValueList& operator=(const TNameValueList&) = delete;

    int Count() const { return int(lines_.size()); }
    const QString& Get(int index) const { return lines_[size_t(index)].text; }
    TNameValueList* Objects(int index) const { return lines_[size_t(index)].object.get(); }
    QStringList Strings() const;
    bool CaseSensitive() const { return caseSensitive_; }
    void SetCaseSensitive(bool on);

    // Returns the index of the new line.
    int Add(const QString& line, std::unique_ptr<TNameValueList> object = nullptr);
    void AddStrings(const QStringList& lines);
    void Put(int index, const QString& line);
    void Delete(int index);
    void Clear();
    // Replaces the line of the same name, or adds it (a line without a name
    // is added unless the very line is there).
    void SetLine(const QString& line);
    void SetValue(const QString& name, const QString& value) { SetLine(name + u'=' + value); }

    // First index of the line, or of the line named `name`; -1 when there is
    // none. Own lines only.
    int IndexOf(const QString& line) const;
    int IndexOfName(const QString& name) const;

    // The name of a line, or empty for a line without '='; the part after
    // the '=', or empty.
    static bool NameOf(const QString& line, QString* name);
    QString Names(int index) const;
    QString ValueFromIndex(int index) const;

    // The value of a name here or, failing that, up the parent chain.
    bool FindValue(const QString& name, QString* value) const;
    QString Values(const QString& name) const;
    TNameValueList* Parent() const { return parent_; }
    // Refused (false) when the chain would come back to this list: a cycle
    // would make every lookup endless.
    bool SetParent(TNameValueList* parent);
    // Own lines over inherited ones: the lines of each ancestor whose names
    // are not yet given go in front, in their own order.
    QStringList Flattened() const;

    // Called after every change of the list itself (not of child lists).
    void SetOnChange(std::function<void()> onChange) { onChange_ = std::move(onChange); }

private:
    struct Line {
        QString text;
        std::unique_ptr<TNameValueList> object;
    };
    struct Table {
        QHash<QString, int> index;
        bool valid = false;
    };

    QString Fold(const QString& s) const { return caseSensitive_ ? s : s.toUpper(); }
    void Rebuild(Table& table, bool byName) const;
    void Enter(Table& table, const QString& key, int index) const;
    void Replace(Table& table, const QString& oldKey, bool hadOld, const QString& newKey,
                 bool hasNew, int index);
    void DropTables();
    void Changed();

    bool caseSensitive_;
    std::vector<Line> lines_;
    mutable Table byLine_;
    mutable Table byName_;
    TNameValueList* parent_ = nullptr;
    std::function<void()> onChange_;
};

}  // namespace qpt
