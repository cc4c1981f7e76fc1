// The program's side of the hand-over when the holder cannot do its part.
#include <gtest/gtest.h>

#include <chrono>

#include "output/ClipboardHandOver.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

TEST(ClipboardHandOver, FailsWhenTheHolderIsMissingOrFindsNoDisplay) {
    testing::ScratchHome env;
    EXPECT_FALSE(HandTextToClipboard("text", env.root() + "no-such-holder"));
    env.setEnv("DISPLAY", std::nullopt);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(HandTextToClipboard("text", QStringLiteral(QPT_PROGRAM_DIR "/QptClipboard")));
    // The holder tried for about two seconds before it gave up.
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1800));
}

}  // namespace
}  // namespace qpt
