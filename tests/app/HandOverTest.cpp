#include <gtest/gtest.h>

#include "app/FormSequence.h"
#include "app/HandOver.h"
#include "support/MainIni.h"
#include "support/Paths.h"
#include "support/ProcessExit.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ScratchHome;
using testing::WriteFile;

struct ExitRequested {
    int code;
};

class HandOver : public ::testing::Test {
protected:
    void SetUp() override {
        SetProcessExitObserver([](int code) { throw ExitRequested{code}; });
    }
    void TearDown() override { SetProcessExitObserver(nullptr); }
    ScratchHome env;
};

TEST_F(HandOver, RectangleComesFromStartPinWithRightAndBottomOutside) {
    WriteMainIni("StartPin", "Left", "100");
    WriteMainIni("StartPin", "Top", "-20");
    WriteMainIni("StartPin", "Right", "420");
    WriteMainIni("StartPin", "Bottom", "220");
    const THandOver handOver = ReadHandOver();
    EXPECT_EQ(handOver.rect, QRect(100, -20, 320, 240));
    EXPECT_EQ(handOver.picturePath, GetTempFolder() + "QPTPinTemp.bmp");
}

TEST_F(HandOver, MissingOrBrokenKeysReadAsZero) {
    EXPECT_EQ(ReadHandOver().rect, QRect(0, 0, 0, 0));
    WriteMainIni("StartPin", "Left", "ten");
    WriteMainIni("StartPin", "Right", " 50 ");
    WriteMainIni("StartPin", "Bottom", "30");
    EXPECT_EQ(ReadHandOver().rect, QRect(0, 0, 50, 30));
}

TEST_F(HandOver, FormsEndTheProcessWithCodeZeroWhenThePictureIsMissing) {
    try {
        CreateForms({"QptPin", "/QPTMain"});
        FAIL() << "the session went on without a picture";
    } catch (const ExitRequested& exit) {
        EXPECT_EQ(exit.code, 0);
    }
}

TEST_F(HandOver, WithoutAPrivateTemporaryFolderThereIsNoPicture) {
    env.setEnv("XDG_RUNTIME_DIR", "/proc/no-such-folder");
    const THandOver handOver = ReadHandOver();
    EXPECT_TRUE(handOver.picturePath.isEmpty());
    EXPECT_FALSE(HandOverPictureExists(handOver));
}

}  // namespace
}  // namespace qpt
