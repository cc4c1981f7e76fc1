// Undo steps live in files of the private temporary folder, which is often
// a small memory-backed file system that one screenshot step can fill.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QTemporaryDir>
#include <csignal>

#include "imaging/IEFileBuffer.h"
#include "imaging/IEMouseInteractions.h"
#include "tests/imaging/InteractionTestView.h"
#include "tests/imaging/LayerTestSupport.h"

namespace qpt {
namespace {

// The process's file size limit stands for a full folder: a write past it
// fails as it would on a full disk, once the signal it raises is ignored.
class FullFolder {
public:
    explicit FullFolder(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &saved_);
        oldHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = saved_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullFolder() {
        setrlimit(RLIMIT_FSIZE, &saved_);
        std::signal(SIGXFSZ, oldHandler_);
    }
    FullFolder(const FullFolder&) = delete;
    FullFolder& operator=(const FullFolder&) = delete;

private:
    rlimit saved_{};
    void (*oldHandler_)(int) = nullptr;
};

class UndoFullFolder : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        IESetTempFolder(folder_.path());
        view_.UndoStore().SetUndoLocation(ieFile);
        view_.router = &mouse_;
    }
    void TearDown() override { IESetTempFolder({}); }
    void Drag(QPoint from, QPoint to) {
        mouse_.MouseDown(mbLeft, 0, from.x(), from.y());
        mouse_.MouseMove(ssLeft, to.x(), to.y());
        mouse_.MouseUp(mbLeft, 0, to.x(), to.y());
    }

    QTemporaryDir folder_;
    testing::TInteractionTestView view_{400, 300};  // a step of 360 KB
    TIEMouseInteractions mouse_{view_};
};

TEST_F(UndoFullFolder, StepsThatDoNotFitAreNotRecordedAndDrawingAndUndoGoOn) {
    mouse_.SetMouseInteractLayers(mlCreateShapeLayers);
    Drag({50, 50}, {150, 120});
    ASSERT_EQ(view_.UndoStore().UndoCount(), 1);
    {
        FullFolder full(64 * 1024);
        Drag({200, 150}, {300, 250});
        EXPECT_EQ(view_.Layers().LayersCount(), 3) << "drawing goes on";
        EXPECT_EQ(view_.UndoStore().UndoCount(), 1) << "the stack is as it was";

        // A drawing dropped half-way takes no other step with it.
        mouse_.MouseDown(mbLeft, 0, 20, 200);
        mouse_.MouseMove(ssLeft, 80, 260);
        ASSERT_EQ(view_.Layers().LayersCount(), 4);
        mouse_.KeyDown(Qt::Key_Escape);
        EXPECT_EQ(view_.Layers().LayersCount(), 3);
        EXPECT_EQ(view_.UndoStore().UndoCount(), 1);

        mouse_.SetMouseInteractGeneral(miRetouchTool);
        mouse_.RetouchTool().SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
        Drag({300, 40}, {340, 60});
        EXPECT_EQ(view_.UndoStore().UndoCount(), 1);

        // The step stored while there was room still comes back.
        view_.UndoStore().Undo(true);
        EXPECT_EQ(view_.Layers().LayersCount(), 1);
        EXPECT_EQ(view_.UndoStore().UndoCount(), 0);
        view_.UndoStore().Undo(true);  // nothing left: nothing happens
    }
}

}  // namespace
}  // namespace qpt
