#include <gtest/gtest.h>

#include <limits>

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

// Values whose differences overflow 32 bits, as a host of another version
// might leave them: sizes and positions end up where X11 can map a window.
TEST_F(HandOver, ExtremeValuesAreClampedToWhatAWindowCanHave) {
    constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
    EXPECT_EQ(HandOverRect(kMin, kMin, kMax, kMax), QRect(-32768, -32768, 32767, 32767));
    EXPECT_EQ(HandOverRect(kMax, kMax, kMin, kMin), QRect(32767, 32767, 0, 0));
    EXPECT_EQ(HandOverRect(-5, 10, kMax, 20), QRect(-5, 10, 32767, 10));
    EXPECT_EQ(HandOverRect(40000, -40000, 40100, -39900), QRect(32767, -32768, 100, 100));

    WriteMainIni("StartPin", "Left", QString::number(kMin));
    WriteMainIni("StartPin", "Right", QString::number(kMax));
    WriteMainIni("StartPin", "Bottom", "99999999999");  // beyond 32 bits: not a number
    EXPECT_EQ(ReadHandOver().rect, QRect(-32768, 0, 32767, 0));
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
