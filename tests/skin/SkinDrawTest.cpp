#include <gtest/gtest.h>

#include <QPainter>

#include "skin/DesignRect.h"
#include "skin/PngImage.h"
#include "skin/SkinDraw.h"

namespace qpt {
namespace {

constexpr QRgb kBackground = 0xFFFF00FF;

// A picture whose nine parts each have their own colour, with a centre of
// `centre` pixels that carries a pattern so that tiling can be seen.
QImage NinePart(int border, int centre) {
    const int size = 2 * border + centre;
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    auto band = [&](int v) { return v < border ? 0 : v < border + centre ? 1 : 2; };
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int part = band(y) * 3 + band(x);
            const int detail = part == 4 ? (x - border) * 7 + (y - border) * 31 : 0;
            image.setPixel(x, y, qRgb(20 * part, detail, 255 - 20 * part));
        }
    }
    return image;
}

QRgb PartColour(int part) {
    return qRgb(20 * part, 0, 255 - 20 * part);
}

QImage Draw(TPngImage& picture, QSize size, const TDesignRect* slicing) {
    QImage target(size, QImage::Format_ARGB32_Premultiplied);
    target.fill(kBackground);
    QPainter painter(&target);
    SkinDraw(painter, QRect(QPoint(0, 0), size), &picture, slicing);
    return target;
}

TDesignRect Slicing(int border, TSuperStretchMode mode) {
    TDesignRect slicing;
    slicing.Set(border, border, border, border, mode);
    return slicing;
}

TEST(SkinDraw, OwnSizeComesOutUnchangedInEveryMode) {
    TPngImage picture;
    picture.SetPixels(NinePart(3, 5));
    for (auto mode : {TSuperStretchMode::sdmDefault, TSuperStretchMode::sdmStretch,
                      TSuperStretchMode::sdmFill}) {
        const TDesignRect slicing = Slicing(3, mode);
        EXPECT_EQ(Draw(picture, QSize(11, 11), &slicing), picture.Pixels()) << int(mode);
    }
    EXPECT_EQ(Draw(picture, QSize(11, 11), nullptr), picture.Pixels());
}

TEST(SkinDraw, StretchKeepsCornersAndTakesEachSliceEdgeFromItsPart) {
    TPngImage picture;
    picture.SetPixels(NinePart(3, 1));  // 7 x 7, a flat one-pixel centre
    const TDesignRect slicing = Slicing(3, TSuperStretchMode::sdmStretch);
    const QImage out = Draw(picture, QSize(30, 20), &slicing);
    EXPECT_EQ(out.pixel(0, 0), PartColour(0));
    EXPECT_EQ(out.pixel(2, 2), PartColour(0));
    EXPECT_EQ(out.pixel(3, 0), PartColour(1));
    EXPECT_EQ(out.pixel(26, 2), PartColour(1));
    EXPECT_EQ(out.pixel(27, 0), PartColour(2));
    EXPECT_EQ(out.pixel(0, 3), PartColour(3));
    EXPECT_EQ(out.pixel(3, 3), qRgb(80, 0, 175));
    EXPECT_EQ(out.pixel(26, 16), qRgb(80, 0, 175));
    EXPECT_EQ(out.pixel(29, 16), PartColour(5));
    EXPECT_EQ(out.pixel(2, 17), PartColour(6));
    EXPECT_EQ(out.pixel(15, 19), PartColour(7));
    EXPECT_EQ(out.pixel(29, 19), PartColour(8));
}

TEST(SkinDraw, StretchAtOwnHeightDrawsTheRowsWhole) {
    TPngImage picture;
    picture.SetPixels(NinePart(3, 1));
    const TDesignRect slicing = Slicing(3, TSuperStretchMode::sdmStretch);
    const QImage out = Draw(picture, QSize(20, 7), &slicing);
    // Top and bottom are ignored: the left column is stretched whole-height.
    EXPECT_EQ(out.pixel(0, 0), PartColour(0));
    EXPECT_EQ(out.pixel(0, 3), PartColour(3));
    EXPECT_EQ(out.pixel(10, 0), PartColour(1));
    EXPECT_EQ(out.pixel(19, 6), PartColour(8));
}

TEST(SkinDraw, FillTilesTheCentreAndCutsTheLastTile) {
    TPngImage picture;
    picture.SetPixels(NinePart(3, 5));  // 11 x 11
    const TDesignRect slicing = Slicing(3, TSuperStretchMode::sdmFill);
    const QImage out = Draw(picture, QSize(3 + 12 + 3, 3 + 7 + 3), &slicing);
    const QImage& source = picture.Pixels();
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 12; ++x)
            ASSERT_EQ(out.pixel(3 + x, 3 + y), source.pixel(3 + x % 5, 3 + y % 5)) << x << "," << y;
    EXPECT_EQ(out.pixel(17, 12), PartColour(8));
}

TEST(SkinDraw, FrameLeavesTheCentreUntouched) {
    TPngImage picture;
    picture.SetPixels(NinePart(3, 5));
    const TDesignRect slicing = Slicing(3, TSuperStretchMode::sdmFrame);
    const QImage out = Draw(picture, QSize(40, 30), &slicing);
    for (int y = 3; y < 27; ++y)
        for (int x = 3; x < 37; ++x)
            ASSERT_EQ(out.pixel(x, y), kBackground) << x << "," << y;
    EXPECT_EQ(out.pixel(2, 2), PartColour(0));
    EXPECT_EQ(out.pixel(20, 1), PartColour(1));
    EXPECT_EQ(out.pixel(39, 29), PartColour(8));
}

TEST(SkinDraw, EmptySlicingStretchesTheWholePicture) {
    TPngImage picture;
    picture.SetPixels(NinePart(1, 1));  // 3 x 3
    const TDesignRect none;
    const QImage out = Draw(picture, QSize(9, 9), &none);
    EXPECT_EQ(out.pixel(2, 2), PartColour(0));
    EXPECT_EQ(out.pixel(3, 0), PartColour(1));
    EXPECT_EQ(out.pixel(8, 8), PartColour(8));
}

TEST(DrawPart, AlphaGreyAndSmoothing) {
    TPngImage picture;
    QImage two(2, 1, QImage::Format_ARGB32);
    two.setPixel(0, 0, qRgb(200, 100, 0));
    two.setPixel(1, 0, qRgb(0, 0, 250));
    picture.SetPixels(two);
    auto draw = [&](QSize size, int alpha, bool gray, TPngSmoothFilter smooth) {
        QImage target(size, QImage::Format_ARGB32_Premultiplied);
        target.fill(Qt::black);
        QPainter painter(&target);
        picture.DrawPart(painter, target.rect(), QRect(0, 0, 2, 1), alpha, gray, smooth);
        painter.end();
        return target;
    };
    const QImage half = draw(QSize(2, 1), 128, false, TPngSmoothFilter::psfDefault);
    EXPECT_NEAR(qRed(half.pixel(0, 0)), 100, 2);
    EXPECT_EQ(draw(QSize(2, 1), 0, false, TPngSmoothFilter::psfDefault).pixel(0, 0), qRgb(0, 0, 0));
    const int grey = (77 * 200 + 151 * 100) >> 8;
    EXPECT_EQ(draw(QSize(2, 1), 255, true, TPngSmoothFilter::psfDefault).pixel(0, 0),
              qRgb(grey, grey, grey));

    auto blended = [](const QImage& row) {
        for (int x = 0; x < row.width(); ++x)
            if (row.pixel(x, 0) != qRgb(200, 100, 0) && row.pixel(x, 0) != qRgb(0, 0, 250))
                return true;
        return false;
    };
    EXPECT_FALSE(blended(draw(QSize(16, 1), 255, false, TPngSmoothFilter::psfDefault)));
    EXPECT_TRUE(blended(draw(QSize(16, 1), 255, false, TPngSmoothFilter::psfFastSmooth)));
    EXPECT_TRUE(blended(draw(QSize(16, 1), 255, false, TPngSmoothFilter::psfSmooth)));
    picture.SetSmoothFilter(TPngSmoothFilter::psfFastSmooth);  // the picture's own level
    EXPECT_TRUE(blended(draw(QSize(16, 1), 255, false, TPngSmoothFilter::psfDefault)));
}

TEST(DesignRect, SizesShorthandsAndDefaultSlicing) {
    TDesignRect slicing;
    int changes = 0;
    slicing.OnChange = [&] { ++changes; };
    slicing.SetSizes(4, 5, TDesignRect::kSameAsOpposite, TDesignRect::kSameAsOpposite);
    EXPECT_EQ(slicing.Right(), 4);
    EXPECT_EQ(slicing.Bottom(), 5);
    slicing.SetSizes(9, 1, 2, TDesignRect::kUnchanged);  // left and right stay
    EXPECT_EQ(slicing.Left(), 4);
    EXPECT_EQ(slicing.Top(), 1);
    EXPECT_EQ(slicing.Bottom(), 2);
    EXPECT_EQ(changes, 2);
    slicing.SetStretchMode(TSuperStretchMode::sdmFill);
    slicing.SetEmpty(true);
    EXPECT_TRUE(slicing.Empty());
    EXPECT_EQ(slicing.StretchMode(), TSuperStretchMode::sdmDefault);
}

}  // namespace
}  // namespace qpt
