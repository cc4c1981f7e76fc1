#include <gtest/gtest.h>

#include "imaging/IELayerHitTest.h"
#include "imaging/IELineLayer.h"
#include "imaging/IEMouseInteractions.h"
#include "imaging/IEShapeLayer.h"
#include "tests/imaging/InteractionTestView.h"

namespace qpt {
namespace {

class LayerMouseTest : public ::testing::Test {
protected:
    void SetUp() override { view_.router = &mouse_; }
    TIEShapeLayer& AddShape(QRectF box, TIEShape shape = iesRectangle, TColor fill = clRed) {
        auto& layer = static_cast<TIEShapeLayer&>(
            *view_.Layers().LayersAdd(ielkShape, box.topLeft(), box.size(), false));
        layer.Shape = shape;
        layer.FillColor = fill;
        return layer;
    }
    QRectF Box(int i) {
        const TIELayer& l = *view_.Layers().GetLayer(i);
        return QRectF(l.PosX, l.PosY, l.Width, l.Height);
    }
    void Drag(QPoint from, QPoint to, TIEShiftState shift = 0) {
        mouse_.MouseDown(mbLeft, shift, from.x(), from.y());
        mouse_.MouseMove(shift | ssLeft, to.x(), to.y());
        mouse_.MouseUp(mbLeft, shift, to.x(), to.y());
    }
    int FindAt(double x, double y, double zoom = 1) {
        return IEFindLayerAt(view_.Layers(), QPointF(x, y), zoom);
    }
    TIEGrip GripAt(double x, double y, TIEMouseInteractLayers interact = mlResizeLayers) {
        return IEFindGrip(view_.Layers(), QPointF(x, y), 1, interact, view_.options).Grip;
    }

    testing::TInteractionTestView view_;
    TIEMouseInteractions mouse_{view_};
};

TEST_F(LayerMouseTest, HollowShapesAreHitOnTheirOutlineWithinTheTolerance) {
    AddShape({100, 100, 100, 60}, iesRectangle, clNone).BorderWidth = 2;
    EXPECT_EQ(FindAt(150, 130), -1);  // the empty inside is not the shape
    EXPECT_EQ(FindAt(150, 101), 1);
    EXPECT_EQ(FindAt(150, 96), 1);  // pen 1 + tolerance 4
    EXPECT_EQ(FindAt(150, 94), -1);
    EXPECT_EQ(FindAt(150, 94, 0.5), 1);  // the tolerance is in view pixels

    AddShape({300, 100, 80, 80}, iesEllipse, clNone);
    EXPECT_EQ(FindAt(340, 140), -1);
    EXPECT_EQ(FindAt(340, 102), 2);
    EXPECT_EQ(FindAt(302, 102), -1);  // the box corner is off the ring
}

TEST_F(LayerMouseTest, TopmostVisibleSelectableLayerWins) {
    AddShape({50, 50, 100, 100});
    AddShape({100, 100, 100, 100});
    EXPECT_EQ(FindAt(120, 120), 2);
    view_.Layers().GetLayer(2)->Visible = false;
    EXPECT_EQ(FindAt(120, 120), 1);
    view_.Layers().GetLayer(1)->Selectable = false;
    EXPECT_EQ(FindAt(120, 120), -1);
    EXPECT_EQ(IEFindLayerAt(view_.Layers(), QPointF(120, 120), 1, true), 1);

    auto& line = static_cast<TIELineLayer&>(*view_.Layers().LayersAdd(ielkLine, {}, {}, false));
    line.SetEndPoints({10, 200}, {110, 250});
    EXPECT_EQ(FindAt(60, 229), 3);  // 4 below the line, pen and tolerance reach 4.5
    EXPECT_EQ(FindAt(60, 236), -1);
    EXPECT_EQ(FindAt(105, 205), -1);  // inside the box, far from the line
}

TEST_F(LayerMouseTest, GripsAreTestedInOrderAndOnlyOnUnlockedLayers) {
    AddShape({50, 50, 6, 6});               // small enough for the squares to overlap
    EXPECT_EQ(GripAt(50, 50), ieTopLeft);   // also inside the left side's square
    EXPECT_EQ(GripAt(56, 53), ieTopRight);  // also inside the right side's
    EXPECT_EQ(GripAt(53, 57), ieBottomRight);
    EXPECT_EQ(GripAt(48, 58), ieBottomLeft);

    AddShape({200, 100, 100, 100});
    EXPECT_EQ(GripAt(204, 150), ieLeftSide);
    EXPECT_EQ(GripAt(250, 205), ieBottomSide);
    EXPECT_EQ(GripAt(250, 150), ieNone);
    EXPECT_EQ(GripAt(250, 70), ieNone);  // rotation is not armed
    EXPECT_EQ(GripAt(250, 70, mlRotateLayers), ieRotate);
    EXPECT_EQ(GripAt(250, 150, mlRotateLayers), ieRotationCenter);
    EXPECT_EQ(GripAt(250, 150, mlRotateLayers | mlMoveLayers), ieNone);

    // The other selected layer answers when the current one has nothing.
    view_.Layers().GetLayer(1)->Selected = true;
    const TIEGripHit other =
        IEFindGrip(view_.Layers(), QPointF(50, 50), 1, mlResizeLayers, view_.options);
    EXPECT_EQ(other.Layer, 1);
    view_.Layers().GetLayer(2)->Locked = true;
    EXPECT_EQ(GripAt(204, 150), ieNone);

    // The picture is never resized from its corners.
    view_.Layers().SetLayersCurrent(0);
    EXPECT_EQ(GripAt(0, 0), ieNone);
}

TEST_F(LayerMouseTest, MoveSavesOneUndoStepAtTheFirstRealMove) {
    AddShape({100, 100, 50, 50});
    mouse_.SetMouseInteractLayers(mlMoveLayers | mlResizeLayers);
    Drag({120, 120}, {120, 120});  // a click
    EXPECT_EQ(view_.UndoStore().UndoCount(), 0);
    EXPECT_EQ(view_.Layers().LayersCurrent(), 1);

    mouse_.MouseDown(mbLeft, 0, 120, 120);
    mouse_.MouseMove(ssLeft, 130, 125);
    mouse_.MouseMove(ssLeft, 150, 140);
    mouse_.MouseUp(mbLeft, 0, 150, 140);
    EXPECT_EQ(Box(1), QRectF(130, 120, 50, 50));
    EXPECT_EQ(view_.UndoStore().UndoCount(), 1);
    EXPECT_EQ(view_.UndoStore().UndoInfo(0)->Source, ieuLayer);
    view_.UndoStore().Undo(true);
    EXPECT_EQ(Box(1), QRectF(100, 100, 50, 50));

    view_.Layers().GetLayer(1)->Locked = true;
    Drag({120, 120}, {160, 160});
    EXPECT_EQ(Box(1), QRectF(100, 100, 50, 50));

    Drag({300, 250}, {300, 250});  // a click on nothing drops the selection
    EXPECT_FALSE(view_.Layers().GetLayer(1)->Selected);
}

TEST_F(LayerMouseTest, ResizeFollowsTheGripAndUndoesInOneStep) {
    AddShape({100, 100, 100, 50});
    mouse_.SetMouseInteractLayers(mlMoveLayers | mlResizeLayers);
    view_.Layers().SetLayersCurrent(1);
    Drag({200, 150}, {240, 190});
    EXPECT_EQ(Box(1), QRectF(100, 100, 140, 90));
    EXPECT_EQ(view_.UndoStore().UndoCount(), 1);
    view_.UndoStore().Undo(true);
    EXPECT_EQ(Box(1), QRectF(100, 100, 100, 50));

    // Shift keeps the 2:1 box; the axis that moved more leads.
    Drag({200, 150}, {300, 160}, ssShift);
    EXPECT_EQ(Box(1), QRectF(100, 100, 200, 100));
    view_.UndoStore().Undo(true);
    // A side grip with Shift drags the bottom right corner.
    Drag({200, 125}, {240, 125}, ssShift);
    EXPECT_EQ(Box(1), QRectF(100, 100, 140, 70));
}

TEST_F(LayerMouseTest, DraggingPastTheOppositeSideTurnsTheBoxOver) {
    auto& line = static_cast<TIELineLayer&>(*view_.Layers().LayersAdd(ielkLine, {}, {}, false));
    line.SetEndPoints({100, 100}, {200, 150});
    const QRectF before = Box(1);
    mouse_.SetMouseInteractLayers(mlResizeLayers);
    view_.Layers().SetLayersCurrent(1);
    const int left = int(before.left()), mid = int(before.center().y());
    Drag({left, mid}, {int(before.right()) + 30, mid});
    EXPECT_DOUBLE_EQ(Box(1).left(), before.right());  // the right side stays put
    EXPECT_DOUBLE_EQ(Box(1).width(), int(before.right()) + 30 - before.right());
    EXPECT_GT(line.LineStart.x(), line.LineEnd.x());  // the ends swapped sides
}

TEST_F(LayerMouseTest, HoverShowsSizeAndMoveCursorsButLeavesTheDragCursor) {
    AddShape({100, 100, 100, 100});
    mouse_.SetMouseInteractLayers(mlMoveLayers | mlResizeLayers);
    view_.Layers().SetLayersCurrent(1);
    mouse_.MouseMove(0, 100, 100);
    EXPECT_EQ(view_.shownCursor, crSizeNWSE);
    mouse_.MouseMove(0, 150, 200);
    EXPECT_EQ(view_.shownCursor, crSizeNS);
    mouse_.MouseMove(0, 150, 150);
    EXPECT_EQ(view_.shownCursor, crIEMoveLayer);
    mouse_.MouseMove(0, 300, 250);
    EXPECT_EQ(view_.shownCursor, -1);
    view_.cursor = crSizeAll;
    mouse_.MouseMove(0, 150, 150);
    EXPECT_EQ(view_.shownCursor, -1);
}

TEST_F(LayerMouseTest, InteractionPropertiesArmTheirTools) {
    AddShape({100, 100, 50, 50});
    mouse_.SetMouseInteractLayers(mlCreateShapeLayers | mlMoveLayers | mlResizeLayers);
    EXPECT_TRUE(mouse_.CreateTool().Enabled());
    EXPECT_EQ(mouse_.CreateTool().LayerKind, ielkShape);
    EXPECT_FALSE(mouse_.PointsTool().Enabled());
    EXPECT_EQ(view_.Layers().LayersCurrent(), -1);  // the selection is cleared

    // A press on the shape moves it, a press elsewhere draws a new one.
    Drag({120, 120}, {130, 130});
    EXPECT_EQ(view_.Layers().LayersCount(), 2);
    EXPECT_EQ(Box(1).topLeft(), QPointF(110, 110));
    Drag({250, 200}, {290, 230});
    EXPECT_EQ(view_.Layers().LayersCount(), 3);

    mouse_.SetMouseInteractLayers(mlDrawCreatePolylineLayers);
    EXPECT_FALSE(mouse_.CreateTool().Enabled());
    EXPECT_TRUE(mouse_.PointsTool().Enabled());
    EXPECT_TRUE(mouse_.PointsTool().Drawing);
    EXPECT_EQ(mouse_.PointsTool().LayerKind, ielkPolyline);

    mouse_.SetMouseInteractGeneral(miRetouchTool | miZoom | miSelect);
    EXPECT_EQ(mouse_.MouseInteractGeneral(), TIEMouseInteractGeneral(miRetouchTool | miZoom));
    EXPECT_EQ(mouse_.MouseInteractLayers(), 0);
    EXPECT_FALSE(mouse_.PointsTool().Enabled());
    EXPECT_TRUE(mouse_.RetouchTool().Enabled());

    // Switching the retouch tool off ends a stroke without merging it.
    view_.Picture().Scanline(10)[30] = 0;  // a dark pixel a merge would average away
    mouse_.RetouchTool().SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
    mouse_.MouseDown(mbLeft, 0, 10, 10);
    EXPECT_TRUE(mouse_.RetouchTool().Started());
    mouse_.SetMouseInteractGeneral(0);
    EXPECT_FALSE(mouse_.RetouchTool().Started());
    EXPECT_EQ(view_.Picture().Scanline(10)[30], 0);
}

TEST_F(LayerMouseTest, EscapeOrDeleteDropsTheLayerBeingDrawn) {
    mouse_.SetMouseInteractLayers(mlCreateShapeLayers);
    mouse_.MouseDown(mbLeft, 0, 50, 50);
    mouse_.MouseMove(ssLeft, 90, 90);
    ASSERT_EQ(view_.Layers().LayersCount(), 2);
    EXPECT_FALSE(mouse_.KeyDown(Qt::Key_A));
    EXPECT_TRUE(mouse_.KeyDown(Qt::Key_Delete));
    EXPECT_EQ(view_.Layers().LayersCount(), 1);
    EXPECT_EQ(view_.UndoStore().UndoCount(), 0);
    mouse_.MouseUp(mbLeft, 0, 90, 90);
    EXPECT_EQ(view_.Layers().LayersCount(), 1);

    view_.options &= ~loKeyboardShortcuts;
    mouse_.MouseDown(mbLeft, 0, 50, 50);
    mouse_.MouseMove(ssLeft, 90, 90);
    EXPECT_FALSE(mouse_.KeyDown(Qt::Key_Escape));
    EXPECT_EQ(view_.Layers().LayersCount(), 2);
}

// Choosing a layer tool, or going idle, after the pixelation ends the
// pixelation: a drag then leaves the picture and the undo list alone.
TEST_F(LayerMouseTest, ALayerInteractionEndsTheRetouchBrush) {
    for (const TIEMouseInteractLayers next :
         {TIEMouseInteractLayers(mlResizeLayers),
          TIEMouseInteractLayers(mlMoveLayers | mlResizeLayers | mlClickCreateLineLayers)}) {
        mouse_.SetMouseInteractGeneral(miRetouchTool | miZoom);
        mouse_.RetouchTool().SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
        view_.Picture().Scanline(40)[3 * 40] = 0;
        // A stroke under way when the tool changes is not merged either.
        mouse_.MouseDown(mbLeft, 0, 40, 40);
        const int steps = view_.UndoStore().UndoCount();
        mouse_.SetMouseInteractLayers(next);
        EXPECT_EQ(mouse_.MouseInteractGeneral(), TIEMouseInteractGeneral(miZoom));
        EXPECT_FALSE(mouse_.RetouchTool().Enabled());
        mouse_.MouseUp(mbLeft, 0, 40, 40);
        Drag({30, 30}, {60, 60});
        EXPECT_EQ(view_.Picture().Scanline(40)[3 * 40], 0) << "nothing pixelated";
        for (int i = 0; i < view_.UndoStore().UndoCount() - steps; ++i)
            EXPECT_NE(view_.UndoStore().UndoInfo(i)->Source, ieuImage) << "no picture step";
    }
}

}  // namespace
}  // namespace qpt
