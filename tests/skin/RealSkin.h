#pragma once

#include <QWidget>

#include "skin/RdSkinStyle.h"
#include "skin/Resource.h"

namespace qpt::testing {

// The skin packages built into the program folder, loaded as the pinned
// form loads them, for the life of this object. Controls made as children
// of `form` take the skin, and go before it.
class RealSkin {
public:
    RealSkin() {
        TResource::UnloadCache(true);
        form.setObjectName("FormPinned");
        style_ = new TRdSkinStyle(&form);
        style_->SetMainSkin(true);
        style_->SetRuntimePath(QString(QPT_PROGRAM_DIR) + "/skin/");
        style_->SetPublicRccFiles({"public.rcc"});
        style_->SetSkinRccFile("classic.rcc");
        style_->Loaded();
    }
    ~RealSkin() {
        qDeleteAll(form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
        delete style_;
        TResource::UnloadCache(true);
    }
    RealSkin(const RealSkin&) = delete;
    RealSkin& operator=(const RealSkin&) = delete;

    QWidget form;

private:
    TRdSkinStyle* style_;
};

}  // namespace qpt::testing
