#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include "support/NameValueList.h"

class QIODevice;

namespace qpt {

// An ini file held whole in memory: the parsing rules, the lookups and the
// typed reads and writes shared by the read-write `TSafeIniFile` and the
// read-only `TExtIniFile`. Nothing here throws; a missing key reads as the
// caller's default.
class TMemIniFile {
public:
    explicit TMemIniFile(bool caseSensitive = false);
    virtual ~TMemIniFile();
    TMemIniFile(const TMemIniFile&) = delete;
    TMemIniFile& operator=(const TMemIniFile&) = delete;

    // Each replaces all content; a failed read leaves it empty and sets
    // `LastError`, and so does text that did not decode faithfully (EILSEQ),
    // whose content is kept for reading. The file name is not changed.
    virtual bool LoadFromFile(const QString& fileName);
    void LoadFromStream(const QByteArray& bytes);
    bool LoadFromStream(QIODevice& device);

    // Writes the content back to the object's own file, if it has one.
    virtual void UpdateFile() = 0;

    QString ReadString(const QString& section, const QString& key,
                       const QString& defaultValue) const;
    virtual void WriteString(const QString& section, const QString& key, const QString& value);
    // Decimal, or hexadecimal after "0x" or "$"; anything else reads as the default.
    int ReadInteger(const QString& section, const QString& key, int defaultValue) const;
    void WriteInteger(const QString& section, const QString& key, int value);
    // Any number but 0 is true; booleans are written as "0" and "1".
    bool ReadBool(const QString& section, const QString& key, bool defaultValue) const;
    void WriteBool(const QString& section, const QString& key, bool value);
    // "mm/dd/yyyy hh:nn:ss:zzz" whatever the user's locale; an empty or
    // malformed value reads as the default.
    QDateTime ReadDateTime(const QString& section, const QString& key,
                           const QDateTime& defaultValue) const;
    void WriteDateTime(const QString& section, const QString& key, const QDateTime& value);

    virtual void DeleteKey(const QString& section, const QString& key);
    void EraseSection(const QString& section);

    QStringList ReadSection(const QString& section) const;        // key names
    QStringList ReadSections() const;                             // section names
    QStringList ReadSectionValues(const QString& section) const;  // its lines
    bool SectionExists(const QString& section) const;
    bool ValueExists(const QString& section, const QString& key) const;

    // The whole file as lines: each section's name in brackets, its lines
    // and an empty line.
    QStringList GetStrings() const;

    // 0, or the system's error number of the last failed load or save (1
    // when the cause is unknown).
    int LastError() const { return lastError_; }
    bool CaseSensitive() const { return sections_.CaseSensitive(); }

protected:
    // Called after every change of the list of sections (loads included).
    virtual void SectionsChanged() {}

    int SectionIndex(const QString& section) const { return sections_.IndexOf(section); }
    TNameValueList* SectionAt(int index) const { return sections_.Objects(index); }
    TNameValueList* FindSection(const QString& section) const;
    // Adds a section even when one of the name exists; returns its index.
    int AddSection(const QString& section);
    // Replaces the line of `key`, or adds one; `append` adds without looking.
    static void PutValue(TNameValueList& lines, const QString& key, const QString& value,
                         bool append);
    static bool RemoveValue(TNameValueList& lines, const QString& key);
    void SetLastError(int error) { lastError_ = error; }

private:
    TNameValueList sections_;
    int lastError_ = 0;
};

}  // namespace qpt
