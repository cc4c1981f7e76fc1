// The style bar's controls as the form is designed: pictures, fonts, sizes
// and the clicks they run. The arrangements place them.
#include <QEvent>

#include "annotate/ColorSwatch.h"
#include "annotate/FormSmallTools.h"
#include "annotate/Palette.h"
#include "skin/RdComboBox.h"
#include "skin/RdImage.h"
#include "skin/RdImageButton.h"
#include "skin/RdLabel.h"
#include "skin/RdPanel.h"
#include "skin/RdScrollBar.h"
#include "skin/RdSlider.h"
#include "skin/SkinImageText.h"

namespace qpt {

namespace {

const QStringList kFontSizes = {"8",  "9",  "10", "11", "12", "14", "16", "18",
                                "20", "22", "24", "26", "28", "36", "48", "72"};

TRdImageButton* PenButton(QWidget* parent, const QString& icon) {
    auto* button = new TRdImageButton(parent);
    button->resize(30, 30);
    button->ImageOver()->SetText(SkinImageText(QStringLiteral("wireframe_over")));
    button->ImageSelected()->SetText(SkinImageText(QStringLiteral("wireframe_selected")));
    button->DnNormalIcon()->SetText(SkinImageText(icon));
    button->SetIconAlign(TImageButtonTypes::taCenter);
    button->SetIconAlignY(TImageButtonTypes::tlCenter);
    button->SetIconFullClick(true);
    // A chosen pen can be chosen again, as the mosaic brush reuses it.
    button->SetIconLockBySelected(false);
    return button;
}

TRdComboBox* StyleCombo(QWidget* parent, int width) {
    auto* combo = new TRdComboBox(parent);
    combo->resize(width, 30);
    combo->AllSkin()->SetSkinClass(QStringLiteral("combobox"));
    combo->Background()->SetText(SkinImageText(QStringLiteral("dropdown_normal")));
    combo->BackgroundClick()->SetText(SkinImageText(QStringLiteral("dropdown_over")));
    combo->BackgroundHot()->SetText(SkinImageText(QStringLiteral("dropdown_over")));
    combo->BackgroundOption()->Rect().Set(5, 8, 30, 8,
                                          combo->BackgroundOption()->Rect().StretchMode());
    TRdScrollBar* bar = combo->VScrollBar();
    bar->SetWidth(9);
    combo->SetItemHeight(24);
    combo->Font()->SetName(QStringLiteral("Segoe UI"));
    combo->Font()->SetHeight(-14);
    combo->SetColor(NamedSkinColor(QStringLiteral("public_element.cl_dropdown_menu_bg")));
    combo->SetBorderColor(NamedSkinColor(QStringLiteral("public_element.cl_dropdown_menu_border")));
    combo->SetItemHotBgColor(
        NamedSkinColor(QStringLiteral("public_element.cl_dropdown_menu_over")));
    return combo;
}

}  // namespace

void TFormSmallTools::CreateComponents() {
    Panel_Tool_Small = new TRdPanel(this);
    Panel_Tool_Small->setGeometry(0, 0, 473, 217);
    Panel_Tool_Small->SetColor(clNone);
    RdBtn_SBarBg = new TRdImageButton(Panel_Tool_Small);
    RdBtn_SBarBg->setGeometry(0, 0, 329, 50);
    RdBtn_SBarBg->ImageNormal()->SetText(SkinImageText(QStringLiteral("bg_window")));
    RdBtn_SBarBg->ImageOption()->Rect().Set(4, 4, 4, 4,
                                            RdBtn_SBarBg->ImageOption()->Rect().StretchMode());

    auto* divider = new TRdImage(Panel_Tool_Small);
    divider->Picture()->SetText(SkinImageText(QStringLiteral("cutline_c")));
    divider->setGeometry(111, 0, 2, 50);
    Image_div = divider;
    Btn_Color_Bigbg = new TRdImageButton(Panel_Tool_Small);
    Btn_Color_Bigbg->setGeometry(215, 100, 34, 34);
    Btn_Color_Bigbg->ImageNormal()->SetText(SkinImageText(QStringLiteral("wireframe_selected")));
    Image_show = new TColorSwatch(Panel_Tool_Small);
    Image_show->setGeometry(111, 12, 30, 30);
    CreatePenButtons();
    CreatePalette();
    CreateCombos();
    CreatePixelSize();
}

void TFormSmallTools::CreatePenButtons() {
    const char* icons[] = {"wireframe_light", "wireframe_semibold", "wireframe_bold"};
    const int lefts[] = {7, 36, 65};
    for (int i = 0; i < 3; ++i) {
        Btn_Pen[size_t(i)] = PenButton(Panel_Tool_Small, QLatin1StringView(icons[i]));
        Btn_Pen[size_t(i)]->move(lefts[i], 11);
        Btn_Pen[size_t(i)]->OnClick = [this, i](TRdImageButton&) { Btn_PenClick(i); };
    }
}

void TFormSmallTools::CreatePalette() {
    Btn_Color_bg = new TRdImageButton(Panel_Tool_Small);
    Btn_Color_bg->setGeometry(310, 118, 16, 16);
    Btn_Color_bg->ImageNormal()->SetText(SkinImageText(QStringLiteral("wireframe_small")));
    Btn_Color_bg->hide();
    for (size_t i = 0; i < kPalette.size(); ++i) {
        auto* cell = new TRdImageButton(Panel_Tool_Small);
        cell->resize(12, 12);
        cell->setObjectName(QStringLiteral("Btn_Color_%1").arg(kPalette[i].Number));
        const QColor color = SwatchQColor(kPalette[i].Color);
        cell->OnPaintImage = [color](TRdImageButton& sender, QPainter& canvas) {
            canvas.fillRect(sender.rect(), color);
        };
        cell->OnClick = [this, i](TRdImageButton&) { Btn_Color_Click(int(i)); };
        cell->installEventFilter(this);
        PaletteCells[i] = cell;
    }
}

void TFormSmallTools::CreateCombos() {
    FontSize_combox = StyleCombo(Panel_Tool_Small, 60);
    FontSize_combox->move(120, 56);
    FontSize_combox->addItems(kFontSizes);
    FontSize_combox->setCurrentIndex(4);
    FontSize_combox->OnSelect = [this](TRdComboBox&) { FontSize_comboxSelect(); };
    Font_ComboBox = StyleCombo(Panel_Tool_Small, 120);
    Font_ComboBox->move(236, 56);
    Font_ComboBox->addItem(QStringLiteral("Airal"));
    Font_ComboBox->OnSelect = [this](TRdComboBox&) { Font_ComboBoxSelect(); };
}

void TFormSmallTools::CreatePixelSize() {
    lbl_PixelSize = new TRdLabel(Panel_Tool_Small);
    lbl_PixelSize->move(111, 140);
    lbl_PixelSize->Font()->SetName(QStringLiteral("Segoe UI"));
    lbl_PixelSize->Font()->SetHeight(-14);
    lbl_PixelSize->Font()->SetColor(NamedSkinColor(QStringLiteral("text_color.cl_text_b")));
    lbl_PixelSize->SetTransparent(true);
    lbl_PixelSize->SetCaption(QStringLiteral("Pixel size:"));
    lbl_PixelSize->hide();

    imgWebcamSize = new TRdSlider(Panel_Tool_Small);
    imgWebcamSize->setGeometry(189, 140, 140, 28);
    imgWebcamSize->AllSkin()->SetSkinClass(QStringLiteral("Slider"));
    imgWebcamSize->ImageHThumb()->SetText(SkinImageText(QStringLiteral("quality_bar")));
    imgWebcamSize->ImageHRuler()->SetText(SkinImageText(QStringLiteral("quality_bg")));
    imgWebcamSize->SetRulerSelectAdd(5);
    imgWebcamSize->SetRulerIndent(3);
    imgWebcamSize->SetMinValue(2);
    imgWebcamSize->SetMaxValue(30);
    imgWebcamSize->SetIncrement(1);
    imgWebcamSize->SetValue(30);
    imgWebcamSize->OnChange = [this](TRdCustomSlider&) { imgWebcamSizeChange(); };
    imgWebcamSize->hide();
}

bool TFormSmallTools::eventFilter(QObject* watched, QEvent* event) {
    const auto at = std::find(PaletteCells.begin(), PaletteCells.end(), watched);
    if (at != PaletteCells.end()) {
        if (event->type() == QEvent::Enter) Btn_Color_1MouseEnter(int(at - PaletteCells.begin()));
        if (event->type() == QEvent::Leave) Btn_Color_1MouseLeave();
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace qpt
