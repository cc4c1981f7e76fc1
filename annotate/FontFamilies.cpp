#include "annotate/FontFamilies.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <memory>

namespace qpt {

namespace {

struct TFcDelete {
    void operator()(FcPattern* p) const { FcPatternDestroy(p); }
    void operator()(FcObjectSet* o) const { FcObjectSetDestroy(o); }
    void operator()(FcFontSet* s) const { FcFontSetDestroy(s); }
};
template <typename T>
using TFcPtr = std::unique_ptr<T, TFcDelete>;

}  // namespace

QStringList SystemFontFamilies() {
    const TFcPtr<FcPattern> all(FcPatternCreate());
    const TFcPtr<FcObjectSet> family(FcObjectSetBuild(FC_FAMILY, nullptr));
    if (!all || !family) return {};
    const TFcPtr<FcFontSet> fonts(FcFontList(nullptr, all.get(), family.get()));
    if (!fonts) return {};
    QStringList families;
    for (int i = 0; i < fonts->nfont; ++i) {
        FcChar8* name = nullptr;
        if (FcPatternGetString(fonts->fonts[i], FC_FAMILY, 0, &name) == FcResultMatch && name)
            families << QString::fromUtf8(reinterpret_cast<const char*>(name));
    }
    std::sort(families.begin(), families.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    families.erase(std::unique(families.begin(), families.end(),
                               [](const QString& a, const QString& b) {
                                   return a.compare(b, Qt::CaseInsensitive) == 0;
                               }),
                   families.end());
    return families;
}

int FamilyIndex(const QStringList& families, const QString& name) {
    for (qsizetype i = 0; i < families.size(); ++i)
        if (families[i].compare(name, Qt::CaseInsensitive) == 0) return int(i);
    return -1;
}

}  // namespace qpt
