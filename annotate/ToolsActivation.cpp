// The seven tool buttons: each arms its tool on the picture and opens the
// style bar under the toolbar; a second click on the same button disarms it.
#include "annotate/FormSmallTools.h"
#include "annotate/FormTools.h"
#include "annotate/ToolMachine.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "imaging/IERetouchToolInteraction.h"
#include "imaging/view/IEImageView.h"
#include "output/SidePlacement.h"
#include "skin/RdImageButton.h"
#include "skin/RdSlider.h"
#include "support/ProductStat.h"

namespace qpt {

namespace {

void Arrange(TFormSmallTools& bar, TStyleArrangement arrangement) {
    switch (arrangement) {
        case TStyleArrangement::Shape:
            bar.ShowShapeStyle();
            break;
        case TStyleArrangement::Text:
            bar.ShowTextStyle();
            break;
        case TStyleArrangement::Mosaic:
            bar.ShowMosaicStyle();
            break;
    }
}

}  // namespace

void TFormTools::Btn_Rd_RectClick() {
    ActivateTool(kToolRectangle);
}
void TFormTools::Btn_Rd_EllipClick() {
    ActivateTool(kToolOval);
}
void TFormTools::Btn_Rd_LineClick() {
    ActivateTool(kToolLine);
}
void TFormTools::Btn_Rd_ArrowClick() {
    ActivateTool(kToolArrow);
}
void TFormTools::Btn_Rd_BrushClick() {
    ActivateTool(kToolPaintbrush);
}
void TFormTools::Btn_Rd_MosaicClick() {
    ActivateTool(kToolPixelation);
}
void TFormTools::Btn_Rd_FontClick() {
    ActivateTool(kToolText);
}

// The retouch brush changes the background only, so what was drawn so far
// is burnt into it first. Arming it ends any layer interaction.
void TFormTools::ArmPixelation() {
    InitPicSave();
    if (Image_Front) {
        Image_Front->SetMouseInteractGeneral(miRetouchTool);
        TIERetouchToolInteraction& brush = Image_Front->Interactions().RetouchTool();
        brush.SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
        brush.SetBrushSize(MosaicBrushSize);
        brush.PixelSize = PixelSize;
        Image_Front->show();
    }
    if (TFormSmallTools* bar = SessionStyleBar()) bar->imgWebcamSize->SetValue(PixelSize);
}

void TFormTools::ArmLayerTool(const TToolRow& tool) {
    if (!Image_Front) return;
    Image_Front->SetMouseInteractLayers(tool.Interaction);
    Image_Front->SetLayerOptions(tool.Options);
}

void TFormTools::ActivateTool(int32_t toolId) {
    if (FolderDialogHoldsClicks()) return;
    const TToolRow& tool = ToolRowOf(ToolId(toolId));
    if (tool.UsageCode) SendUsageCode(QLatin1StringView(tool.UsageCode));
    if (tool.Retouches())
        ArmPixelation();
    else
        ArmLayerTool(tool);
    const bool opens = ToggleTool(tool.Id);
    TRdImageButton* own = ToolButtons().at(int(&tool - ToolRows().data()));
    for (TRdImageButton* button : ToolButtons())
        button->SetState(button == own ? TRdImageButton::bsSelected : TRdImageButton::bsNormal);
    Btn_Rd_Share->SetState(TRdImageButton::bsNormal);
    Rd_Save->SetState(TRdImageButton::bsNormal);
    if (FormShowing(FormSavePath)) FormSavePath->hide();
    if (TFormSmallTools* bar = SessionStyleBar()) {
        Arrange(*bar, tool.Arrangement);
        if (tool.MirrorsPen) bar->SyncPenButtons(PenWidth);
        // The bar takes the toolbar's left edge as it opens, and keeps it.
        bar->move(x(), bar->y());
        bar->setVisible(opens);
    }
    PlaceStyleBar();
    if (opens) {
        if (Image_Front) Image_Front->SetCursor(crDefault);
        return;
    }
    own->SetState(TRdImageButton::bsNormal);
    if (!Image_Front) return;
    Image_Front->SetCursor(crSizeAll);
    Image_Front->SetMouseInteractLayers(kIdleInteraction);
}

void TFormTools::PlaceStyleBar() {
    if (!FormSmallTools || !FormPinned) return;
    if (FormSmallTools->isVisible())
        PlaceBesideToolbar(FormSmallTools);
    else
        PlaceToolbarBack();
}

}  // namespace qpt
