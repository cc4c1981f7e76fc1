#pragma once

#include "support/MemIniFile.h"

namespace qpt {

// The read-only ini file of language tables: the same dialect as
// `TSafeIniFile`, read while other programs may hold the file open. Writes
// change the memory only; nothing is ever saved.
class TExtIniFile : public TMemIniFile {
public:
    TExtIniFile() = default;
    // Loads the file when it can be read; otherwise stays empty (`LastError`).
    explicit TExtIniFile(const QString& fileName);

    const QString& FileName() const { return fileName_; }
    void UpdateFile() override {}

private:
    QString fileName_;
};

}  // namespace qpt
