#include "skin/ColorSections.h"
#include "skin/ColorTable.h"
#include "skin/RdLog.h"
#include "skin/ResourceState.h"

namespace qpt {

namespace {

// Merges every ".ini" file of a package folder into the style classes, in
// the order listed; "main.ini" is left to the caller, which merges it first.
void MergeIniFiles(const QString& folder) {
    TResourceState& s = ResourceState();
    QString folders;
    QString files;
    TResource::EnumResource(folder, folders, files);
    bool mainSkipped = false;
    for (const QString& file : files.split(u'|', Qt::SkipEmptyParts)) {
        if (!mainSkipped && file.compare(u"main.ini", Qt::CaseInsensitive) == 0) {
            mainSkipped = true;
            continue;
        }
        if (!file.endsWith(QLatin1String(".ini"), Qt::CaseInsensitive)) continue;
        s.mainIni.LoadFromStream(TResource::ReadResource(folder + file));
        s.styleClasses.MergeIni(s.mainIni);
    }
}

// Lowest to highest: public main.ini, the other public ini files, the skin's
// main.ini, the skin's other ini files.
void BuildStyleClasses() {
    TResourceState& s = ResourceState();
    s.mainIni.LoadFromStream(TResource::ReadResource(QStringLiteral(":/public/main.ini")));
    s.styleClasses.Clear();
    s.styleClasses.MergeIni(s.mainIni);
    MergeIniFiles(QStringLiteral(":/public/"));
    s.mainIni.LoadFromStream(TResource::ReadResource(QStringLiteral("main.ini")));
    s.styleClasses.MergeIni(s.mainIni);
    if (!s.skinRccName.isEmpty()) MergeIniFiles(QStringLiteral(":/") + s.skinRccName + u'/');
    s.styleClasses.ResolveParents();
}

// Descriptions are kept flattened: a section of class image may inherit keys
// from its parent section.
void RefillRdgValues() {
    TResourceState& s = ResourceState();
    std::lock_guard lock(s.rdgLock);
    s.rdgValues.Clear();
    const TNameValueList* images = s.styleClasses.Group(QStringLiteral("image"));
    if (!images) return;
    for (int i = 0; i < images->Count(); ++i) {
        auto copy = std::make_unique<TNameValueList>();
        copy->AddStrings(images->Objects(i)->Flattened());
        s.rdgValues.Add(u'[' + images->Get(i) + u']', std::move(copy));
    }
}

}  // namespace

void TResource::ReloadCache() {
    TResourceState& s = ResourceState();
    if (RdLogEnabled())
        RdLog(QStringLiteral("Rcc.ReloadCache, Style:%1, Rdg:%2, public:%3, rcc:%4, path:%5")
                  .arg(s.styleClasses.Count())
                  .arg(RdgCount())
                  .arg(s.publicRccPath, s.skinRccPath, s.skinBasePath));
    s.mainIni.LoadFromStream(QByteArray());
    s.colorIni.LoadFromStream(QByteArray());
    SkinColors().MergeVclColor();
    s.colorIni.LoadFromStream(ReadResource(QStringLiteral("color_setting.ini")));
    BuildStyleClasses();
    SkinColors().Build(ColorSectionsOf(s.styleClasses, s.colorIni));
    RefillRdgValues();
    if (s.paletteChanged) s.paletteChanged();
    ReloadGraphics();
}

QStringList TResource::RdgValues(const QString& key) {
    TResourceState& s = ResourceState();
    std::lock_guard lock(s.rdgLock);
    const int at = s.rdgValues.IndexOf(key);
    return at < 0 ? QStringList() : s.rdgValues.Objects(at)->Strings();
}

int TResource::RdgCount() {
    TResourceState& s = ResourceState();
    std::lock_guard lock(s.rdgLock);
    return s.rdgValues.Count();
}

}  // namespace qpt
