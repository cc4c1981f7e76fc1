#include <gtest/gtest.h>

#include <unistd.h>
#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <filesystem>

#include "imaging/IEImageProc.h"

namespace qpt {
namespace {

// A view in miniature: layers with a picture and one field, streamed the way
// a layer list would stream them.
class FakeView : public TIEUndoTarget {
public:
    struct Layer {
        TIEBitmap Picture{4, 3, ie24RGB};
        int PosX = 0;
    };
    std::vector<Layer> Layers = std::vector<Layer>(1);
    int Current = 0;
    int Updates = 0;

    TIEBitmap* CurrentBitmap() override { return &Layers[size_t(Current)].Picture; }
    TIEBitmap* LayerBitmap(int i) override {
        return i >= 0 && i < int(Layers.size()) ? &Layers[size_t(i)].Picture : nullptr;
    }
    int LayersCurrent() const override { return Current; }
    void SaveLayer(QIODevice& d, int i, bool withPixels) override {
        QDataStream s(&d);
        s << Layers[size_t(i)].PosX << withPixels;
        if (withPixels) s << Layers[size_t(i)].Picture.Scanline(0)[0];
    }
    void LoadLayer(QIODevice& d, int i) override {
        QDataStream s(&d);
        bool withPixels = false;
        s >> Layers[size_t(i)].PosX >> withPixels;
        if (withPixels) s >> Layers[size_t(i)].Picture.Scanline(0)[0];
    }
    void SaveLayers(QIODevice& d) override {
        QDataStream(&d) << int(Layers.size()) << Current;
        for (size_t i = 0; i < Layers.size(); ++i)
            SaveLayer(d, int(i), true);
    }
    void LoadLayers(QIODevice& d) override {
        int count = 0;
        QDataStream(&d) >> count >> Current;
        Layers.resize(1);
        Layers.resize(size_t(count));
        for (int i = 0; i < count; ++i)
            LoadLayer(d, i);
    }
    void Update() override { ++Updates; }

    uint8_t& FirstByte(int layer = 0) { return Layers[size_t(layer)].Picture.Scanline(0)[0]; }
};

class UndoTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        IESetTempFolder(dir_.path());
        view_.Layers[0].Picture.Fill(0);
        proc_.SetUndoLimit(100);
    }
    void TearDown() override { IESetTempFolder({}); }

    // Open descriptors of files in our temporary folder, named or not: steps
    // must hold their data there and nowhere else.
    int FilesHeld() const {
        int n = 0;
        const QByteArray folder = QFile::encodeName(dir_.path()) + '/';
        for (const auto& fd : std::filesystem::directory_iterator("/proc/self/fd")) {
            char target[4096];
            const ssize_t len = ::readlink(fd.path().c_str(), target, sizeof target);
            if (len > 0 && QByteArray(target, int(len)).startsWith(folder)) ++n;
        }
        return n;
    }

    QTemporaryDir dir_;
    FakeView view_;
    TIEImageProc proc_{&view_};
};

TEST_F(UndoTest, ImageStepsLiveInFilesAndUndoRedoWalksBothWays) {
    EXPECT_TRUE(proc_.AutoUndo);
    EXPECT_EQ(TIEImageProc().UndoLimit(), 1);
    for (uint8_t v : {1, 2, 3}) {
        proc_.SaveUndoCaptioned(QString("step %1").arg(v), ieuImage);
        view_.FirstByte() = v;
    }
    EXPECT_EQ(proc_.UndoCount(), 3);
    EXPECT_EQ(proc_.UndoCaptions(0), "step 3");
    EXPECT_EQ(FilesHeld(), 3);

    proc_.Undo(true);
    EXPECT_EQ(view_.FirstByte(), 2);
    EXPECT_EQ(proc_.UndoCount(), 2);
    EXPECT_EQ(proc_.RedoCount(), 1);
    proc_.Undo(true);
    EXPECT_EQ(view_.FirstByte(), 1);
    proc_.Redo();
    EXPECT_EQ(view_.FirstByte(), 2);
    proc_.Redo();
    EXPECT_EQ(view_.FirstByte(), 3);
    EXPECT_FALSE(proc_.CanRedo());
    EXPECT_EQ(proc_.UndoCount(), 3);

    // Without removeStep the step stays for another time.
    view_.FirstByte() = 9;
    proc_.Undo(false);
    EXPECT_EQ(view_.FirstByte(), 2);
    EXPECT_EQ(proc_.UndoCount(), 3);
    EXPECT_EQ(view_.Updates, 5);

    proc_.ClearAllUndo();
    EXPECT_EQ(FilesHeld(), 0);
    proc_.Undo(true);  // empty: nothing happens
    EXPECT_EQ(view_.FirstByte(), 2);
}

TEST_F(UndoTest, TheHundredAndFirstStepDropsTheOldest) {
    for (int i = 0; i < 101; ++i) {
        view_.FirstByte() = uint8_t(i);
        proc_.SaveUndo(ieuImage);
    }
    EXPECT_EQ(proc_.UndoCount(), 100);
    proc_.UndoAt(99, true);  // the oldest left is the second one saved
    EXPECT_EQ(view_.FirstByte(), 1);
    EXPECT_EQ(proc_.UndoCount(), 0);
    EXPECT_EQ(proc_.RedoCount(), 100);
    proc_.Redo();
    EXPECT_EQ(view_.FirstByte(), 2);

    proc_.SetUndoLimit(0);
    proc_.SaveUndo(ieuImage);
    EXPECT_EQ(proc_.UndoCount(), 1);  // lowering the limit trims nothing, and saves nothing
}

TEST_F(UndoTest, LayerStepsRestoreOnlyWhatTheyHold) {
    view_.Layers.resize(3);
    view_.Current = 2;
    view_.Layers[2].PosX = 40;
    view_.FirstByte(2) = 7;
    proc_.SaveUndo(ieuLayer);
    view_.Layers[2].PosX = 90;
    view_.FirstByte(2) = 8;
    view_.Current = 1;  // the step still belongs to layer 2
    proc_.Undo(true);
    EXPECT_EQ(view_.Layers[2].PosX, 40);
    EXPECT_EQ(view_.FirstByte(2), 8);  // a layer step keeps no pixels
    proc_.Redo();
    EXPECT_EQ(view_.Layers[2].PosX, 90);

    view_.Current = 2;
    proc_.SaveUndo(ieuFullLayer);
    view_.FirstByte(2) = 60;
    proc_.Undo(true);
    EXPECT_EQ(view_.FirstByte(2), 8);
    EXPECT_EQ(FilesHeld(), 2);  // layer steps are temporary streams: one redo, one undo

    // A whole list: undo takes back an added layer and nothing else.
    proc_.SaveUndo(ieuObjectsAndLayers);
    view_.Layers.emplace_back();
    view_.Current = 3;
    view_.Layers[1].PosX = 5;
    proc_.Undo(true);
    EXPECT_EQ(view_.Layers.size(), 3u);
    EXPECT_EQ(view_.Current, 2);
    EXPECT_EQ(view_.Layers[1].PosX, 0);
}

TEST_F(UndoTest, StepsThatCannotBeTakenOrAreRefused) {
    view_.Layers[0].Picture.Allocate(1, 5, ie24RGB);
    proc_.SaveUndo(ieuImage);
    proc_.SaveUndo(ieuSelection);
    EXPECT_EQ(proc_.UndoCount(), 0);

    view_.Layers[0].Picture.Allocate(5, 5, ie24RGB);
    view_.FirstByte() = 1;
    int saved = 0;
    proc_.OnSaveUndo = [&] { ++saved; };
    proc_.SaveUndo(ieuImage);
    proc_.SaveUndo(ieuImage);
    EXPECT_EQ(saved, 2);
    proc_.DiscardUndo();  // a cancelled creation takes its step along
    EXPECT_EQ(proc_.UndoCount(), 1);

    view_.FirstByte() = 2;
    proc_.OnUndoRedo = [](bool) { return false; };
    proc_.Undo(true);
    EXPECT_EQ(view_.FirstByte(), 2);
    EXPECT_EQ(proc_.UndoCount(), 1);

    proc_.OnUndoRedo = nullptr;
    proc_.SetUndoLocation(ieMemory);
    proc_.SaveUndo(ieuObjectsAndLayers);
    EXPECT_EQ(FilesHeld(), 1);  // only the image step of before
}

// A step that cannot be read back (its file was damaged) must never take
// the session down: it is dropped, and what is shown stays.
TEST_F(UndoTest, AStepThatCannotBeReadBackIsDroppedAndNothingChanges) {
    struct Unreadable : FakeView {
        void LoadLayers(QIODevice&) override {
            throw EIEException("Layer stream has been corrupted");
        }
    } view;
    TIEImageProc proc(&view);
    proc.SetUndoLimit(10);
    view.Layers[0].PosX = 7;
    EXPECT_TRUE(proc.SaveUndo(ieuObjectsAndLayers));
    view.Layers[0].PosX = 9;
    EXPECT_NO_THROW(proc.Undo(true));
    EXPECT_EQ(proc.UndoCount(), 0);
    EXPECT_EQ(proc.RedoCount(), 0);
    EXPECT_EQ(view.Layers[0].PosX, 9);
}

}  // namespace
}  // namespace qpt
