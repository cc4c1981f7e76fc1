#include "tools/SkinGallery/GallerySkin.h"

#include <QDir>
#include <QFileInfo>

#include "skin/RdSkinStyle.h"
#include "skin/Resource.h"

namespace qpt {

std::unique_ptr<TRdSkinStyle> LoadGallerySkin(const QString& folder, const QString& skin,
                                              QString& error) {
    const QDir dir(folder);
    for (const QString& name : {QStringLiteral("public"), skin}) {
        if (!QFileInfo(dir.filePath(name + ".rcc")).isFile()) {
            error = QStringLiteral("no package %1.rcc in %2").arg(name, dir.absolutePath());
            return nullptr;
        }
    }
    // The gallery must show the skin it was asked for, never a fallback.
    auto style = std::make_unique<TRdSkinStyle>();
    style->SetMainSkin(true);
    style->SetRuntimePath(dir.absolutePath());
    style->SetPublicRccFiles({QStringLiteral("public.rcc")});
    style->SetSkinRccFile(skin + ".rcc");
    style->Loaded();
    if (QFileInfo(TResource::SkinRccPath()).baseName() != skin) {
        error = QStringLiteral("the skin package %1.rcc could not be read").arg(skin);
        return nullptr;
    }
    return style;
}

}  // namespace qpt
