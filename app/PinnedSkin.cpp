#include "app/PinnedSkin.h"

#include <QWidget>

#include "skin/RdFormSkin.h"
#include "skin/RdSkinStyle.h"
#include "skin/ShadowFrame.h"

namespace qpt {

TRdSkinStyle* CreatePinnedSkinStyle(QWidget& form, const QString& skinRccFile) {
    auto* style = new TRdSkinStyle(&form);
    style->setObjectName(QStringLiteral("SkinStyle1"));
    style->SetRuntimePath(QStringLiteral("skin"));
    style->SetPublicRccFiles({QStringLiteral("public.rcc")});
    style->SetSkinRccFile(skinRccFile);
    style->SetMainSkin(true);
    style->Loaded();
    return style;
}

TRdFormSkin* CreatePinnedFormSkin(QWidget& form) {
    auto* skin = new TRdFormSkin(&form);
    skin->setObjectName(QStringLiteral("RdFormSkinMain"));
    skin->SetFixFlashBlack(true);
    skin->PicShadow()->SetText(QStringLiteral("imgname=images/bg_shadow_a.png"));
    skin->PicShadowOption()->Rect().Set(15, 15, 15, 15, TSuperStretchMode::sdmFrame);
    skin->BorderLines()->SetColor(0x000000);  // clBlack; the lines themselves stay off
    skin->ShadowFrame()->SetAll(15);
    skin->ShadowFrame()->SetEnabled(true);
    return skin;
}

}  // namespace qpt
