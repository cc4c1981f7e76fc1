#include <gtest/gtest.h>

#include "imaging/IEPixelize.h"
#include "tests/imaging/LayerTestSupport.h"

namespace qpt {
namespace {

using testing::PixelAt;

// A picture whose red channel is x + 10 y and blue channel 100 + x, so every
// block average can be worked out by hand.
TIEBitmap Ramp(int w, int h) {
    TIEBitmap b(w, h, ie24RGB);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            uint8_t* p = b.Scanline(y) + 3 * x;
            p[0] = uint8_t(100 + x);
            p[1] = 7;
            p[2] = uint8_t(x + 10 * y);
        }
    return b;
}

uint8_t Red(const TIEBitmap& b, int x, int y) {
    return b.Scanline(y)[3 * x + 2];
}

TEST(PixelizeTest, BlocksTruncateTheirAverageAndEdgeBlocksAverageWhatTheyHave) {
    TIEBitmap b = Ramp(5, 3);
    Pixelize(b, nullptr, 2, 0, 0, 4, 2);
    // Block (0,0): red 0, 1, 10, 11 -> 22 / 4 = 5.5, truncated to 5.
    EXPECT_EQ(Red(b, 0, 0), 5);
    EXPECT_EQ(Red(b, 1, 1), 5);
    EXPECT_EQ(b.Scanline(0)[0], 100);  // blue 100, 101, 100, 101 -> 100.5 -> 100
    // Right edge block is one pixel wide: red 4 and 14 -> 9.
    EXPECT_EQ(Red(b, 4, 0), 9);
    EXPECT_EQ(Red(b, 4, 1), 9);
    // Bottom row blocks are one pixel high: red 20, 21 -> 20.
    EXPECT_EQ(Red(b, 0, 2), 20);
    // The corner block is a single pixel and keeps its value.
    EXPECT_EQ(Red(b, 4, 2), 24);
    EXPECT_EQ(b.Scanline(2)[3 * 4 + 1], 7);
}

TEST(PixelizeTest, GridStartsAtTheRectangleAndLeavesTheRestAlone) {
    TIEBitmap b = Ramp(6, 4);
    Pixelize(b, nullptr, 2, 1, 1, 4, 2);
    EXPECT_EQ(Red(b, 0, 0), 0);  // outside
    EXPECT_EQ(Red(b, 5, 1), 15);
    EXPECT_EQ(Red(b, 1, 3), 31);
    // Block from (1,1): red 11, 12, 21, 22 -> 16.
    EXPECT_EQ(Red(b, 1, 1), 16);
    EXPECT_EQ(Red(b, 2, 2), 16);
    // Next block from (3,1): 13, 14, 23, 24 -> 18.
    EXPECT_EQ(Red(b, 4, 2), 18);
}

TEST(PixelizeTest, RectangleIsCutToTheBitmapAndBlockBiggerThanItMakesOneColour) {
    TIEBitmap b = Ramp(4, 4);
    Pixelize(b, nullptr, 30, -5, -5, 100, 100);
    // All 16 pixels: red = (0+1+2+3)*4 + 10*(0+1+2+3)*4 = 24 + 240 = 264 / 16 = 16.5
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            ASSERT_EQ(Red(b, x, y), 16) << x << "," << y;
}

TEST(PixelizeTest, MaskLimitsTheWrites) {
    TIEBitmap b = Ramp(4, 2);
    TIEBitmap mask(4, 2, ie8g);
    mask.Fill(0);
    mask.Scanline(0)[1] = 255;
    Pixelize(b, &mask, 2, 0, 0, 3, 1);
    EXPECT_EQ(Red(b, 0, 0), 0);  // averaged but not written
    EXPECT_EQ(Red(b, 1, 0), 5);  // 0, 1, 10, 11
    EXPECT_EQ(Red(b, 0, 1), 10);

    TIEBitmap small(2, 2, ie8g);
    small.Fill(255);
    Pixelize(b, &small, 2, 0, 0, 3, 1);  // a mask of another size writes nothing
    EXPECT_EQ(Red(b, 0, 0), 0);
}

TEST(PixelizeTest, BadArgumentsChangeNothing) {
    TIEBitmap b = Ramp(4, 4);
    Pixelize(b, nullptr, 0, 0, 0, 3, 3);
    Pixelize(b, nullptr, -3, 0, 0, 3, 3);
    Pixelize(b, nullptr, 2, 10, 10, 20, 20);
    Pixelize(b, nullptr, 2, 3, 3, 0, 0);
    for (int y = 0; y < 4; ++y)
        EXPECT_EQ(Red(b, 1, y), 1 + 10 * y);
    TIEBitmap grey(4, 4, ie8g);
    grey.Fill(9);
    Pixelize(grey, nullptr, 2, 0, 0, 3, 3);
    EXPECT_EQ(grey.Scanline(0)[0], 9);
}

TEST(PixelizeTest, FeatherRampsTheEdgeOverTheRadiusAndKeepsTheBorderOpaque) {
    TIEBitmap alpha(20, 1, ie8g);
    alpha.Fill(0);
    for (int x = 0; x < 10; ++x)
        alpha.Scanline(0)[x] = 255;
    IEFeatherAlpha(alpha, 4);
    const uint8_t* a = alpha.Scanline(0);
    EXPECT_EQ(a[0], 255);  // extended edge, not a dark border
    EXPECT_EQ(a[6], 255);
    EXPECT_EQ(a[13], 0);
    for (int x = 1; x < 20; ++x)
        EXPECT_LE(a[x], a[x - 1]);
    EXPECT_GT(a[9], 0);
    EXPECT_LT(a[9], 255);
    EXPECT_FALSE(alpha.Full());
}

}  // namespace
}  // namespace qpt
