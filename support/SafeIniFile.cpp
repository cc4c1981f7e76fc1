#include "support/SafeIniFile.h"

#include <QFileInfo>
#include <cerrno>

#include "support/IniFileIo.h"
#include "support/IniText.h"

namespace qpt {

TSafeIniFile::TSafeIniFile() = default;

TSafeIniFile::TSafeIniFile(const QString& fileName, const QByteArray& source)
    : fileName_(fileName) {
    if (fileName_.isEmpty()) return;
    if (QFileInfo::exists(fileName_))
        LoadFromFile(fileName_);
    else
        CreateMissingFile(source);
}

TSafeIniFile::~TSafeIniFile() {
    if (modified_ && !loadFailed_) UpdateFile();
}

void TSafeIniFile::CreateMissingFile(const QByteArray& source) {
    if (!MakeIniFolder(QFileInfo(fileName_).path())) return;
    SetLastError(WriteIniBytes(fileName_, source));
    if (LastError() == 0 && !source.isEmpty()) LoadFromStream(source);
    // The file now holds the source as given; nothing to save yet.
    modified_ = false;
}

bool TSafeIniFile::LoadFromFile(const QString& fileName) {
    loadFailed_ = !TMemIniFile::LoadFromFile(fileName);
    return !loadFailed_;
}

void TSafeIniFile::WriteString(const QString& section, const QString& key, const QString& value) {
    PutValue(*WritableSection(section), key, value, appendOnly_);
    modified_ = true;
}

void TSafeIniFile::DeleteKey(const QString& section, const QString& key) {
    if (TNameValueList* lines = FindSection(section); lines && RemoveValue(*lines, key))
        modified_ = true;
}

// Writes tend to come in runs on one section, so the last one is remembered.
TNameValueList* TSafeIniFile::WritableSection(const QString& section) {
    if (cachedIndex_ < 0 || section != cachedSection_) {
        int index = SectionIndex(section);
        if (index < 0) index = AddSection(section);
        cachedSection_ = section;
        cachedIndex_ = index;
    }
    return SectionAt(cachedIndex_);
}

void TSafeIniFile::UpdateFile() {
    if (!fileName_.isEmpty() && !loadFailed_) SaveToFile(fileName_);
}

bool TSafeIniFile::SaveToFile(const QString& path) {
    SetLastError(0);
    errno = 0;
    if (!MakeIniFolder(QFileInfo(path).path())) {
        SetLastError(errno != 0 ? errno : 1);
        return false;
    }
    SetLastError(WriteIniBytes(path, EncodeIniText(GetStrings())));
    if (LastError() == 0 && path == fileName_) modified_ = false;
    return LastError() == 0;
}

void TSafeIniFile::SectionsChanged() {
    cachedIndex_ = -1;
    cachedSection_.clear();
    modified_ = true;
}

}  // namespace qpt
