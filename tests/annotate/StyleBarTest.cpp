// The style bar: its three arrangements at both scales, and what its
// controls change.
#include <gtest/gtest.h>

#include <QEnterEvent>
#include <QSignalSpy>

#include "annotate/ColorSwatch.h"
#include "annotate/FormSmallTools.h"
#include "app/session/FirstPaint.h"
#include "app/session/SessionForms.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"
#include "imaging/view/IEImageView.h"
#include "skin/RdComboBox.h"
#include "skin/RdImageButton.h"
#include "skin/RdLabel.h"
#include "skin/RdSlider.h"
#include "support/Scale.h"
#include "tests/annotate/SessionReset.h"

namespace qpt {
namespace {

class StyleBar : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        testing::ResetSessionStyle();
        SetScaleEnabled(GetParam() == 2);
        bar_.FormCreate();
        bar_.FillFontList({"DejaVu Sans", "DejaVu Serif"});
    }
    void TearDown() override {
        SetScaleEnabled(false);
        Image_Front = nullptr;
    }
    int S(int design) const { return design * GetParam(); }
    QPoint S(int x, int y) const { return QPoint(x, y) * GetParam(); }
    TRdImageButton* Cell(int number) const {
        return bar_.findChild<TRdImageButton*>(QString("Btn_Color_%1").arg(number));
    }

    TFormSmallTools bar_;
};

TEST_P(StyleBar, TheShapeArrangementShowsPensAndPaletteIn337By50) {
    bar_.ShowShapeStyle();
    EXPECT_EQ(bar_.size(), QSize(S(337), S(50)));
    EXPECT_EQ(bar_.RdBtn_SBarBg->size(), bar_.size());
    EXPECT_EQ(bar_.Btn_Pen[0]->geometry(), QRect(S(7, 11), QSize(S(30), S(30))));
    EXPECT_EQ(bar_.Btn_Pen[2]->pos(), S(65, 11));
    EXPECT_EQ(bar_.Image_div->pos(), S(111, 0));
    EXPECT_EQ(bar_.Image_show->pos(), S(123, 10));
    EXPECT_EQ(bar_.Btn_Color_Bigbg->pos(), S(121, 8));
    EXPECT_EQ(Cell(19)->geometry(), QRect(S(159, 10), QSize(S(12), S(12))));
    EXPECT_EQ(Cell(8)->pos(), S(321, 10));
    EXPECT_EQ(Cell(9)->pos(), S(159, 28));
    EXPECT_EQ(Cell(16)->pos(), S(321, 28));
    EXPECT_FALSE(bar_.Btn_Pen[0]->isHidden());
    EXPECT_TRUE(bar_.FontSize_combox->isHidden());
    EXPECT_TRUE(bar_.imgWebcamSize->isHidden());
    EXPECT_EQ(bar_.Image_show->Color(), ShapeColor);
}

TEST_P(StyleBar, TheTextArrangementShowsBothListsAndPaletteIn437By50) {
    TextColor = 0x00FF00;
    bar_.ShowTextStyle();
    EXPECT_EQ(bar_.size(), QSize(S(437), S(50)));
    EXPECT_EQ(bar_.FontSize_combox->geometry(), QRect(S(10, 7), QSize(S(60), S(30))));
    EXPECT_EQ(bar_.Font_ComboBox->geometry(), QRect(S(77, 7), QSize(S(120), S(30))));
    EXPECT_EQ(bar_.Image_div->pos(), S(209, 0));
    EXPECT_EQ(bar_.Image_show->pos(), S(223, 10));
    EXPECT_EQ(Cell(19)->pos(), S(259, 10));
    EXPECT_EQ(Cell(16)->pos(), S(421, 28));
    EXPECT_TRUE(bar_.Btn_Pen[1]->isHidden());
    EXPECT_FALSE(bar_.Font_ComboBox->isHidden());
    EXPECT_EQ(bar_.Image_show->Color(), TColor(0x00FF00));
}

TEST_P(StyleBar, TheMosaicArrangementShowsBrushesAndTheCellSizeAndNoPalette) {
    MosaicBrushSize = 40;
    bar_.ShowMosaicStyle();
    const int label = bar_.lbl_PixelSize->width();
    EXPECT_GT(label, S(30));
    EXPECT_EQ(bar_.lbl_PixelSize->pos(), S(124, 15));
    EXPECT_EQ(bar_.imgWebcamSize->geometry(),
              QRect(QPoint(S(124) + label + S(7), S(13)), QSize(S(140), S(28))));
    EXPECT_EQ(bar_.size(), QSize(S(111) + label + S(140) + S(25), S(50)));
    EXPECT_EQ(bar_.Btn_Pen[2]->ButtonState(), TRdImageButton::bsSelected);
    EXPECT_EQ(bar_.Btn_Pen[1]->ButtonState(), TRdImageButton::bsNormal);
    EXPECT_TRUE(Cell(1)->isHidden());
    EXPECT_TRUE(bar_.Image_show->isHidden());
    EXPECT_FALSE(bar_.imgWebcamSize->isHidden());
}

TEST_P(StyleBar, TheHoverFrameSitsRoundTheCellUnderTheMouse) {
    bar_.ShowShapeStyle();
    QEnterEvent enter(QPointF(3, 3), QPointF(3, 3), QPointF(3, 3));
    QCoreApplication::sendEvent(Cell(13), &enter);
    EXPECT_FALSE(bar_.Btn_Color_bg->isHidden());
    EXPECT_EQ(bar_.Btn_Color_bg->pos(), Cell(13)->pos() - S(2, 2));
    EXPECT_EQ(bar_.Btn_Color_bg->size(), QSize(S(16), S(16)));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(Cell(13), &leave);
    EXPECT_TRUE(bar_.Btn_Color_bg->isHidden());
}

INSTANTIATE_TEST_SUITE_P(Scales, StyleBar, ::testing::Values(1, 2),
                         [](const auto& info) { return info.param == 1 ? "x1" : "x2"; });

using StyleBarControls = StyleBar;

TEST_P(StyleBarControls, APaletteCellColoursShapesUntilTextWasChosenAndRereadsBothLists) {
    Cell(16)->OnClick(*Cell(16));
    EXPECT_EQ(ShapeColor, TColor(0xC8BFE7)) << "the cell's own order of channels";
    EXPECT_EQ(TextColor, TColor(255));
    EXPECT_EQ(TextFontSize, 12) << "the size list's item";
    EXPECT_EQ(TextFontName, "Tahoma") << "no Tahoma in the list: its fall-back";
    EXPECT_EQ(bar_.Image_show->Color(), TColor(0xC8BFE7));
    CurrentTool = kToolText;
    Cell(17)->OnClick(*Cell(17));
    EXPECT_EQ(TextColor, TColor(0x277FFF));
    EXPECT_EQ(ShapeColor, TColor(0xC8BFE7));
}

TEST_P(StyleBarControls, PenButtonsSelectOneAndReachTheBrushOnlyForThePixelation) {
    TIEImageView view;
    Image_Front = &view;
    EXPECT_EQ(bar_.Btn_Pen[1]->ButtonState(), TRdImageButton::bsSelected) << "from the start";
    bar_.Btn_Pen[2]->OnClick(*bar_.Btn_Pen[2]);
    EXPECT_EQ(PenWidth, 8);
    EXPECT_EQ(bar_.Btn_Pen[2]->ButtonState(), TRdImageButton::bsSelected);
    EXPECT_EQ(bar_.Btn_Pen[1]->ButtonState(), TRdImageButton::bsNormal);
    EXPECT_EQ(view.Interactions().RetouchTool().BrushWidth, 20);
    MosaicOpen = 1;
    bar_.Btn_Pen[0]->OnClick(*bar_.Btn_Pen[0]);
    EXPECT_EQ(MosaicBrushSize, 10);
    EXPECT_EQ(view.Interactions().RetouchTool().BrushWidth, 10);
    EXPECT_EQ(PenWidth, 8);
    bar_.SyncPenButtons(4);
    EXPECT_EQ(bar_.Btn_Pen[1]->ButtonState(), TRdImageButton::bsSelected);
    bar_.SyncPenButtons(3);
    EXPECT_EQ(bar_.Btn_Pen[1]->ButtonState(), TRdImageButton::bsSelected) << "no such pen";
}

TEST_P(StyleBarControls, TheSliderSetsTheCellSizeOfTheBrush) {
    TIEImageView view;
    Image_Front = &view;
    bar_.imgWebcamSize->SetValue(25);
    EXPECT_EQ(PixelSize, 25);
    EXPECT_EQ(view.Interactions().RetouchTool().PixelSize, 25);
}

TEST_P(StyleBarControls, TheFontListSelectsTahomaOnlyWhenTheSystemHasIt) {
    bar_.FillFontList({"Arial", "tahoma", "Verdana"});
    EXPECT_EQ(bar_.Font_ComboBox->currentIndex(), 1);
    bar_.FillFontList({"Arial", "Verdana"});
    EXPECT_EQ(bar_.Font_ComboBox->currentIndex(), -1);

    // The system's own families, from a bar whose list is still on its way.
    TFormSmallTools fresh;
    fresh.FormCreate();
    fresh.WaitForFontList();
    QStringList families;
    for (int i = 0; i < fresh.Font_ComboBox->count(); ++i)
        families << fresh.Font_ComboBox->itemText(i);
    EXPECT_TRUE(families.contains("DejaVu Sans")) << families.join(", ").toStdString();
    EXPECT_FALSE(families.contains("Airal")) << "the design item is replaced";
    EXPECT_EQ(families.removeDuplicates(), 0);
}

TEST_P(StyleBarControls, ATextLayerFollowsTheListsAndAShapeKeepsItsColour) {
    TIEImageView view;
    Image_Front = &view;
    auto* shape = dynamic_cast<TIEShapeLayer*>(view.Layers().LayersAdd(ielkShape));
    shape->SetBorderColor(0x123456);
    Cell(3)->OnClick(*Cell(3));
    EXPECT_EQ(shape->BorderColor, TColor(0x123456));

    auto* text = dynamic_cast<TIETextLayer*>(view.Layers().LayersAdd(ielkText));
    view.SetLayersCurrent(view.Layers().LayersCount() - 1);
    TextColor = 0x0000FF;
    bar_.FontSize_combox->setCurrentIndex(bar_.FontSize_combox->findText("20"));
    bar_.FontSize_comboxSelect();
    EXPECT_EQ(text->Font.Size, 20);
    EXPECT_EQ(text->Font.Color, TColor(0x0000FF));
    EXPECT_EQ(text->Font.Name, "Tahoma");
}

INSTANTIATE_TEST_SUITE_P(Scales, StyleBarControls, ::testing::Values(1));

// Each test runs in a process of its own, so the first paint is still to come.
TEST(StyleBarBeforeThePicture, MakesItsControlsAfterTheFirstPaintOrWhenArrangedOrShownFirst) {
    testing::ResetSessionStyle();
    AwaitFirstPaint();
    TFormSmallTools waiting;
    waiting.FormCreate();
    EXPECT_EQ(waiting.lbl_PixelSize, nullptr) << "no pictures decoded, no text measured yet";
    TFormSmallTools arranged;
    arranged.FormCreate();
    arranged.ShowMosaicStyle();
    const int label = arranged.lbl_PixelSize->width();
    EXPECT_GT(label, 30);
    EXPECT_EQ(arranged.size(), QSize(111 + label + 140 + 25, 50));
    TFormSmallTools shown;
    shown.FormCreate();
    shown.show();
    EXPECT_EQ(shown.lbl_PixelSize->size(), arranged.lbl_PixelSize->size());

    FirstPaintDone();
    QCoreApplication::processEvents();
    ASSERT_NE(waiting.lbl_PixelSize, nullptr);
    EXPECT_EQ(waiting.lbl_PixelSize->size(), arranged.lbl_PixelSize->size());
    EXPECT_EQ(waiting.lbl_PixelSize->Caption(), arranged.lbl_PixelSize->Caption());
    EXPECT_EQ(waiting.Btn_Pen[1]->ButtonState(), TRdImageButton::bsSelected);
}

}  // namespace
}  // namespace qpt
