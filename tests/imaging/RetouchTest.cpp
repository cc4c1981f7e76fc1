#include <gtest/gtest.h>

#include <cstring>

#include "imaging/IEImageCompose.h"
#include "imaging/IEPixelize.h"
#include "imaging/IERetouchToolInteraction.h"
#include "imaging/IEViewMapping.h"
#include "tests/imaging/InteractionTestView.h"
#include "tests/imaging/LayerTestSupport.h"

namespace qpt {
namespace {

using testing::PixelAt;

// A picture where each pixel differs from its neighbours, so that any
// averaging shows.
void FillPattern(TIEBitmap& b) {
    for (int y = 0; y < b.Height(); ++y)
        for (int x = 0; x < b.Width(); ++x) {
            uint8_t* p = b.Scanline(y) + 3 * x;
            p[0] = uint8_t(x * 7 + y * 3);
            p[1] = uint8_t(x * 13);
            p[2] = uint8_t(y * 11 + x);
        }
}

class RetouchTest : public ::testing::Test {
protected:
    void SetUp() override {
        FillPattern(view_.Picture());
        original_.Assign(view_.Picture());
        tool_.SetEnabled(true);
        tool_.SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
        tool_.Feather = 0;
    }
    bool Unchanged(int x, int y) {
        return PixelAt(view_.Picture(), x, y) == PixelAt(original_, x, y);
    }
    bool PictureUnchanged() {
        for (int y = 0; y < original_.Height(); ++y)
            for (int x = 0; x < original_.Width(); ++x)
                if (!Unchanged(x, y)) return false;
        return true;
    }

    testing::TInteractionTestView view_{200, 120};
    TIEBitmap original_;
    TIERetouchToolInteraction tool_{view_};
};

TEST_F(RetouchTest, AClickPixelatesADiscAtReleaseWithOneUndoStep) {
    tool_.SetBrushSize(40);
    ASSERT_TRUE(tool_.MouseDown(mbLeft, 0, 50, 50));
    EXPECT_EQ(view_.UndoStore().UndoCount(), 1);
    EXPECT_EQ(view_.UndoStore().UndoInfo(0)->Source, ieuImage);
    EXPECT_TRUE(PictureUnchanged());  // only the preview shows the stroke
    EXPECT_EQ(tool_.Stroke().Rect(), QRect(30, 30, 40, 40));

    tool_.MouseUp(mbLeft, 0, 50, 50);
    EXPECT_FALSE(tool_.Started());
    EXPECT_TRUE(tool_.Stroke().Empty());
    // Blocks of 10 counted from the stroke's corner at (30, 30).
    EXPECT_EQ(PixelAt(view_.Picture(), 45, 45), PixelAt(view_.Picture(), 49, 49));
    EXPECT_NE(PixelAt(view_.Picture(), 49, 49), PixelAt(view_.Picture(), 50, 50));
    EXPECT_FALSE(Unchanged(50, 50));
    // Box corners lie outside the disc; outside the box nothing moves.
    EXPECT_TRUE(Unchanged(31, 31));
    EXPECT_TRUE(Unchanged(68, 68));
    EXPECT_TRUE(Unchanged(29, 50));
    EXPECT_TRUE(Unchanged(71, 50));
    EXPECT_EQ(view_.events, (std::vector{ieiRetouchStart, ieiRetouchEnd}));

    view_.UndoStore().Undo(true);
    EXPECT_TRUE(PictureUnchanged());
}

TEST_F(RetouchTest, BlockLargerThanTheStrokeGivesItOneColour) {
    tool_.SetBrushSize(10);
    tool_.PixelSize = 30;
    tool_.BrushShape = iecsRectangle;
    tool_.MouseDown(mbLeft, 0, 100, 60);
    tool_.MouseMove(ssLeft, 102, 61);
    tool_.MouseUp(mbLeft, 0, 102, 61);
    // Stamps at (100, 60), (101, 61), (102, 61): the first box and the
    // last corner are painted, all in one block from the stroke's corner.
    const TColor c = PixelAt(view_.Picture(), 95, 55);
    EXPECT_NE(c, PixelAt(original_, 95, 55));
    for (int y = 55; y < 65; ++y)
        for (int x = 95; x < 105; ++x)
            ASSERT_EQ(PixelAt(view_.Picture(), x, y), c) << x << "," << y;
    EXPECT_EQ(PixelAt(view_.Picture(), 106, 65), c);
    EXPECT_TRUE(Unchanged(95, 65));  // in the box, under no stamp
    EXPECT_TRUE(Unchanged(94, 60));
    EXPECT_TRUE(Unchanged(107, 60));
}

TEST_F(RetouchTest, StrokeGrowsOnEverySideButStopsAtThePictureEdge) {
    tool_.SetBrushSize(20);
    tool_.MouseDown(mbLeft, 0, 100, 60);
    ASSERT_EQ(tool_.Stroke().Rect(), QRect(90, 50, 20, 20));
    tool_.MouseMove(ssLeft, 30, 40);  // left and up
    EXPECT_EQ(tool_.Stroke().Rect(), QRect(20, 30, 90, 40));
    tool_.MouseMove(ssLeft, -50, 500);  // far past the left and bottom edges
    tool_.MouseMove(ssLeft, 500, -50);  // and past the right and top ones
    EXPECT_EQ(tool_.Stroke().Rect(), QRect(0, 0, 200, 120));

    // The buffer holds the original pixels and the footprint drawn so far.
    const TIEBitmap& stroke = tool_.Stroke().Bitmap();
    EXPECT_EQ(PixelAt(stroke, 150, 5), PixelAt(original_, 150, 5));
    EXPECT_EQ(stroke.AlphaChannelIfAny()->Scanline(60)[100], 255);  // first stamp
    EXPECT_EQ(stroke.AlphaChannelIfAny()->Scanline(45)[50], 255);   // on the first line
    EXPECT_EQ(stroke.AlphaChannelIfAny()->Scanline(110)[190], 0);   // never painted
    EXPECT_TRUE(PictureUnchanged());
    tool_.MouseUp(mbLeft, 0, 0, 0);
    EXPECT_TRUE(Unchanged(190, 110));
}

TEST_F(RetouchTest, AFastMoveLeavesAContinuousBand) {
    tool_.SetBrushSize(2);
    tool_.MouseDown(mbLeft, 0, 10, 10);
    tool_.MouseMove(ssLeft, 150, 80);
    const TIEBitmap& stroke = tool_.Stroke().Bitmap();
    const QRect r = tool_.Stroke().Rect();
    for (int x = 10; x <= 150; ++x) {
        const int y = 10 + (x - 10) / 2;  // the line runs 2 across for 1 down
        const uint8_t* a0 = stroke.AlphaChannelIfAny()->Scanline(y - r.y());
        const uint8_t* a1 = stroke.AlphaChannelIfAny()->Scanline(y + 1 - r.y());
        ASSERT_TRUE(a0[x - r.x()] || a1[x - r.x()] || a0[x - 1 - r.x()]) << x;
    }
}

TEST_F(RetouchTest, CancelKeepsThePictureAndTheUndoStep) {
    tool_.SetBrushSize(20);
    tool_.MouseDown(mbLeft, 0, 60, 60);
    tool_.MouseMove(ssLeft, 90, 70);
    tool_.Cancel();
    EXPECT_FALSE(tool_.Started());
    EXPECT_TRUE(tool_.Stroke().Empty());
    tool_.MouseUp(mbLeft, 0, 90, 70);  // a release after Esc merges nothing
    EXPECT_TRUE(PictureUnchanged());
    EXPECT_EQ(view_.UndoStore().UndoCount(), 1);

    // Switching the mode also ends a stroke without merging it.
    tool_.MouseDown(mbLeft, 0, 60, 60);
    tool_.SetRetouchMode(3);
    tool_.MouseUp(mbLeft, 0, 60, 60);
    EXPECT_TRUE(PictureUnchanged());
    EXPECT_FALSE(tool_.MouseDown(mbLeft, 0, 60, 60));  // other modes are not ours
}

TEST_F(RetouchTest, PreviewComposesOnTheBackBufferOnly) {
    tool_.SetBrushSize(40);
    tool_.Feather = 2;
    TIEViewMapping mapping;
    mapping.SetLayout(200, 120, 200, 120);
    TIEBitmap back;
    back.Assign(view_.Picture());
    tool_.MouseDown(mbLeft, 0, 100, 60);
    tool_.Paint(back, mapping);
    EXPECT_NE(PixelAt(back, 100, 60), PixelAt(original_, 100, 60));
    EXPECT_EQ(PixelAt(back, 100, 95), PixelAt(original_, 100, 95));
    EXPECT_TRUE(PictureUnchanged());

    // At zoom 200 the preview lands at the doubled place.
    ASSERT_TRUE(mapping.SetZoom(200));
    mapping.SetLayout(200, 120, 400, 240);
    TIEBitmap big(400, 240, ie24RGB);
    big.Fill(0);
    tool_.Paint(big, mapping);
    EXPECT_NE(PixelAt(big, 200, 120), 0u);
    EXPECT_EQ(PixelAt(big, 150, 120), 0u);
}

TEST_F(RetouchTest, BrushSizeCarriesWidthAndHeightAndShiftSnapsToTheStep) {
    tool_.SetBrushSize(300020);
    EXPECT_EQ(tool_.BrushWidth, 30);
    EXPECT_EQ(tool_.BrushHeight, 20);
    tool_.SetBrushSize(0);
    EXPECT_EQ(tool_.BrushWidth, 1);

    tool_.SetBrushSize(10);
    tool_.MouseDown(mbLeft, 0, 40, 40);
    tool_.MouseUp(mbLeft, 0, 40, 40);
    tool_.MouseDown(mbLeft, ssShift, 64, 43);  // snapped to the 10-pixel step from 40, 40
    EXPECT_EQ(QPoint(tool_.LastX, tool_.LastY), QPoint(60, 40));
    tool_.MouseUp(mbLeft, 0, 60, 40);
}

// Records each repaint the tool asks for, so that a test can redraw only
// those parts, as the window does.
class TRepaintLog : public testing::TInteractionTestView {
public:
    using TInteractionTestView::TInteractionTestView;
    void RepaintBitmapRect(const QRect& rect) override { asked.push_back(rect); }
    std::vector<QRect> asked;
};

bool SamePixels(const TIEBitmap& a, const TIEBitmap& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height()) return false;
    for (int y = 0; y < a.Height(); ++y)
        if (std::memcmp(a.Scanline(y), b.Scanline(y), size_t(a.Width()) * 3) != 0) return false;
    return true;
}

// The stroke rendered in one piece: its whole box pixelated from its corner
// and its whole alpha plane feathered.
TIEBitmap WholeRender(const TIERetouchStroke& stroke, int cell, int feather) {
    TIEBitmap b;
    b.Assign(stroke.Bitmap());
    Pixelize(b, nullptr, cell, 0, 0, b.Width() - 1, b.Height() - 1);
    IEFeatherAlpha(*b.AlphaChannel(), feather);
    return b;
}

class RetouchPiecesTest : public ::testing::Test {
protected:
    void SetUp() override {
        FillPattern(view_.Picture());
        original_.Assign(view_.Picture());
        screen_.Assign(original_);
        mapping_.SetLayout(200, 120, 200, 120);
        tool_.SetEnabled(true);
        tool_.SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
        tool_.SetBrushSize(16);
        tool_.PixelSize = 7;  // no step below is a multiple of it
        tool_.Feather = 3;
    }
    // Puts the picture back where the tool asked and paints its preview
    // there only.
    void RedrawAsked() {
        for (const QRect& asked : view_.asked) {
            const QRect r = asked & QRect(0, 0, 200, 120);
            for (int y = r.top(); y <= r.bottom(); ++y)
                std::memcpy(screen_.Scanline(y) + 3 * r.left(),
                            original_.Scanline(y) + 3 * r.left(), size_t(r.width()) * 3);
            tool_.PaintArea(screen_, mapping_, r);
        }
        view_.asked.clear();
    }
    // The picture with the stroke, as rendered in one piece, composed over it.
    TIEBitmap WholePreview() {
        const TIERetouchStroke& stroke = tool_.Stroke();
        const TIEBitmap whole = WholeRender(stroke, tool_.PixelSize, tool_.Feather);
        TIEBitmap out;
        out.Assign(original_);
        const int w = whole.Width(), h = whole.Height();
        IEComposeImage(whole, out, stroke.X(), stroke.Y(), IESampleTable(0, w, w, w),
                       IESampleTable(0, h, h, h), 255, false);
        return out;
    }

    TRepaintLog view_{200, 120};
    TIEBitmap original_, screen_;
    TIEViewMapping mapping_;
    TIERetouchToolInteraction tool_{view_};
};

TEST_F(RetouchPiecesTest, RepaintingOnlyWhatEachMoveAsksShowsTheWholeStrokeRenderedAtOnce) {
    // Right and down keep the stroke's corner and grow the cells cut at its
    // far edges; left and up move the corner and with it every cell; the
    // last moves run past the picture's edges.
    const QPoint path[] = {{60, 50},  {75, 53}, {90, 61},   {97, 80},   {80, 84},  {50, 40},
                           {120, 45}, {66, 70}, {125, 100}, {210, 118}, {150, -9}, {151, 20}};
    tool_.MouseDown(mbLeft, 0, path[0].x(), path[0].y());
    RedrawAsked();
    ASSERT_TRUE(SamePixels(screen_, WholePreview()));
    for (size_t i = 1; i < std::size(path); ++i) {
        tool_.MouseMove(ssLeft, path[i].x(), path[i].y());
        RedrawAsked();
        ASSERT_TRUE(SamePixels(screen_, WholePreview())) << "after move " << i;
    }

    // The release lands what the preview shows.
    const TIERetouchStroke& stroke = tool_.Stroke();
    const TIEBitmap whole = WholeRender(stroke, tool_.PixelSize, tool_.Feather);
    TIEBitmap expected;
    expected.Assign(original_);
    TIEBitmap::MergeAlpha(whole, 0, 0, whole.Width(), whole.Height(), expected, stroke.X(),
                          stroke.Y(), whole.Width(), whole.Height(), 255);
    tool_.MouseUp(mbLeft, 0, 151, 20);
    EXPECT_TRUE(SamePixels(view_.Picture(), expected));
    EXPECT_FALSE(SamePixels(view_.Picture(), original_));
}

TEST_F(RetouchPiecesTest, AStrokeLandsTheSameDrawnInOneMoveOrInMany) {
    // Along these lines every step lands on a stamp of the single move.
    auto draw = [this](const std::vector<QPoint>& points) {
        view_.Picture().Assign(original_);
        tool_.MouseDown(mbLeft, 0, points[0].x(), points[0].y());
        for (size_t i = 1; i < points.size(); ++i)
            tool_.MouseMove(ssLeft, points[i].x(), points[i].y());
        tool_.MouseUp(mbLeft, 0, points.back().x(), points.back().y());
        TIEBitmap result;
        result.Assign(view_.Picture());
        return result;
    };
    const TIEBitmap once = draw({{30, 30}, {90, 90}, {20, 90}});
    const TIEBitmap many = draw(
        {{30, 30}, {43, 43}, {44, 44}, {70, 70}, {90, 90}, {77, 90}, {76, 90}, {31, 90}, {20, 90}});
    EXPECT_TRUE(SamePixels(once, many));
    EXPECT_FALSE(SamePixels(once, original_));
}

}  // namespace
}  // namespace qpt
