// What the style bar's controls change: the session's style, and a text
// layer that is being written follows at once.
#include "annotate/ColorSwatch.h"
#include "annotate/FormSmallTools.h"
#include "annotate/Palette.h"
#include "annotate/StyleRules.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "imaging/IETextLayer.h"
#include "imaging/view/IEImageView.h"
#include "skin/RdComboBox.h"
#include "skin/RdImageButton.h"
#include "skin/RdSlider.h"

namespace qpt {

void TFormSmallTools::Btn_Color_Click(int cell) {
    const TColor color = kPalette[size_t(cell)].Color;
    PaletteTarget() = color;
    // Both lists are read again, so that a text layer takes the colour too.
    FontSize_comboxSelect();
    Font_ComboBoxSelect();
    Image_show->Fill(color);
}

void TFormSmallTools::Btn_Color_1MouseEnter(int cell) {
    TRdImageButton* hovered = PaletteCells[size_t(cell)];
    hovered->raise();
    Btn_Color_bg->move(hovered->x() - Scaled(2), hovered->y() - Scaled(2));
    Btn_Color_bg->show();
}

void TFormSmallTools::Btn_Color_1MouseLeave() {
    Btn_Color_bg->hide();
}

void TFormSmallTools::Btn_PenClick(int index) {
    const int32_t brush = ChoosePen(index);
    if (brush && Image_Front) Image_Front->Interactions().RetouchTool().SetBrushSize(brush);
    SelectPen(index);
}

void TFormSmallTools::FontSize_comboxSelect() {
    TextFontSize = FontSizeFromItem(FontSize_combox->currentText());
    ApplyTextStyle();
}

void TFormSmallTools::Font_ComboBoxSelect() {
    WaitForFontList();
    TextFontName = FontNameFromItem(Font_ComboBox->currentText());
    ApplyTextStyle();
}

void TFormSmallTools::imgWebcamSizeChange() {
    PixelSize = ClampPixelSize(imgWebcamSize->Value());
    if (Image_Front) Image_Front->Interactions().RetouchTool().PixelSize = PixelSize;
}

void ApplyTextStyle() {
    if (!Image_Front) return;
    auto* text =
        dynamic_cast<TIETextLayer*>(Image_Front->Layers().GetLayer(Image_Front->LayersCurrent()));
    if (!text) return;
    TIEFont font = text->Font;
    font.Color = TextColor;
    font.Size = TextFontSize;
    font.Name = TextFontName;
    text->SetFont(font);
    Image_Front->LayersUpdateTextEditor();
    Image_Front->Update();
}

}  // namespace qpt
