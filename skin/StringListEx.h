#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

namespace qpt {

// A list of text lines, most of them name=value, each with an optional owned
// child list. Every comparison honours CaseSensitive.
class TStringListEx {
public:
    TStringListEx() = default;
    virtual ~TStringListEx() = default;
    TStringListEx(const TStringListEx&) = delete;
    TStringListEx& operator=(const TStringListEx&) = delete;

    bool CaseSensitive() const { return caseSensitive_; }
    void SetCaseSensitive(bool on);
    virtual bool Sorted() const { return false; }

    int Count() const { return static_cast<int>(items_.size()); }
    const QString& Strings(int index) const { return items_[index].line; }
    // The part before the first "="; the whole line when it has none.
    static QString NameOf(const QString& line);
    QString Names(int index) const { return NameOf(Strings(index)); }
    QString ValueFromIndex(int index) const;
    TStringListEx* Objects(int index) const { return items_[index].object.get(); }
    QStringList Lines() const;

    virtual int IndexOf(const QString& line) const;
    virtual int IndexOfName(const QString& name) const;
    // The value of the line with that name; empty when there is none.
    virtual QString Values(const QString& name) const;

    // Returns the index of the line.
    virtual int Add(const QString& line, std::unique_ptr<TStringListEx> object = nullptr);
    virtual void Put(int index, const QString& line);
    void Delete(int index);
    void Clear();
    void AddStrings(const QStringList& lines);
    // Replaces the line of that name, or adds it.
    void SetValue(const QString& name, const QString& value);
    void SetLine(const QString& line);

protected:
    struct Item {
        QString line;
        std::unique_ptr<TStringListEx> object;
    };

    int Compare(const QString& a, const QString& b) const;
    void InsertItem(int index, Item item);
    // Any change of the lines; derived lists drop what they derived from them.
    virtual void Changed() {}

    std::vector<Item> items_;

private:
    bool caseSensitive_ = false;
};

}  // namespace qpt
