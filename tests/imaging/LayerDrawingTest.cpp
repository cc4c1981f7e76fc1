#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <random>

#include "imaging/IEBlend.h"
#include "imaging/IEImageCompose.h"
#include "imaging/IELayerList.h"
#include "imaging/IELineLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"
#include "tests/imaging/LayerTestSupport.h"

namespace qpt {
namespace {

using testing::AlphaAt;
using testing::PixelAt;

struct ArrowCase {
    int direction, size;
    std::array<QPoint, 6> points;
};

// Worked by hand from the outline's rule on a 200 by 100 box.
const ArrowCase kArrows[] = {
    {1, 0, {{{0, 100}, {187, 7}, {187, 8}, {200, 0}, {185, 4}, {186, 5}}}},
    {1, 1, {{{0, 100}, {184, 11}, {185, 13}, {200, 0}, {180, 4}, {182, 7}}}},
    {1, 2, {{{0, 100}, {180, 17}, {182, 22}, {200, 0}, {172, 0}, {175, 6}}}},
    {2, 0, {{{0, 0}, {186, 94}, {185, 95}, {200, 100}, {187, 91}, {187, 92}}}},
    {2, 1, {{{0, 0}, {182, 93}, {180, 95}, {200, 100}, {185, 86}, {184, 89}}}},
    {2, 2, {{{0, 0}, {175, 94}, {172, 99}, {200, 100}, {182, 77}, {180, 83}}}},
    {3, 0, {{{200, 0}, {13, 92}, {12, 91}, {0, 100}, {14, 95}, {14, 94}}}},
    {3, 1, {{{200, 0}, {16, 89}, {14, 86}, {0, 100}, {19, 95}, {18, 93}}}},
    {3, 2, {{{200, 0}, {20, 83}, {17, 77}, {0, 100}, {27, 99}, {25, 94}}}},
    {4, 0, {{{200, 100}, {14, 5}, {14, 4}, {0, 0}, {12, 8}, {13, 7}}}},
    {4, 1, {{{200, 100}, {18, 7}, {19, 4}, {0, 0}, {14, 13}, {16, 11}}}},
    {4, 2, {{{200, 100}, {25, 6}, {27, 0}, {0, 0}, {17, 22}, {20, 17}}}},
};

TEST(ArrowOutline, FourDirectionsThreeSizes) {
    for (const ArrowCase& c : kArrows) {
        const auto got = IEArrowOutline(c.points[0], c.points[3], c.size);
        EXPECT_EQ(got, c.points) << "direction " << c.direction << " size " << c.size;
    }
    // The head does not grow with the arrow: twice the length, same wings.
    const auto longer = IEArrowOutline({0, 0}, {400, 200}, 1);
    EXPECT_EQ(longer[2], QPoint(380, 195));
    EXPECT_EQ(longer[4], QPoint(385, 186));
}

TEST(ArrowOutline, DirectionComesFromTheDragStartCorner) {
    TIELayerList list;
    auto& arrow = static_cast<TIEShapeLayer&>(
        *list.LayersAdd(ielkShape, QPointF(100, 100), QSizeF(200, 100)));
    arrow.Shape = iesArrow;
    arrow.SetBorderWidth(0);
    arrow.AntiAlias = false;
    const std::pair<QPoint, int> drags[] = {
        {{100, 200}, 1}, {{100, 100}, 2}, {{300, 100}, 3}, {{300, 200}, 4}, {{150, 150}, 4}};
    TIEBitmap cache;
    for (auto [start, direction] : drags) {
        arrow.DragStart = start;
        arrow.PaintToBitmap(cache, 200, 100);
        EXPECT_EQ(arrow.ArrowDirection(), direction) << start.x() << "," << start.y();
    }
    // Direction 4: the head at the top left, the shaft narrowing to the
    // bottom right corner.
    EXPECT_EQ(AlphaAt(cache, 8, 4), 255);
    EXPECT_EQ(PixelAt(cache, 8, 4), clRed);
    int shaft = 0;
    for (int y = 0; y < 100; ++y)
        shaft += AlphaAt(cache, 106, y) ? 1 : 0;
    EXPECT_GE(shaft, 1);
    EXPECT_LE(shaft, 3);
    EXPECT_EQ(AlphaAt(cache, 195, 5), 0);
    EXPECT_EQ(AlphaAt(cache, 5, 95), 0);
}

TEST(ShapeDrawing, PenStaysInsideTheBox) {
    TIELayerList list;
    auto& rect =
        static_cast<TIEShapeLayer&>(*list.LayersAdd(ielkShape, QPointF(0, 0), QSizeF(100, 100)));
    rect.Shape = iesRectangle;
    rect.SetBorderWidth(8);
    for (bool antiAlias : {false, true}) {
        rect.AntiAlias = antiAlias;
        rect.Changed(true);
        const TIEBitmap& cache = *rect.CacheFor(100, 100);
        EXPECT_EQ(rect.RenderScale(), antiAlias ? 2 : 1);
        for (int edge : {0, 7, 92, 99}) {
            EXPECT_EQ(AlphaAt(cache, edge, 50), 255) << edge << " aa " << antiAlias;
            EXPECT_EQ(PixelAt(cache, edge, 50), clBlack) << edge << " aa " << antiAlias;
            EXPECT_EQ(PixelAt(cache, 50, edge), clBlack) << edge << " aa " << antiAlias;
        }
        EXPECT_EQ(PixelAt(cache, 8, 50), clRed) << "the fill begins right after the pen";
        EXPECT_EQ(PixelAt(cache, 91, 50), clRed);
    }
}

TEST(ShapeDrawing, EllipseWithoutFillIsHollow) {
    TIELayerList list;
    auto* ellipse =
        static_cast<TIEVectorLayer*>(list.LayersAdd(ielkShape, QPointF(0, 0), QSizeF(60, 40)));
    ellipse->SetFillColor(clNone);
    ellipse->SetBorderWidth(2);
    const TIEBitmap& cache = *ellipse->CacheFor(60, 40);
    EXPECT_EQ(AlphaAt(cache, 30, 20), 0);
    EXPECT_GT(AlphaAt(cache, 30, 0), 200);
    EXPECT_EQ(AlphaAt(cache, 0, 0), 0) << "corners lie outside the ellipse";
}

TEST(ShapeDrawing, SupersamplingStopsAtOneMillionPixels) {
    TIELayerList list;
    auto* shape = static_cast<TIEVectorLayer*>(list.LayersAdd(ielkShape));
    EXPECT_TRUE(shape->SupersampledFor(999, 1001));
    EXPECT_FALSE(shape->SupersampledFor(1000, 1000));
    shape->CacheFor(999, 1001);
    EXPECT_EQ(shape->RenderScale(), 2);
    shape->CacheFor(1000, 1000);
    EXPECT_EQ(shape->RenderScale(), 1);
    shape->AntiAlias = false;
    EXPECT_FALSE(shape->SupersampledFor(10, 10));
    auto* line = static_cast<TIEVectorLayer*>(list.LayersAdd(ielkLine));
    EXPECT_FALSE(line->SupersampledFor(10, 10)) << "only shapes are";
}

TEST(ShapeDrawing, CacheIsKeptUntilChangedOrResized) {
    TIELayerList list;
    auto* shape = static_cast<TIEVectorLayer*>(list.LayersAdd(ielkShape));
    // A mark put on the cache survives exactly as long as the cache is reused.
    auto mark = [&] { shape->CachedBitmap->Scanline(0)[0] = 77; };
    auto marked = [&] { return shape->CachedBitmap->Scanline(0)[0] == 77; };
    shape->CacheFor(50, 50);
    mark();
    shape->CacheFor(50, 50);
    EXPECT_TRUE(marked()) << "a valid cache is not drawn again";
    EXPECT_EQ(shape->CacheFor(60, 50)->Width(), 60);
    EXPECT_FALSE(marked());
    mark();
    shape->Changed(false);  // a move keeps the cache
    EXPECT_TRUE(shape->CacheValid);
    shape->CacheFor(60, 50);
    EXPECT_TRUE(marked());
    const uint64_t generation = shape->ContentGeneration();
    shape->SetFillColor(0x00FF00);
    EXPECT_FALSE(shape->CacheValid);
    EXPECT_NE(shape->ContentGeneration(), generation);
    EXPECT_EQ(PixelAt(*shape->CacheFor(60, 50), 30, 25), 0x00FF00u);
}

TEST(LineDrawing, DrawsTheLineAndNoHead) {
    TIELayerList list;
    auto& line = static_cast<TIELineLayer&>(*list.LayersAdd(ielkLine));
    line.SetBorderWidth(3);
    line.SetEndPoints(QPointF(10, 10), QPointF(90, 10));
    ASSERT_EQ(line.Height, 3 / 2.0 * 2 + 2);
    const TIEBitmap& cache = *line.CacheFor(int(line.Width), int(line.Height));
    const int mid = cache.Height() / 2;
    EXPECT_EQ(AlphaAt(cache, cache.Width() / 2, mid), 255);
    // The end carries no arrow head: nothing beyond the pen's width.
    EXPECT_EQ(AlphaAt(cache, cache.Width() - 3, 0), 0);
}

TEST(TextDrawing, AutoSizeMeasuresLinesAndWidth) {
    testing::EnsureGuiApp();
    TIELayerList list;
    auto& text = static_cast<TIETextLayer&>(*list.LayersAdd(ielkText));
    text.SetAutoSize(true);
    const double empty = text.Height;
    EXPECT_GT(empty, 10);
    text.SetText("short\nand a much longer line");
    EXPECT_NEAR(text.Height - 4, (empty - 4) * 2, 1) << "two lines";
    const double twoLines = text.Width;
    text.SetText("and a much longer line");
    EXPECT_EQ(text.Width, twoLines) << "the longest line decides";
    text.SetFont(TIEFont{"Arial", 28, clBlack});
    EXPECT_GT(text.Width, twoLines * 1.5);

    text.SetAutoSize(false);
    text.SetText("W");
    const TIEBitmap& cache = *text.CacheFor(int(text.Width), int(text.Height));
    int opaque = 0;
    for (int y = 0; y < cache.Height(); ++y)
        for (int x = 0; x < cache.Width(); ++x)
            opaque += AlphaAt(cache, x, y) == 255;
    EXPECT_GT(opaque, 20) << "the glyph is drawn";
}

TEST(Blend, ComposeFormulaAndVectorKernelAgree) {
    // Opaque white at opacity 0.5 and transparency 128 over black: 64.
    uint8_t src[4] = {255, 255, 255, 255}, dst[3] = {0, 0, 0};
    IEBlendPremulRow(dst, src, 1, IELayerOpacity(0.5, 128));
    EXPECT_NEAR(dst[0], 64, 1);

    using Kernel = void (*)(uint8_t*, const uint8_t*, int, int);
    std::vector<Kernel> kernels;
    if (blend_detail::HasVectorKernel()) kernels.push_back(blend_detail::BlendPremulRowVector);
    if (blend_detail::HasWideKernel()) kernels.push_back(blend_detail::BlendPremulRowWide);
    if (kernels.empty()) GTEST_SKIP() << "no vector kernel on this processor";
    std::mt19937 rng(7);
    // Every tail of both step widths, and one long row.
    std::vector<int> lengths(40);
    std::iota(lengths.begin(), lengths.end(), 1);
    lengths.push_back(333);
    for (int n : lengths) {
        for (int k : {255, 200, 1, 128}) {
            std::vector<uint8_t> s(size_t(n) * 4), d(size_t(n) * 3 + 4);
            for (size_t i = 0; i < s.size(); i += 4) {
                // Whole blocks of opaque pixels take the kernel's short cut.
                const bool opaqueBlock = (i / 64) % 3 == 1;
                const uint8_t a = uint8_t(opaqueBlock      ? 255
                                          : rng() % 4 == 0 ? 0
                                          : rng() % 4 == 0 ? 255
                                                           : rng());
                for (int c = 0; c < 3; ++c)
                    s[i + size_t(c)] = uint8_t(a ? rng() % (a + 1) : 0);
                s[i + 3] = a;
            }
            for (uint8_t& v : d)
                v = uint8_t(rng());
            auto scalar = d;
            blend_detail::BlendPremulRowScalar(scalar.data(), s.data(), n, k);
            for (Kernel kernel : kernels) {
                auto vector = d;
                kernel(vector.data(), s.data(), n, k);
                EXPECT_EQ(scalar, vector) << "n " << n << " k " << k;
            }
        }
    }
}

}  // namespace
}  // namespace qpt
