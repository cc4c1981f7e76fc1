#include <gtest/gtest.h>

#include <QPainter>

#include "skin/RdBitmap.h"
#include "skin/RdStretchImage.h"
#include "tests/skin/SendInput.h"
#include "tests/skin/SolidPicture.h"

namespace qpt {
namespace {

using namespace qpt::testing;

TEST(StretchImage, BackgroundStretchesAndThePictureKeepsItsCorners) {
    TRdStretchImage image;
    image.resize(40, 20);
    SetSolidPicture(*image.Picture_Bg(), 2, 2, 0xFF0000FF);
    // A 6 by 6 frame: red corners of 2, transparent elsewhere.
    QImage frame(6, 6, QImage::Format_ARGB32);
    frame.fill(Qt::transparent);
    for (QPoint c : {QPoint(0, 0), QPoint(4, 0), QPoint(0, 4), QPoint(4, 4)})
        for (int d = 0; d < 4; ++d)
            frame.setPixel(c + QPoint(d % 2, d / 2), 0xFFFF0000);
    auto png = std::make_unique<TPngImage>();
    png->SetPixels(frame);
    image.Picture()->Picture().SetGraphic(std::move(png));
    image.StretchOption()->Rect().Set(2, 2, 2, 2, TSuperStretchMode::sdmStretch);
    bool painted = false;
    image.OnPaint = [&](TRdPaintBox&, QPainter&) { painted = true; };

    const QImage shot = RenderWidget(image);
    EXPECT_EQ(shot.pixel(1, 1), 0xFFFF0000u);
    EXPECT_EQ(shot.pixel(38, 18), 0xFFFF0000u);
    EXPECT_EQ(shot.pixel(2, 2), 0xFF0000FFu) << "the background shows between the corners";
    EXPECT_EQ(shot.pixel(20, 10), 0xFF0000FFu);
    EXPECT_TRUE(painted);
}

TEST(Bitmap, KeepsAlphaFromAnySourceAndWhenDrawn) {
    TRdBitmap bitmap(3, 2);
    EXPECT_EQ(bitmap.Pixel(2, 1), 0u) << "made transparent";
    EXPECT_EQ(bitmap.Pixel(3, 0), 0u) << "outside";

    QImage half(2, 2, QImage::Format_ARGB32);
    half.fill(qRgba(200, 100, 50, 128));
    bitmap.Assign(half);
    EXPECT_EQ(qAlpha(bitmap.Pixel(0, 0)), 128);
    EXPECT_NEAR(qRed(bitmap.Pixel(0, 0)), 200, 2);
    QImage opaque(2, 2, QImage::Format_RGB32);
    opaque.fill(qRgb(1, 2, 3));
    bitmap.Assign(opaque);
    EXPECT_EQ(bitmap.Pixel(1, 1), qRgba(1, 2, 3, 255));

    QImage target(2, 2, QImage::Format_ARGB32);
    target.fill(Qt::transparent);
    QPainter painter(&target);
    bitmap.Draw(painter, QPoint(0, 0), 51);
    painter.end();
    EXPECT_NEAR(qAlpha(target.pixel(0, 0)), 51, 2);

    bitmap.SetSize(0, 5);
    EXPECT_TRUE(bitmap.Empty());
}

}  // namespace
}  // namespace qpt
