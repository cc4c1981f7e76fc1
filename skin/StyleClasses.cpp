#include "skin/StyleClasses.h"

#include "support/MemIniFile.h"

namespace qpt {

void TStyleClasses::Clear() {
    std::lock_guard lock(lock_);
    groups_.Clear();
}

void TStyleClasses::MergeIni(const TMemIniFile& ini) {
    for (const QString& section : ini.ReadSections())
        MergeSection(ini.ReadString(section, QStringLiteral("class"), QString()), section,
                     ini.ReadSectionValues(section));
}

void TStyleClasses::MergeSection(const QString& className, const QString& section,
                                 const QStringList& lines) {
    std::lock_guard lock(lock_);
    int at = groups_.IndexOf(className);
    if (at < 0) at = groups_.Add(className, std::make_unique<TNameValueList>());
    TNameValueList* group = groups_.Objects(at);
    const int existing = group->IndexOf(section);
    if (existing >= 0) {
        TNameValueList* values = group->Objects(existing);
        for (const QString& line : lines)
            values->SetLine(line);
        return;
    }
    auto values = std::make_unique<TNameValueList>();
    values->AddStrings(lines);
    group->Add(section, std::move(values));
}

void TStyleClasses::ResolveParents() {
    std::lock_guard lock(lock_);
    for (int g = 0; g < groups_.Count(); ++g) {
        const TNameValueList* group = groups_.Objects(g);
        for (int s = 0; s < group->Count(); ++s) {
            TNameValueList* section = group->Objects(s);
            QString parentName;
            if (!section->FindValue(QStringLiteral("parent"), &parentName)) continue;
            const int parent = group->IndexOf(parentName);
            // SetParent refuses a parent that would close a cycle.
            if (parent >= 0 && parent != s) section->SetParent(group->Objects(parent));
        }
    }
}

int TStyleClasses::Count() const {
    std::lock_guard lock(lock_);
    return groups_.Count();
}

TNameValueList* TStyleClasses::Group(const QString& className) const {
    std::lock_guard lock(lock_);
    const int at = groups_.IndexOf(className);
    return at < 0 ? nullptr : groups_.Objects(at);
}

TNameValueList* TStyleClasses::Section(const QString& className, const QString& section) const {
    const TNameValueList* group = Group(className);
    if (!group) return nullptr;
    std::lock_guard lock(lock_);
    const int at = group->IndexOf(section);
    return at < 0 ? nullptr : group->Objects(at);
}

}  // namespace qpt
