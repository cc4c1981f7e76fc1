#include "imaging/IEOpaqueRuns.h"

#include <gtest/gtest.h>

#include <vector>

namespace qpt {
namespace {

TIEBitmap Premul(int w, int h) {
    TIEBitmap b;
    b.SetLocation(ieMemory);
    b.Allocate(w, h, ie32RGB);
    b.Fill(0);
    return b;
}

void Set(TIEBitmap& b, int x, int y, uint32_t value = 0xFF000000u) {
    reinterpret_cast<uint32_t*>(b.Scanline(y))[x] = value;
}

std::vector<std::pair<int, int>> RunsOf(const TIEOpaqueRuns& runs, int y) {
    std::vector<std::pair<int, int>> out;
    for (auto [r, end] = runs.Row(y); r != end; ++r)
        out.emplace_back(r->begin, r->end);
    return out;
}

using Runs = std::vector<std::pair<int, int>>;

// Widths that are not a multiple of the four pixels scanned at once, and set
// pixels on both sides of every block boundary.
TEST(OpaqueRuns, RunsEndOnTheLastSetPixelAndBridgeShortGaps) {
    TIEBitmap b = Premul(37, 4);
    Set(b, 3, 0);
    Set(b, 5, 0, 0x00000001u);  // any non-zero byte counts, not only alpha
    Set(b, 13, 0);              // seven empty pixels after 5: bridged
    Set(b, 22, 0);              // eight after 13: a new run
    Set(b, 36, 0);              // the very last pixel of the row
    Set(b, 0, 2);
    for (int x = 0; x < 37; ++x)
        Set(b, x, 3);
    TIEOpaqueRuns runs;
    runs.Build(b);
    EXPECT_EQ(RunsOf(runs, 0), (Runs{{3, 14}, {22, 23}, {36, 37}}));
    EXPECT_EQ(RunsOf(runs, 1), Runs{});
    EXPECT_EQ(RunsOf(runs, 2), (Runs{{0, 1}}));
    EXPECT_EQ(RunsOf(runs, 3), (Runs{{0, 37}}));
}

TEST(OpaqueRuns, CoverageOfAnOutlineLeavesItsInsideOut) {
    TIEBitmap b = Premul(200, 150);
    for (int x = 0; x < 200; ++x) {
        Set(b, x, 0);
        Set(b, x, 149);
    }
    for (int y = 0; y < 150; ++y) {
        Set(b, 0, y);
        Set(b, 199, y);
    }
    TIEOpaqueRuns runs;
    runs.Build(b);
    const QRegion cover = runs.Coverage(QPoint(10, 20), 32);
    EXPECT_EQ(cover.boundingRect(), QRect(10, 20, 200, 150)) << "cut to the picture, not the tiles";
    EXPECT_TRUE(cover.contains(QPoint(10, 20)));
    EXPECT_TRUE(cover.contains(QPoint(209, 169)));
    EXPECT_FALSE(cover.contains(QPoint(110, 95))) << "the empty inside is not covered";
    EXPECT_FALSE(cover.contains(QPoint(9, 20)));

    TIEOpaqueRuns none;
    none.Build(Premul(50, 50));
    EXPECT_TRUE(none.Coverage(QPoint(0, 0), 32).isEmpty());
}

}  // namespace
}  // namespace qpt
