#include <gtest/gtest.h>

#include "imaging/IELayerCreateInteraction.h"
#include "imaging/IELayerPointsInteraction.h"
#include "imaging/IELineLayer.h"
#include "imaging/IEPolylineLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"
#include "tests/imaging/InteractionTestView.h"
#include "tests/imaging/LayerTestSupport.h"

namespace qpt {
namespace {

class CreateTest : public ::testing::Test {
protected:
    void SetUp() override {
        tool_.SetEnabled(true);
        tool_.LayerKind = ielkShape;
    }
    void Drag(std::initializer_list<QPoint> path, TIEShiftState shift = 0) {
        auto it = path.begin();
        tool_.MouseDown(mbLeft, shift, it->x(), it->y());
        for (++it; it != path.end(); ++it)
            tool_.MouseMove(shift | ssLeft, it->x(), it->y());
        tool_.MouseUp(mbLeft, shift, path.end()[-1].x(), path.end()[-1].y());
    }
    int Count() { return view_.Layers().LayersCount(); }
    QRectF Box(int i) {
        const TIELayer& l = *view_.Layers().GetLayer(i);
        return QRectF(l.PosX, l.PosY, l.Width, l.Height);
    }

    testing::TInteractionTestView view_;
    TIELayerCreateInteraction tool_{view_};
};

TEST_F(CreateTest, TooSmallOrOneAxisDragsLeaveNoLayerAndNoUndoStep) {
    Drag({{50, 50}});             // press and release
    Drag({{50, 50}, {52, 100}});  // 2 right, 50 down: under the threshold on x
    Drag({{50, 50}, {100, 50}});  // exactly along one axis
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(view_.UndoStore().UndoCount(), 0);
    EXPECT_TRUE(view_.newLayers.empty());

    // Out to 10 by 10, back to 3 by 3: the layer that existed goes, and the
    // undo step saved for it goes too.
    Drag({{50, 50}, {60, 60}, {53, 53}});
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(view_.UndoStore().UndoCount(), 0);
    EXPECT_EQ(view_.newLayers.size(), 1u);
    EXPECT_FALSE(tool_.IsActive());
}

TEST_F(CreateTest, LayerComesAtTheFirstAcceptedMoveAndGrowsInThresholdSteps) {
    tool_.MouseDown(mbLeft, 0, 100, 100);
    EXPECT_EQ(Count(), 1);
    EXPECT_TRUE(tool_.IsActive());
    tool_.MouseMove(ssLeft, 110, 120);
    ASSERT_EQ(Count(), 2);
    EXPECT_EQ(view_.newLayers, std::vector<int>{1});
    EXPECT_EQ(view_.Layers().GetLayer(1)->BorderColor, clRed);  // dressed by the application
    EXPECT_EQ(view_.UndoStore().UndoInfo(0)->Source, ieuObjectsAndLayers);
    EXPECT_EQ(Box(1), QRectF(100, 100, 10, 20));
    EXPECT_EQ(static_cast<TIEShapeLayer&>(*view_.Layers().GetLayer(1)).DragStart, QPoint(100, 100));

    // Threshold against the last accepted point (110, 120), not the start.
    tool_.MouseMove(ssLeft, 112, 140);
    EXPECT_EQ(Box(1), QRectF(100, 100, 10, 20));
    tool_.MouseMove(ssLeft, 113, 123);
    EXPECT_EQ(Box(1), QRectF(100, 100, 13, 23));
    // Dragging past the start turns the box around; past the client it stops.
    tool_.MouseMove(ssLeft, -40, 90);
    EXPECT_EQ(Box(1), QRectF(0, 90, 100, 10));
    tool_.MouseUp(mbLeft, 0, -40, 90);
    EXPECT_EQ(Count(), 2);
    EXPECT_FALSE(tool_.IsActive());
    EXPECT_EQ(view_.events.back(), ieiLayerCreateEnacted);

    view_.UndoStore().Undo(true);
    EXPECT_EQ(Count(), 1);
}

TEST_F(CreateTest, ShiftOrFixedAspectMakesSquares) {
    Drag({{10, 10}, {50, 30}}, ssShift);
    EXPECT_EQ(Box(1), QRectF(10, 10, 20, 20));
    view_.fixedAspect = true;
    Drag({{100, 100}, {110, 160}});
    EXPECT_EQ(Box(2), QRectF(100, 100, 10, 10));
}

TEST_F(CreateTest, ZoomScalesTheThresholdToViewPixels) {
    view_.zoom = 2.0;  // 2 bitmap pixels are 4 view pixels: enough
    tool_.MouseDown(mbLeft, 0, 50, 50);
    tool_.MouseMove(ssLeft, 52, 52);
    EXPECT_EQ(Count(), 2);
    tool_.Cancel();
    view_.zoom = 0.5;  // 4 bitmap pixels are 2 view pixels: not enough
    tool_.MouseDown(mbLeft, 0, 50, 50);
    tool_.MouseMove(ssLeft, 54, 54);
    EXPECT_EQ(Count(), 1);
    tool_.MouseMove(ssLeft, 56, 56);
    EXPECT_EQ(Box(1), QRectF(50, 50, 6, 6));
}

TEST_F(CreateTest, PressOnAnExistingAnnotationBelongsToMoving) {
    Drag({{100, 100}, {160, 150}});
    ASSERT_EQ(Count(), 2);
    view_.Layers().SetLayersCurrent(-1);
    view_.interactLayers = mlCreateShapeLayers | mlMoveLayers | mlResizeLayers;
    EXPECT_FALSE(tool_.MouseDown(mbLeft, 0, 130, 120));  // the filled shape is hit
    EXPECT_TRUE(tool_.MouseDown(mbLeft, 0, 300, 250));   // empty picture
    tool_.Cancel();
    view_.interactLayers = mlCreateShapeLayers;
    EXPECT_TRUE(tool_.MouseDown(mbLeft, 0, 130, 120));
}

TEST_F(CreateTest, PreventOutOfBoundsRefusesOutsidePressesAndCutsTheBox) {
    view_.options |= loPreventOutOfBounds;
    view_.Layers().Background().PosX = 20;
    EXPECT_FALSE(tool_.MouseDown(mbLeft, 0, 10, 10));
    Drag({{30, 30}, {10, 60}});
    EXPECT_EQ(Box(1), QRectF(20, 30, 10, 30));
}

TEST_F(CreateTest, TextClickMakesACentredBoxAtOnceAndOpensTheEditor) {
    testing::EnsureGuiApp();
    view_.options |= loAutoTextEditing;
    tool_.LayerKind = ielkText;
    ASSERT_TRUE(tool_.MouseDown(mbLeft, 0, 200, 150));
    ASSERT_EQ(Count(), 2);
    EXPECT_FALSE(tool_.IsActive());
    EXPECT_EQ(view_.editorFor, 1);
    const TIELayer& text = *view_.Layers().GetLayer(1);
    EXPECT_NEAR(text.PosX + text.Width / 2, 200, 1);
    EXPECT_NEAR(text.PosY + text.Height / 2, 150, 1);
    tool_.MouseUp(mbLeft, 0, 200, 150);  // the release changes nothing
    EXPECT_EQ(Count(), 2);
}

class PointsTest : public ::testing::Test {
protected:
    void SetUp() override { tool_.SetEnabled(true); }
    TIELineLayer* Line() { return dynamic_cast<TIELineLayer*>(view_.Layers().GetLayer(1)); }
    TIEPolylineLayer* Stroke() {
        return dynamic_cast<TIEPolylineLayer*>(view_.Layers().GetLayer(1));
    }
    // Both ends of the line in bitmap pixels.
    std::pair<QPointF, QPointF> Ends() {
        const TIELineLayer& l = *Line();
        auto at = [&](QPointF f) {
            return QPointF(l.PosX + f.x() * l.Width, l.PosY + f.y() * l.Height);
        };
        return {at(l.LineStart), at(l.LineEnd)};
    }

    testing::TInteractionTestView view_;
    TIELayerPointsInteraction tool_{view_};
};

TEST_F(PointsTest, DragOrTwoClicksMakeALine) {
    tool_.MouseDown(mbLeft, 0, 20, 30);
    tool_.MouseMove(ssLeft, 120, 80);
    tool_.MouseUp(mbLeft, 0, 120, 80);
    ASSERT_NE(Line(), nullptr);
    EXPECT_FALSE(tool_.IsActive());
    EXPECT_EQ(Ends().first, QPointF(20, 30));
    EXPECT_EQ(Ends().second, QPointF(120, 80));

    view_.Layers().LayersRemove(1);
    tool_.MouseDown(mbLeft, 0, 50, 50);
    tool_.MouseUp(mbLeft, 0, 50, 50);
    EXPECT_TRUE(tool_.IsActive());  // waits for the second click
    tool_.MouseMove(0, 90, 60);     // the end follows with no button down
    tool_.MouseDown(mbLeft, 0, 90, 60);
    EXPECT_FALSE(tool_.IsActive());
    ASSERT_NE(Line(), nullptr);
    EXPECT_EQ(Ends().second, QPointF(90, 60));
    tool_.MouseUp(mbLeft, 0, 90, 60);
    EXPECT_EQ(view_.Layers().LayersCount(), 2);
}

TEST_F(PointsTest, SecondPressOnTheSameSpotOrATinyLineLeavesNothing) {
    tool_.MouseDown(mbLeft, 0, 50, 50);
    tool_.MouseUp(mbLeft, 0, 50, 50);
    tool_.MouseDown(mbLeft, 0, 50, 50);
    EXPECT_FALSE(tool_.IsActive());
    EXPECT_EQ(view_.Layers().LayersCount(), 1);

    tool_.MouseDown(mbLeft, 0, 50, 50);
    tool_.MouseMove(ssLeft, 51, 51);
    tool_.MouseUp(mbLeft, 0, 51, 51);
    EXPECT_EQ(view_.Layers().LayersCount(), 1);
    EXPECT_EQ(view_.UndoStore().UndoCount(), 0);
}

TEST_F(PointsTest, ShiftSnapsTheLineToEightDirections) {
    const QPoint o(100, 100);
    EXPECT_EQ(IESnapToEightDirections(o, {150, 110}), QPoint(150, 100));  // flat
    EXPECT_EQ(IESnapToEightDirections(o, {110, 40}), QPoint(100, 40));    // upright
    EXPECT_EQ(IESnapToEightDirections(o, {60, 150}), QPoint(60, 140));    // diagonal
    EXPECT_EQ(IESnapToEightDirections(o, {100, 150}), QPoint(100, 150));
    // Just either side of 22.5 degrees: tan is 0.4142.
    EXPECT_EQ(IESnapToEightDirections(o, {200, 141}), QPoint(200, 100));
    EXPECT_EQ(IESnapToEightDirections(o, {200, 142}), QPoint(200, 200));

    tool_.MouseDown(mbLeft, ssShift, 20, 20);
    tool_.MouseMove(ssShift | ssLeft, 80, 30);
    tool_.MouseUp(mbLeft, ssShift, 80, 30);
    ASSERT_NE(Line(), nullptr);
    EXPECT_EQ(Ends().second, QPointF(80, 20));
}

TEST_F(PointsTest, FreehandStrokeKeepsOneVertexPerThreeByThreeStep) {
    tool_.LayerKind = ielkPolyline;
    tool_.Drawing = true;
    // Along one axis only: the end keeps moving, so start and end remain.
    tool_.MouseDown(mbLeft, 0, 10, 50);
    for (int x = 11; x <= 90; ++x)
        tool_.MouseMove(ssLeft, x, 50);
    tool_.MouseUp(mbLeft, 0, 90, 50);
    ASSERT_NE(Stroke(), nullptr);
    EXPECT_EQ(Stroke()->PointCount(), 2);
    EXPECT_EQ(Stroke()->Point(1), QPointF(80, 0));
    EXPECT_EQ(view_.UndoStore().UndoCount(), 1);

    // A diagonal in single-pixel steps fixes every third pixel; the last
    // two pixels of slack are dropped at the end.
    view_.Layers().LayersRemove(1);
    tool_.MouseDown(mbLeft, 0, 100, 100);
    for (int i = 1; i <= 20; ++i)
        tool_.MouseMove(ssLeft, 100 + i, 100 + i);
    EXPECT_EQ(tool_.PointCount(), 7);  // the start and 3, 6, ... 18
    tool_.MouseUp(mbLeft, 0, 120, 120);
    ASSERT_NE(Stroke(), nullptr);
    EXPECT_EQ(Stroke()->PointCount(), 7);
    EXPECT_EQ(Stroke()->Point(6), QPointF(18, 18));
    EXPECT_NEAR(Stroke()->PosX, 99.5, 1e-9);  // the box follows the points and pen
}

TEST_F(PointsTest, PressOnALayerIsLeftToMovingWhenMovingIsOn) {
    view_.Layers().LayersAdd(ielkShape, QPointF(40, 40), QSizeF(50, 50), false);
    view_.Layers().SetLayersCurrent(-1);
    view_.interactLayers = mlClickCreateLineLayers | mlMoveLayers;
    EXPECT_FALSE(tool_.MouseDown(mbLeft, 0, 60, 60));
    EXPECT_TRUE(tool_.MouseDown(mbLeft, 0, 200, 200));
}

}  // namespace
}  // namespace qpt
