#include "support/TickCount.h"

#include <gtest/gtest.h>

namespace qpt {
namespace {

uint32_t g_fakeTicks = 0;

TEST(TickCount, SourceCanBeSteppedAndWrapsBySubtraction) {
    SetTickCountSource([] { return g_fakeTicks; });
    g_fakeTicks = 0xFFFFFFF0u;
    const uint32_t start = GetTickCount();
    g_fakeTicks += 0x20;
    EXPECT_EQ(GetTickCount() - start, 0x20u);
    SetTickCountSource(nullptr);
    const uint32_t a = GetTickCount();
    EXPECT_LT(GetTickCount() - a, 1000u);
}

}  // namespace
}  // namespace qpt
