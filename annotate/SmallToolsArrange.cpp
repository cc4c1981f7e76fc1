// The style bar's three arrangements. Every place is a design number at the
// interface's scale, taken from the right edge of the control before it.
#include "annotate/ColorSwatch.h"
#include "annotate/FormSmallTools.h"
#include "annotate/Palette.h"
#include "annotate/StyleRules.h"
#include "app/session/SessionState.h"
#include "skin/RdComboBox.h"
#include "skin/RdImageButton.h"
#include "skin/RdLabel.h"
#include "skin/RdPanel.h"
#include "skin/RdSlider.h"

namespace qpt {

namespace {

int RightOf(const QWidget* w) {
    return w->x() + w->width();
}

}  // namespace

void TFormSmallTools::ShowShapeStyle() {
    SetUp();
    for (TRdImageButton* pen : Btn_Pen)
        pen->show();
    imgWebcamSize->hide();
    lbl_PixelSize->hide();
    FontSize_combox->hide();
    Font_ComboBox->hide();
    Image_show->Fill(ShapeColor);
    ShowPalette(true);
    Image_div->move(Scaled(111), 0);
    Image_show->move(Scaled(123), Scaled(10));
    PlacePalette();
    SetBarSize(Scaled(337), Scaled(50));
}

void TFormSmallTools::ShowTextStyle() {
    WaitForFontList();
    for (TRdImageButton* pen : Btn_Pen)
        pen->hide();
    FontSize_combox->show();
    Font_ComboBox->show();
    imgWebcamSize->hide();
    lbl_PixelSize->hide();
    Image_show->Fill(TextColor);
    ShowPalette(true);
    FontSize_combox->move(Scaled(10), Scaled(7));
    Font_ComboBox->move(RightOf(FontSize_combox) + Scaled(7), Scaled(7));
    Image_div->move(RightOf(Font_ComboBox) + Scaled(12), 0);
    Image_show->move(RightOf(Image_div) + Scaled(12), Scaled(10));
    PlacePalette();
    SetBarSize(Scaled(437), Scaled(50));
}

void TFormSmallTools::ShowMosaicStyle() {
    SetUp();
    for (TRdImageButton* pen : Btn_Pen)
        pen->show();
    imgWebcamSize->show();
    lbl_PixelSize->show();
    FontSize_combox->hide();
    Font_ComboBox->hide();
    ShowPalette(false);
    const int pen = PenButtonForBrush(MosaicBrushSize);
    if (pen >= 0) SelectPen(pen);
    Image_div->move(Scaled(111), 0);
    lbl_PixelSize->move(RightOf(Image_div) + Scaled(11), Scaled(15));
    imgWebcamSize->move(RightOf(lbl_PixelSize) + Scaled(7), Scaled(13));
    // Counted from the divider's left edge, so the margin on the right is
    // what is left of the 25 after the gaps.
    SetBarSize(Image_div->x() + lbl_PixelSize->width() + imgWebcamSize->width() + Scaled(25),
               Scaled(50));
}

void TFormSmallTools::ShowPalette(bool visible) {
    SetUp();
    for (TRdImageButton* cell : PaletteCells)
        cell->setVisible(visible);
    Image_show->setVisible(visible);
    Btn_Color_Bigbg->setVisible(visible);
}

void TFormSmallTools::PlacePalette() {
    Btn_Color_Bigbg->move(Image_show->x() - Scaled(2), Image_show->y() - Scaled(2));
    int left = RightOf(Image_show) + Scaled(6);
    for (int i = 0; i < kPaletteRowLength; ++i) {
        TRdImageButton* top = PaletteCells[size_t(i)];
        top->move(left, Scaled(10));
        PaletteCells[size_t(i + kPaletteRowLength)]->move(left, Scaled(28));
        left = RightOf(top) + Scaled(6);
    }
}

void TFormSmallTools::SetBarSize(int width, int height) {
    RdBtn_SBarBg->resize(width, height);
    Panel_Tool_Small->resize(width, height);
    resize(width, height);
}

}  // namespace qpt
