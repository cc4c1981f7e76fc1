// The toolbar's tool, undo and exit handlers and its key hook, in process
// over a real view and style bar.
#include <gtest/gtest.h>

#include <QTest>
#include <QWindow>

#include "annotate/ColorSwatch.h"
#include "annotate/FormSmallTools.h"
#include "annotate/FormTools.h"
#include "app/session/SessionForms.h"
#include "imaging/IEFileBuffer.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IEImageProc.h"
#include "imaging/IERetouchToolInteraction.h"
#include "imaging/IETextLayer.h"
#include "imaging/view/IEImageView.h"
#include "output/FormMsg.h"
#include "skin/RdComboBox.h"
#include "skin/RdImageButton.h"
#include "skin/RdSlider.h"
#include "support/ProcessExit.h"
#include "support/ProductStat.h"
#include "tests/annotate/SessionReset.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

struct ExitRequested {
    int code;
};

class ToolsActivation : public ::testing::Test {
protected:
    void SetUp() override {
        testing::ResetSessionStyle();
        IESetTempFolder(home_.root());
        SetProcessExitObserver([](int code) { throw ExitRequested{code}; });
        view_.Layers().Background().Bitmap()->Allocate(200, 100, ie24RGB);
        view_.Proc()->SetUndoLimit(100);
        Image_Front = &view_;
        FormPinned = &pinned_;
        pinned_.setGeometry(100, 100, 200, 100);
        tools_.FormCreate();
        style_.FormCreate();
        style_.FillFontList({"DejaVu Sans"});
        tools_.move(100, 202);
        tools_.show();
    }
    void TearDown() override {
        SetProcessExitObserver(nullptr);
        Image_Front = nullptr;
        FormPinned = nullptr;
    }
    // A mark as the mouse leaves it: the layer list stores its step first.
    void Draw() { view_.Layers().LayersAdd(ielkShape, QPointF(10, 10), QSizeF(30, 20)); }
    int Selected() const {
        const QList<TRdImageButton*> buttons = tools_.ToolButtons();
        for (int i = 0; i < buttons.size(); ++i)
            if (buttons[i]->ButtonState() == TRdImageButton::bsSelected) return i;
        return -1;
    }
    void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(tools_.windowHandle(), key, modifiers);
    }

    testing::ScratchHome home_;
    QWidget pinned_;
    TIEImageView view_;
    TFormTools tools_;
    TFormSmallTools style_;
    TFormMsg msg_;
};

TEST_F(ToolsActivation, AToolArmsTheViewOpensTheBarAndASecondClickPutsAllBack) {
    tools_.Btn_Rd_RectClick();
    EXPECT_EQ(view_.MouseInteractLayers(), mlMoveLayers | mlResizeLayers | mlCreateShapeLayers);
    EXPECT_EQ(view_.Cursor(), crDefault);
    EXPECT_TRUE(style_.isVisible());
    EXPECT_EQ(style_.x(), tools_.x()) << "it takes the toolbar's left edge";
    EXPECT_EQ(style_.y(), tools_.y() + tools_.height() + 2) << "on the side away from the picture";
    EXPECT_EQ(Selected(), 0);

    // Another tool moves the selection; the bar stays and is arranged anew.
    tools_.Btn_Rd_FontClick();
    EXPECT_TRUE(style_.isVisible());
    EXPECT_TRUE(style_.Font_ComboBox->isVisible());
    EXPECT_EQ(view_.LayerOptions() & loAutoTextEditing, loAutoTextEditing);
    EXPECT_EQ(Selected(), 6);

    tools_.Btn_Rd_FontClick();
    EXPECT_FALSE(style_.isVisible());
    EXPECT_EQ(ToolArmed, 0);
    EXPECT_EQ(Selected(), -1);
    EXPECT_EQ(view_.Cursor(), crSizeAll) << "the picture can be dragged again";
    EXPECT_EQ(view_.MouseInteractLayers(), mlResizeLayers);
    EXPECT_EQ(tools_.y(), 202) << "the toolbar back under the picture";
}

TEST_F(ToolsActivation, ThePenButtonsShowTheWidthForShapesAndTheBrushForThePixelation) {
    PenWidth = 8;
    MosaicBrushSize = 10;
    tools_.Btn_Rd_LineClick();
    EXPECT_EQ(view_.MouseInteractLayers() & mlClickCreateLineLayers, mlClickCreateLineLayers);
    EXPECT_EQ(style_.Btn_Pen[2]->ButtonState(), TRdImageButton::bsSelected);
    tools_.Btn_Rd_MosaicClick();
    EXPECT_EQ(style_.Btn_Pen[0]->ButtonState(), TRdImageButton::bsSelected);
    EXPECT_FALSE(style_.Btn_Color_Bigbg->isVisible()) << "no palette for the pixelation";
}

TEST_F(ToolsActivation, PixelationFlattensFirstArmsTheBrushAndEndsWithTheNextTool) {
    Draw();
    PixelSize = 14;
    MosaicBrushSize = 40;
    tools_.Btn_Rd_MosaicClick();
    EXPECT_EQ(view_.Layers().LayersCount(), 1) << "the marks are burnt in";
    EXPECT_EQ(view_.Proc()->UndoCount(), 1) << "the flatten is no step";
    const TIERetouchToolInteraction& brush = view_.Interactions().RetouchTool();
    EXPECT_EQ(view_.MouseInteractGeneral() & miRetouchTool, miRetouchTool);
    EXPECT_EQ(brush.RetouchMode(), TIERetouchToolInteraction::kPixelateMode);
    EXPECT_EQ(brush.BrushWidth, 40);
    EXPECT_EQ(brush.PixelSize, 14);
    EXPECT_EQ(style_.imgWebcamSize->Value(), 14);

    tools_.Btn_Rd_BrushClick();
    EXPECT_EQ(view_.MouseInteractGeneral() & miRetouchTool, 0u);
    EXPECT_EQ(view_.MouseInteractLayers() & mlDrawCreatePolylineLayers, mlDrawCreatePolylineLayers);
}

TEST_F(ToolsActivation, WhileTheFolderDialogIsUpToolsAndUndoChangeNothing) {
    Draw();
    FolderDialogOpen = 1;
    tools_.Btn_Rd_EllipClick();
    tools_.Btn_Rd_ReturnClick();
    EXPECT_NO_THROW(tools_.Btn_Rd_DelClick());
    EXPECT_EQ(ToolArmed, 0);
    EXPECT_FALSE(style_.isVisible());
    EXPECT_EQ(view_.Proc()->UndoCount(), 1);
}

TEST_F(ToolsActivation, UndoTakesOneStepAndTheButtonStaysUsable) {
    Draw();
    Draw();
    tools_.Btn_Rd_ReturnClick();
    EXPECT_EQ(view_.Layers().LayersCount(), 2);
    EXPECT_EQ(view_.Proc()->UndoCount(), 1);
    PressKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(view_.Layers().LayersCount(), 1);
    PressKey(Qt::Key_Z, Qt::ControlModifier);  // nothing left: nothing happens
    EXPECT_EQ(view_.Layers().LayersCount(), 1);
    EXPECT_TRUE(tools_.Btn_Rd_Return->isEnabled());
    tools_.Btn_Rd_Return->setEnabled(false);
    Draw();
    PressKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(view_.Layers().LayersCount(), 2) << "held off while the button is";
}

TEST_F(ToolsActivation, EscWithAChangeShowsTheTipOnceAndTheSecondEscEnds) {
    Draw();
    PressKey(Qt::Key_Escape);
    EXPECT_EQ(tools_.EscCount, 1);
    EXPECT_TRUE(msg_.isVisible());
    // Undone back to nothing, the count still stands: the next Esc ends.
    tools_.Btn_Rd_ReturnClick();
    try {
        tools_.AppEvent_MsgMessage(Qt::Key_Escape, Qt::NoModifier);
        FAIL() << "the session went on";
    } catch (const ExitRequested& exit) {
        EXPECT_EQ(exit.code, 0);
    }
}

TEST_F(ToolsActivation, KeysDoNothingWhileTheToolbarIsHiddenOrASaveRuns) {
    Draw();
    Draw();
    tools_.hide();
    EXPECT_NO_THROW(tools_.AppEvent_MsgMessage(Qt::Key_Escape, Qt::NoModifier));
    tools_.AppEvent_MsgMessage(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(view_.Proc()->UndoCount(), 2);
    tools_.show();
    SaveInProgress = 1;
    EXPECT_NO_THROW(tools_.AppEvent_MsgMessage(Qt::Key_Escape, Qt::NoModifier));
    EXPECT_EQ(tools_.EscCount, 0);
    tools_.AppEvent_MsgMessage(Qt::Key_Z, Qt::NoModifier);
    EXPECT_EQ(view_.Proc()->UndoCount(), 2) << "Z without Ctrl";
}

TEST_F(ToolsActivation, EscWithoutAChangeAndTheExitButtonEndAtOnceTheButtonReporting) {
    const QString record = home_.root() + "stat.txt";
    home_.setEnv("QPT_STAT_STANDIN_LOG", record.toStdString());
    ASSERT_TRUE(LoadProductStat(QStringLiteral(QPT_STAT_STANDIN)));
    EXPECT_THROW(tools_.AppEvent_MsgMessage(Qt::Key_Escape, Qt::NoModifier), ExitRequested);
    EXPECT_FALSE(msg_.isVisible());
    Draw();
    EXPECT_THROW(tools_.Btn_Rd_DelClick(), ExitRequested);
    EXPECT_EQ(testing::ReadFile(record), "DoStatistic qpt1 a313 0\n");
}

// Opening the editor on an older text brings its style back to the bar
// without writing the bar's style over the text.
TEST_F(ToolsActivation, AnEditedTextsStyleComesBackToTheBarAndTheSession) {
    auto* text = dynamic_cast<TIETextLayer*>(view_.Layers().LayersAdd(ielkText));
    TIEFont font = text->Font;
    font.Size = 13;
    font.Name = "DejaVu Sans";
    font.Color = 0x00FF00;
    text->SetFont(font);
    int selects = 0;
    style_.FontSize_combox->OnSelect = [&](TRdComboBox&) { ++selects; };
    style_.Font_ComboBox->OnSelect = [&](TRdComboBox&) { ++selects; };
    SyncTextStyleFromLayer(1);
    EXPECT_EQ(selects, 0);
    EXPECT_EQ(style_.FontSize_combox->currentIndex(), -1) << "13 is not in the list";
    EXPECT_EQ(style_.Font_ComboBox->currentText(), "DejaVu Sans");
    EXPECT_EQ(style_.Image_show->Color(), TColor(0x00FF00));
    EXPECT_EQ(TextFontSize, 13);
    EXPECT_EQ(TextColor, TColor(0x00FF00));
    EXPECT_EQ(TextFontName, "DejaVu Sans");
    font.Size = 20;
    text->SetFont(font);
    SyncTextStyleFromLayer(1);
    EXPECT_EQ(style_.FontSize_combox->currentText(), "20");
    SyncTextStyleFromLayer(0);  // the picture: nothing changes
    EXPECT_EQ(TextFontSize, 20);
}

}  // namespace
}  // namespace qpt
