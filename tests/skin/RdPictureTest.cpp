#include <gtest/gtest.h>

#include <QPainter>
#include <QTemporaryDir>

#include "skin/FillSkinRect.h"
#include "skin/PngImage.h"
#include "skin/RdPicture.h"
#include "skin/RdgImage.h"

namespace qpt {
namespace {

QByteArray SmallPng() {
    TPngImage png;
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(qRgba(10, 200, 30, 255));
    image.setPixel(2, 1, qRgba(0, 0, 0, 0));
    png.SetPixels(image);
    return png.SaveToBytes();
}

QByteArray Data(const QByteArray& className, const QByteArray& stream) {
    return char(className.size()) + className + stream;
}

TEST(RdPicture, DataFormRoundTripsAndAcceptsOlderClassNames) {
    TRdPicture picture;
    ASSERT_TRUE(picture.ReadData(Data("TPNGGraphic", SmallPng())));
    auto* png = dynamic_cast<TPngImage*>(picture.Graphic());
    ASSERT_NE(png, nullptr);
    EXPECT_EQ(png->Width(), 3);
    const QByteArray written = picture.WriteData();
    EXPECT_TRUE(written.startsWith("\x09TPngImage\x89PNG"));

    TRdPicture again;
    ASSERT_TRUE(again.ReadData(written));
    EXPECT_EQ(dynamic_cast<TPngImage*>(again.Graphic())->Pixels(), png->Pixels());

    // An unknown class that carries PNG data is still a picture.
    EXPECT_TRUE(again.ReadData(Data("TSomethingElse", SmallPng())));
    EXPECT_NE(dynamic_cast<TPngImage*>(again.Graphic()), nullptr);
}

TEST(RdPicture, BadDataLeavesNoGraphic) {
    TRdPicture picture;
    EXPECT_FALSE(picture.ReadData(Data("TSomethingElse", "not a picture")));
    EXPECT_EQ(picture.Graphic(), nullptr);
    EXPECT_FALSE(picture.ReadData(QByteArray("\xC8TPng", 5)));  // length byte beyond the data
    EXPECT_EQ(picture.Graphic(), nullptr);
    EXPECT_FALSE(picture.ReadData({}));
    EXPECT_FALSE(picture.ReadData(Data("TPngImage", SmallPng().left(40))));
    ASSERT_NE(picture.Graphic(), nullptr);
    EXPECT_TRUE(picture.Graphic()->Empty());
    EXPECT_FALSE(picture.LoadFromFile("/nonexistent/picture.bmp"));
}

TEST(RdPicture, TextFormReadsIntoTheDescriptionItHolds) {
    TRdPicture picture;
    int changes = 0;
    picture.OnChange = [&] { ++changes; };
    picture.ReadText({"imgname=images/a.png", "imgalpha!=80"});
    auto* rdg = dynamic_cast<TRdgImage*>(picture.Graphic());
    ASSERT_NE(rdg, nullptr);
    picture.ReadText({"imgname=images/b.png"});
    EXPECT_EQ(picture.Graphic(), rdg);
    EXPECT_EQ(rdg->ImgName(), "images/b.png");
    EXPECT_GE(changes, 2);

    QStringList lines;
    EXPECT_TRUE(picture.WriteText(lines, nullptr));
    EXPECT_TRUE(lines.contains("imgname=images/b.png"));
    TRdPicture ancestor;
    ancestor.ReadText({"imgname=images/b.png"});
    EXPECT_FALSE(picture.WriteText(lines, &ancestor));
    ancestor.ReadText({"imgname=images/c.png"});
    EXPECT_TRUE(picture.WriteText(lines, &ancestor));

    TRdPicture data;
    ASSERT_TRUE(data.ReadData(picture.WriteData()));
    EXPECT_EQ(dynamic_cast<TRdgImage*>(data.Graphic())->ImgName(), "images/b.png");

    TRdPicture png;
    png.ReadData(Data("TPngImage", SmallPng()));
    EXPECT_FALSE(png.WriteText(lines, nullptr));
}

QImage Fill(quint32 from, quint32 to, TGradientDirection direction) {
    QImage target(100, 10, QImage::Format_ARGB32_Premultiplied);
    target.fill(qRgb(0, 0, 0));
    QPainter painter(&target);
    FillSkinRect(painter, target.rect(), from, to, direction);
    return target;
}

TEST(FillSkinRect, SolidGradientAndAlpha) {
    // Colours are 0x00BBGGRR with alpha on top; alpha 0 means opaque.
    EXPECT_EQ(Fill(0x000000FF, 0x20000000, TGradientDirection::gdHorizontal).pixel(50, 5),
              qRgb(255, 0, 0));
    const QImage half = Fill(0x80FFFFFF, 0x80FFFFFF, TGradientDirection::gdHorizontal);
    EXPECT_NEAR(qRed(half.pixel(3, 3)), 128, 2);
    EXPECT_EQ(Fill(0x1FFFFFFF, 0x1FFFFFFF, TGradientDirection::gdHorizontal).pixel(3, 3),
              qRgb(0, 0, 0));

    const QImage across = Fill(0x000000FF, 0x00FF0000, TGradientDirection::gdHorizontal);
    EXPECT_GT(qRed(across.pixel(0, 0)), 245);
    EXPECT_GT(qBlue(across.pixel(99, 0)), 245);
    EXPECT_NEAR(qRed(across.pixel(50, 0)), 128, 8);
    EXPECT_EQ(across.pixel(50, 0), across.pixel(50, 9));

    // The alpha ramps too: from clear to opaque white, downwards.
    const QImage down = Fill(0x1FFFFFFF, 0x00FFFFFF, TGradientDirection::gdVertical);
    EXPECT_LT(qRed(down.pixel(50, 0)), 30);
    EXPECT_GT(qRed(down.pixel(50, 9)), 200);
}

}  // namespace
}  // namespace qpt
