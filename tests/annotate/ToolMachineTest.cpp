// The tool state machine and the style rules, without any widget.
#include <gtest/gtest.h>

#include <random>

#include "annotate/StyleRules.h"
#include "annotate/ToolMachine.h"
#include "tests/annotate/SessionReset.h"

namespace qpt {
namespace {

class ToolMachine : public ::testing::Test {
protected:
    void SetUp() override { testing::ResetSessionStyle(); }
};

TEST_F(ToolMachine, ASecondClickOnTheSameToolDisarmsItButKeepsItsId) {
    EXPECT_TRUE(ToggleTool(kToolText));
    EXPECT_EQ(ToolArmed, 1);
    EXPECT_EQ(CurrentTool, kToolText);
    EXPECT_EQ(FontOpen, 1);
    EXPECT_FALSE(ToggleTool(kToolText));
    EXPECT_EQ(ToolArmed, 0);
    EXPECT_EQ(FontOpen, 0);
    EXPECT_EQ(CurrentTool, kToolText) << "the palette still colours text";
    EXPECT_EQ(&PaletteTarget(), &TextColor);
}

TEST_F(ToolMachine, AnotherToolMovesTheSelectionAndTheFirstOpensAgainInOneClick) {
    ToggleTool(kToolRectangle);
    EXPECT_TRUE(ToggleTool(kToolOval));
    EXPECT_EQ(RectOpen, 0);
    EXPECT_EQ(EllipOpen, 1);
    EXPECT_TRUE(ToggleTool(kToolRectangle)) << "its toggle was cleared by the oval";
    EXPECT_EQ(OpenTool(), kToolRectangle);
}

TEST_F(ToolMachine, ClearedTogglesMakeTheNextClickOpenWhileTheToolStaysArmed) {
    ToggleTool(kToolArrow);
    ClearToolToggles();  // as the save-drop button and the save flow do
    EXPECT_EQ(ToolArmed, 1);
    EXPECT_TRUE(ToggleTool(kToolArrow));
    EXPECT_EQ(ArrowOpen, 1);
}

TEST_F(ToolMachine, AnySequenceOfClicksKeepsAtMostOneToggleAndArmsExactlyWithIt) {
    std::mt19937 random(12);
    const auto rows = ToolRows();
    for (int i = 0; i < 500; ++i) {
        const TToolRow& row = rows[random() % rows.size()];
        const bool opened = ToggleTool(row.Id);
        int open = 0;
        for (const TToolRow& r : rows)
            open += *r.Toggle;
        ASSERT_LE(open, 1);
        ASSERT_EQ(opened, OpenTool() == row.Id);
        ASSERT_EQ(ToolArmed, opened ? 1 : 0);
        ASSERT_EQ(CurrentTool, row.Id);
    }
}

TEST_F(ToolMachine, TheTableOfToolsReportsInteractsAndArrangesAsDesigned) {
    struct TExpected {
        ToolId id;
        const char* code;
        TIEMouseInteractLayers creates;
        TStyleArrangement arrangement;
        bool mirrors;
    };
    const TExpected expected[] = {
        {kToolRectangle, "a302", mlCreateShapeLayers, TStyleArrangement::Shape, true},
        {kToolOval, "a303", mlCreateShapeLayers, TStyleArrangement::Shape, true},
        {kToolLine, nullptr, mlClickCreateLineLayers, TStyleArrangement::Shape, true},
        {kToolArrow, nullptr, mlCreateShapeLayers, TStyleArrangement::Shape, true},
        {kToolPaintbrush, "a304", mlDrawCreatePolylineLayers, TStyleArrangement::Shape, true},
        {kToolPixelation, nullptr, 0, TStyleArrangement::Mosaic, false},
        {kToolText, "a305", mlCreateTextLayers, TStyleArrangement::Text, false},
    };
    ASSERT_EQ(ToolRows().size(), std::size(expected));
    for (const TExpected& e : expected) {
        const TToolRow& row = ToolRowOf(e.id);
        SCOPED_TRACE(int(e.id));
        EXPECT_EQ(row.Id, e.id);
        EXPECT_STREQ(row.UsageCode ? row.UsageCode : "", e.code ? e.code : "");
        EXPECT_EQ(row.Arrangement, e.arrangement);
        EXPECT_EQ(row.MirrorsPen, e.mirrors);
        if (row.Retouches()) continue;
        EXPECT_EQ(row.Interaction, mlMoveLayers | mlResizeLayers | e.creates);
        EXPECT_EQ(row.Options & loAutoTextEditing, e.id == kToolText ? loAutoTextEditing : 0u);
        EXPECT_EQ(row.Options & ~TIELayerOptions(loAutoTextEditing), kIEDefaultLayerOptions);
    }
    EXPECT_TRUE(ToolRowOf(kToolPixelation).Retouches());
}

TEST_F(ToolMachine, PenButtonsSetTheWidthOrWhileThePixelationIsOpenTheBrush) {
    EXPECT_EQ(ChoosePen(0), 0);
    EXPECT_EQ(PenWidth, 1);
    MosaicOpen = 1;
    EXPECT_EQ(ChoosePen(2), 40);
    EXPECT_EQ(MosaicBrushSize, 40);
    EXPECT_EQ(PenWidth, 1) << "the line width stays";
    EXPECT_EQ(PenButtonForWidth(8), 2);
    EXPECT_EQ(PenButtonForWidth(5), -1);
    EXPECT_EQ(PenButtonForBrush(10), 0);
    EXPECT_EQ(PenButtonForBrush(4), -1);
}

TEST_F(ToolMachine, StyleValuesFromTheListsAndTheSliderHaveTheirFallBacks) {
    EXPECT_EQ(&PaletteTarget(), &ShapeColor) << "nothing chosen yet";
    EXPECT_EQ(FontSizeFromItem("14"), 14);
    EXPECT_EQ(FontSizeFromItem(""), 10);
    EXPECT_EQ(FontSizeFromItem("big"), 10);
    EXPECT_EQ(FontNameFromItem(""), "Tahoma");
    EXPECT_EQ(FontNameFromItem("DejaVu Sans"), "DejaVu Sans");
    EXPECT_EQ(ClampPixelSize(1), 2);
    EXPECT_EQ(ClampPixelSize(31), 30);
    EXPECT_EQ(ArrowSizeClass(1), 0);
    EXPECT_EQ(ArrowSizeClass(4), 1);
    EXPECT_EQ(ArrowSizeClass(8), 2);
}

}  // namespace
}  // namespace qpt
