#pragma once

#include "support/MemIniFile.h"

namespace qpt {

// The read-write ini file. It makes what is missing (folders, the file),
// writes files that are read-only for their owner and leaves them so, saves
// as UTF-16 LE with a byte-order mark, and never overwrites a file that it
// failed to read.
class TSafeIniFile : public TMemIniFile {
public:
    // Nameless: empty until loaded, and never writes by itself.
    TSafeIniFile();
    // Loads the file when it exists; otherwise creates it, with its folders,
    // holding `source` (initial content, also loaded) when that is not empty.
    explicit TSafeIniFile(const QString& fileName, const QByteArray& source = {});
    // Saves when something changed, unless the load at creation failed.
    ~TSafeIniFile() override;

    bool LoadFromFile(const QString& fileName) override;
    void WriteString(const QString& section, const QString& key, const QString& value) override;
    void DeleteKey(const QString& section, const QString& key) override;
    // Saves to the object's file; nothing without a name or after a failed load.
    void UpdateFile() override;
    // False when the file could not be written; `LastError` tells why.
    bool SaveToFile(const QString& path);

    const QString& FileName() const { return fileName_; }
    bool Modified() const { return modified_; }
    bool LoadFailed() const { return loadFailed_; }
    // Writes add a line without looking for an existing key.
    bool AppendOnly() const { return appendOnly_; }
    void SetAppendOnly(bool appendOnly) { appendOnly_ = appendOnly; }

protected:
    void SectionsChanged() override;

private:
    TNameValueList* WritableSection(const QString& section);
    void CreateMissingFile(const QByteArray& source);

    QString fileName_;
    QString cachedSection_;
    int cachedIndex_ = -1;
    bool modified_ = false;
    bool loadFailed_ = false;
    bool appendOnly_ = false;
};

}  // namespace qpt
