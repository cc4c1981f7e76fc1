#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

namespace qpt {

// A list of lines with hashed lookups by whole line and by name (the part
// before the first '='). An ini section is filled line by line and searched
// at once, so adding and replacing a line keep the hash tables up to date
// instead of throwing them away; any other change drops them and they are
// rebuilt at the next lookup. Each line may own a child list (a section's
// lines hang off its name in the list of sections).
class TIniHashedStringList {
public:
    explicit TIniHashedStringList(bool caseSensitive = false);
    ~TIniHashedStringList();
    TIniHashedStringList(const TIniHashedStringList&) = delete;
    TIniHashedStringList& operator=(const TIniHashedStringList&) = delete;

    int Count() const { return int(lines_.size()); }
    const QString& Get(int index) const { return lines_[size_t(index)].text; }
    TIniHashedStringList* Objects(int index) const { return lines_[size_t(index)].object.get(); }
    bool CaseSensitive() const { return caseSensitive_; }

    int Add(const QString& line) { return AddObject(line, nullptr); }
    int AddObject(const QString& line, std::unique_ptr<TIniHashedStringList> object);
    void Put(int index, const QString& line);
    void Delete(int index);
    void Clear();

    // First index of the line, or of the line whose name is `name`; -1 when
    // there is none. Case is folded unless the list is case-sensitive.
    int IndexOf(const QString& line) const;
    int IndexOfName(const QString& name) const;

    // The part before the first '=', or empty for a line without one; the
    // part after it, or empty.
    QString Names(int index) const;
    QString ValueFromIndex(int index) const;
    QStringList Strings() const;

    // Called after every change of the list itself (not of child lists).
    void SetOnChange(std::function<void()> onChange) { onChange_ = std::move(onChange); }

private:
    struct Line {
        QString text;
        std::unique_ptr<TIniHashedStringList> object;
    };
    struct Table {
        QHash<QString, int> index;
        bool valid = false;
    };

    QString Fold(const QString& s) const { return caseSensitive_ ? s : s.toUpper(); }
    static bool NameOf(const QString& line, QString* name);
    void Rebuild(Table& table, bool byName) const;
    void Enter(Table& table, const QString& key, int index) const;
    void Replace(Table& table, const QString& oldKey, bool hadOld, const QString& newKey,
                 bool hasNew, int index);
    void Changed();

    bool caseSensitive_;
    std::vector<Line> lines_;
    mutable Table byLine_;
    mutable Table byName_;
    std::function<void()> onChange_;
};

}  // namespace qpt
