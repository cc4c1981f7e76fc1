// The toolbar's side of the ways out: the flatten, copy and save, and the
// path panel that opens from the save button's arrow.
#include "annotate/FormTools.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "output/CopyFlow.h"
#include "output/FlattenPicture.h"
#include "output/FormSavePath.h"
#include "output/FormStyle.h"
#include "output/SaveFlow.h"
#include "output/SidePlacement.h"
#include "skin/RdImageButton.h"

namespace qpt {

void TFormTools::InitPicSave() {
    if (Image_Front) FlattenPicture(*Image_Front);
}

void TFormTools::Btn_Rd_CopyClick() {
    CopyToClipboard();
}

void TFormTools::Rd_SaveClick() {
    if (!saveFlow_) saveFlow_ = std::make_unique<TSaveFlow>(*this);
    saveFlow_->Rd_SaveClick();
}

void TFormTools::SetSaveButtonState(int state) {
    Rd_Save->SetState(state);
}

void TFormTools::SetCopyButtonState(int state) {
    Btn_Rd_Copy->SetState(state);
}

void TFormTools::CloseStyleBar() {
    if (!FormShowing(FormSmallTools)) return;
    FormSmallTools->hide();
    for (TRdImageButton* button : ToolButtons())
        button->SetState(TRdImageButton::bsNormal);
    ClearToolToggles();
}

void TFormTools::btn_save_dropClick() {
    auto* panel = qobject_cast<TFormSavePath*>(FormSavePath);
    if (FolderDialogOpen == 1 || !panel) return;
    if (panel->isVisible()) {
        panel->hide();
        PlaceToolbarBack();
        return;
    }
    // The panel takes the style bar's place.
    CloseStyleBar();
    panel->SetUp();
    PlaceBesideToolbar(panel);
    panel->show();
    FocusIfPossible(panel->pnl_defSavePath);
}

}  // namespace qpt
