// A new mark takes the session's style at the moment it is begun.
#include <gtest/gtest.h>

#include "annotate/LayerStyling.h"
#include "imaging/IELayerList.h"
#include "imaging/IELineLayer.h"
#include "imaging/IEPolylineLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"
#include "tests/annotate/SessionReset.h"

namespace qpt {
namespace {

class LayerStyling : public ::testing::Test {
protected:
    void SetUp() override {
        testing::ResetSessionStyle();
        ShapeColor = 0x11AA33;
        PenWidth = 4;
    }
    template <typename T>
    T* New(TIELayerKind kind) {
        auto* layer = dynamic_cast<T*>(layers_.LayersAdd(kind));
        DressNewLayer(*layer, kind);
        return layer;
    }
    TIELayerList layers_;
};

TEST_F(LayerStyling, RectanglesAndOvalsAreOutlinesInThePensWidthWithoutAFrame) {
    for (const auto& [tool, shape] :
         {std::pair{kToolRectangle, iesRectangle}, std::pair{kToolOval, iesEllipse}}) {
        CurrentTool = tool;
        auto* layer = New<TIEShapeLayer>(ielkShape);
        EXPECT_EQ(layer->Shape, shape);
        EXPECT_EQ(layer->BorderColor, TColor(0x11AA33));
        EXPECT_EQ(layer->BorderWidth, 4);
        EXPECT_EQ(layer->FillColor, clNone);
        EXPECT_FALSE(layer->VisibleBox);
    }
}

TEST_F(LayerStyling, AnArrowIsFilledWithoutOutlineAndSizedByThePen) {
    CurrentTool = kToolArrow;
    for (const auto& [width, size] : {std::pair{1, 0}, std::pair{4, 1}, std::pair{8, 2}}) {
        PenWidth = width;
        auto* arrow = New<TIEShapeLayer>(ielkShape);
        EXPECT_EQ(arrow->Shape, iesArrow);
        EXPECT_EQ(arrow->ArrowSize, size);
        EXPECT_EQ(arrow->BorderWidth, 0);
        EXPECT_EQ(arrow->FillColor, TColor(0x11AA33));
        EXPECT_EQ(arrow->BorderColor, TColor(0x11AA33));
        EXPECT_FALSE(arrow->VisibleBox);
    }
}

TEST_F(LayerStyling, LinesAndStrokesTakeColourAndWidthAndMarksKeepTheirStyleLater) {
    auto* line = New<TIELineLayer>(ielkLine);
    EXPECT_EQ(line->LineColor, TColor(0x11AA33));
    EXPECT_EQ(line->LineWidth, 4);
    EXPECT_EQ(line->LineFillColor, clNone);
    EXPECT_FALSE(line->VisibleBox);
    auto* before = New<TIEPolylineLayer>(ielkPolyline);
    ShapeColor = 0x0000FF;
    PenWidth = 8;
    auto* after = New<TIEPolylineLayer>(ielkPolyline);
    EXPECT_EQ(before->BorderColor, TColor(0x11AA33));
    EXPECT_EQ(before->BorderWidth, 4);
    EXPECT_EQ(after->BorderColor, TColor(0x0000FF));
    EXPECT_EQ(after->BorderWidth, 8);
    EXPECT_EQ(after->FillColor, clNone);
    EXPECT_FALSE(after->VisibleBox);
}

TEST_F(LayerStyling, TextStartsAsOneBlankInTheTextStyleAndGrowsWithWhatIsTyped) {
    TextColor = 0x0000FF;
    TextFontSize = 20;
    TextFontName = "DejaVu Serif";
    auto* text = New<TIETextLayer>(ielkText);
    EXPECT_EQ(text->Text, " ");
    EXPECT_TRUE(text->AutoSize());
    EXPECT_TRUE(text->EnableFormatting);
    EXPECT_EQ(text->FillColor, clNone);
    EXPECT_EQ(text->Font.Color, TColor(0x0000FF));
    EXPECT_EQ(text->Font.Size, 20);
    EXPECT_EQ(text->Font.Name, "DejaVu Serif");
    EXPECT_EQ(text->BorderColor, clNone) << "its own default stays";
    EXPECT_TRUE(text->VisibleBox);
    const double narrow = text->Width;
    text->SetText("a much longer line of text");
    EXPECT_GT(text->Width, narrow);
}

}  // namespace
}  // namespace qpt
