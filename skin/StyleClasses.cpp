#include "skin/StyleClasses.h"

#include "support/MemIniFile.h"

namespace qpt {

namespace {

TRdValueStrings* SectionAt(const TStringValueList& group, int index) {
    return static_cast<TRdValueStrings*>(group.Objects(index));
}

}  // namespace

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
    int at = groups_.IndexOfName(className);
    if (at < 0) at = groups_.Add(className, std::make_unique<TStringValueList>());
    auto* group = static_cast<TStringValueList*>(groups_.Objects(at));
    const int existing = group->IndexOfName(section);
    if (existing >= 0) {
        TRdValueStrings* values = SectionAt(*group, existing);
        for (const QString& line : lines)
            values->SetLine(line);
        return;
    }
    auto values = std::make_unique<TRdValueStrings>();
    values->AddStrings(lines);
    group->Add(section, std::move(values));
}

void TStyleClasses::ResolveParents() {
    std::lock_guard lock(lock_);
    for (int g = 0; g < groups_.Count(); ++g) {
        const auto* group = static_cast<const TStringValueList*>(groups_.Objects(g));
        for (int s = 0; s < group->Count(); ++s) {
            TRdValueStrings* section = SectionAt(*group, s);
            QString parentName;
            if (!section->FindValue(QStringLiteral("parent"), &parentName)) continue;
            const int parent = group->IndexOfName(parentName);
            // SetParent refuses a parent that would close a cycle.
            if (parent >= 0 && parent != s) section->SetParent(SectionAt(*group, parent));
        }
    }
}

int TStyleClasses::Count() const {
    std::lock_guard lock(lock_);
    return groups_.Count();
}

TStringValueList* TStyleClasses::Group(const QString& className) const {
    std::lock_guard lock(lock_);
    const int at = groups_.IndexOfName(className);
    return at < 0 ? nullptr : static_cast<TStringValueList*>(groups_.Objects(at));
}

TRdValueStrings* TStyleClasses::Section(const QString& className, const QString& section) const {
    const TStringValueList* group = Group(className);
    if (!group) return nullptr;
    std::lock_guard lock(lock_);
    const int at = group->IndexOfName(section);
    return at < 0 ? nullptr : SectionAt(*group, at);
}

}  // namespace qpt
