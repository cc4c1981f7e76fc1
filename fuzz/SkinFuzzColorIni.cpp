// Any bytes as a skin ini file, read both as "main.ini" (style classes with
// parents, colour sections of class "color") and as "color_setting.ini", then
// through the colour table: every value form, links, cycles, lookups.
#include <cstddef>
#include <cstdint>

#include "skin/ColorSections.h"
#include "skin/ColorTable.h"
#include "skin/StyleClasses.h"
#include "support/SafeIniFile.h"

using namespace qpt;

namespace {

void FlattenEverySection(const TSafeIniFile& ini, const TStyleClasses& styles) {
    for (const QString& section : ini.ReadSections()) {
        const QString cls = ini.ReadString(section, QStringLiteral("class"), QString());
        if (const TNameValueList* values = styles.Section(cls, section)) {
            values->Flattened();
            values->Values(QStringLiteral("parent"));
        }
    }
}

void QueryEveryName(TColorTable& table) {
    for (const QString& name : table.GetColorValues()) {
        quint32 id = 0;
        table.IdentToColor(name, id);
        table.ColorToRGB(id);
        QString back;
        table.ColorToIdent(id, back);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    TSafeIniFile ini;
    ini.LoadFromStream(bytes);
    TStyleClasses styles;
    styles.MergeIni(ini);
    styles.MergeIni(ini);  // a second file naming the same sections
    styles.ResolveParents();
    FlattenEverySection(ini, styles);

    TColorTable table;
    table.Build(ColorSectionsOf(styles, ini));
    QueryEveryName(table);
    table.MergeVclColor();
    table.Build(ColorSectionsOf(styles, ini));
    return 0;
}
