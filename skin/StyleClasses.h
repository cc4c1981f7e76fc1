#pragma once

#include <mutex>

#include "support/NameValueList.h"

namespace qpt {

class TMemIniFile;

// The sections of the skin ini files grouped by the value of their "class"
// key: class name -> section name -> the section's lines. A later file that
// names a section again overrides only the keys it states.
class TStyleClasses {
public:
    void Clear();
    // Every section of the ini into the group of its class.
    void MergeIni(const TMemIniFile& ini);
    void MergeSection(const QString& className, const QString& section, const QStringList& lines);
    // Links each section to the section of its group that its "parent" key
    // names; parents never cross groups.
    void ResolveParents();

    int Count() const;
    // The sections of one class, each line a section name with its lines as
    // the child list; none when no section has it.
    TNameValueList* Group(const QString& className) const;
    TNameValueList* Section(const QString& className, const QString& section) const;

private:
    mutable std::mutex lock_;
    TNameValueList groups_;
};

}  // namespace qpt
