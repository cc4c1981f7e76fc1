#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "imaging/IEImageLayer.h"
#include "imaging/IEImageProc.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerUndoTarget.h"

namespace qpt {
namespace {

// The undo store over a real layer list, driven as the mouse tools drive it.
class UndoLayersTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        IESetTempFolder(dir_.path());
        proc_.SetUndoLimit(100);
        layers_.OnSaveObjectsUndo = [this] { proc_.SaveUndo(ieuObjectsAndLayers); };
        TIEBitmap* picture = layers_.Background().Bitmap();
        ASSERT_TRUE(picture->Allocate(300, 200, ie24RGB));
        picture->Fill(0x00102030);
        layers_.Background().FitToBitmap();
    }
    void TearDown() override { IESetTempFolder({}); }

    QTemporaryDir dir_;
    TIELayerList layers_;
    int updates_ = 0;
    TIELayerUndoTarget target_{layers_, [this] { ++updates_; }};
    TIEImageProc proc_{&target_};
};

TEST_F(UndoLayersTest, ThreeRectanglesAndAMoveComeBackOneStepAtATime) {
    for (int i = 0; i < 3; ++i)
        layers_.LayersAdd(ielkShape, QPointF(10 + 50 * i, 20));
    ASSERT_EQ(layers_.LayersCount(), 4);
    EXPECT_EQ(proc_.UndoCount(), 3);

    layers_.SetLayersCurrent(2);
    proc_.SaveUndo(ieuLayer);  // the first pixel of a move
    layers_.GetLayer(2)->PosX = 250;

    proc_.Undo(true);
    ASSERT_EQ(layers_.LayersCount(), 4);
    EXPECT_DOUBLE_EQ(layers_.GetLayer(2)->PosX, 60);
    EXPECT_DOUBLE_EQ(layers_.GetLayer(3)->PosX, 110);
    proc_.Undo(true);
    EXPECT_EQ(layers_.LayersCount(), 3);
    EXPECT_EQ(layers_.Background().Bitmap()->Width(), 300);  // the picture comes back whole
    EXPECT_EQ(layers_.Background().Bitmap()->Scanline(199)[0], 0x10);

    proc_.Redo();
    EXPECT_EQ(layers_.LayersCount(), 4);
    EXPECT_GE(updates_, 3);
}

TEST_F(UndoLayersTest, ImageStepsWorkOnThePictureUnderAVectorLayer) {
    layers_.LayersAdd(ielkShape, QPointF(5, 5), std::nullopt, false);
    ASSERT_EQ(layers_.LayersCurrent(), 1);
    proc_.SaveUndo(ieuImage);  // a retouch stroke starts
    layers_.Background().Bitmap()->Fill(0);
    proc_.Undo(true);
    EXPECT_EQ(layers_.Background().Bitmap()->Scanline(100)[2], 0x30);
    EXPECT_EQ(proc_.RedoCount(), 1);
}

}  // namespace
}  // namespace qpt
