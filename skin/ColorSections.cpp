#include "skin/ColorSections.h"

#include "skin/StyleClasses.h"
#include "support/MemIniFile.h"

namespace qpt {

std::vector<ColorSection> ColorSectionsOf(const TStyleClasses& styles,
                                          const TMemIniFile& colorIni) {
    std::vector<ColorSection> sections;
    if (const TNameValueList* group = styles.Group(QStringLiteral("color"))) {
        for (int i = 0; i < group->Count(); ++i)
            sections.push_back(
                {group->Get(i) + u'.', group->Objects(i)->Strings(), ColorOrder::RGB});
    }
    const QString validate = QStringLiteral("validate");
    const bool bgr = colorIni.ReadString(validate, QStringLiteral("type"), QStringLiteral("RGB"))
                         .compare(u"BGR", Qt::CaseInsensitive) == 0;
    for (const QString& section : colorIni.ReadSections()) {
        if (section.compare(validate, Qt::CaseInsensitive) == 0) continue;
        sections.push_back({section + u'.', colorIni.ReadSectionValues(section),
                            bgr ? ColorOrder::BGR : ColorOrder::RGB});
    }
    return sections;
}

}  // namespace qpt
