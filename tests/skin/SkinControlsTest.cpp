#include <gtest/gtest.h>

#include <QImage>

#include "skin/PngImage.h"
#include "skin/RdComboBox.h"
#include "skin/RdEdit.h"
#include "skin/RdImage.h"
#include "skin/RdPaintBox.h"
#include "skin/RdPanel.h"
#include "skin/SkinReader.h"
#include "tests/common/QtPrinters.h"
#include "tests/skin/SkinPackageBuilder.h"

namespace qpt {
namespace {

// What the control paints, over nothing.
QImage Render(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

TEST(SkinControls, EdgesCanBeSetFromEitherSideOfTheParent) {
    TRdPanel parent;
    parent.resize(200, 100);
    TRdPaintBox box(&parent);
    box.setGeometry(10, 20, 30, 40);
    EXPECT_EQ(box.Left_Right(), 40);
    EXPECT_EQ(box.Top_Bottom(), 60);
    EXPECT_EQ(box.Left_Invert(), 160);
    EXPECT_EQ(box.Top_Invert(), 40);

    box.SetLeft_Invert(0);
    EXPECT_EQ(box.Left(), 170);
    EXPECT_EQ(TSkinReader::SetPropertyText(&box, "Top_Invert", "10"),
              TSkinReader::TResult::Applied);
    EXPECT_EQ(box.Top(), 50);
    box.SetLeft_Right(30);
    EXPECT_EQ(box.geometry(), QRect(0, 50, 30, 40));

    TRdPaintBox orphan;
    orphan.setGeometry(5, 5, 10, 10);
    EXPECT_EQ(orphan.Left_Invert(), -15);

    // Controls over other Qt bases take the same properties from a skin.
    TRdEdit edit(&parent);
    TRdComboBox combo(&parent);
    for (QWidget* control : {static_cast<QWidget*>(&edit), static_cast<QWidget*>(&combo)}) {
        control->setGeometry(10, 20, 50, 24);
        EXPECT_EQ(TSkinReader::SetPropertyText(control, "Left_Invert", "5"),
                  TSkinReader::TResult::Applied);
        EXPECT_EQ(TSkinReader::SetPropertyText(control, "Top_Bottom", "90"),
                  TSkinReader::TResult::Applied);
        EXPECT_EQ(control->geometry(), QRect(145, 66, 50, 24));
    }
}

TEST(SkinControls, HitTestLetsTheMouseThrough) {
    TRdPaintBox box;
    EXPECT_TRUE(box.HitTest());
    box.SetHitTest(false);
    EXPECT_TRUE(box.testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST(SkinFont, HeightSizeAndStyleMapToTheDrawingFont) {
    TRdFont font;
    int changes = 0;
    QObject::connect(&font, &TRdFont::Changed, [&] { ++changes; });
    font.SetSize(12);
    EXPECT_EQ(font.Height(), -16);
    EXPECT_EQ(font.Size(), 12);
    font.SetStyle(TRdFont::fsBold | TRdFont::fsStrikeOut);
    QFont q = font.ToQFont();
    EXPECT_EQ(q.pixelSize(), 16);
    EXPECT_TRUE(q.bold());
    EXPECT_TRUE(q.strikeOut());
    EXPECT_FALSE(q.italic());
    EXPECT_EQ(changes, 2);

    font.BeginUpdate();
    font.SetHeight(24);
    font.SetAlpha(999);
    font.EndUpdate();
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(font.Alpha(), 255);
    // A positive height is the cell: ascent plus descent.
    EXPECT_NEAR(font.FontHeight(), 24, 2);
    EXPECT_GT(font.FontBaseLine(), font.FontTopLine());
}

TEST(SkinFont, ParentFontFollowsUntilChangedDirectly) {
    TRdPanel parent;
    TRdPanel child(&parent);
    child.Font()->SetParentFont(true);
    parent.Font()->SetName("Parent Face");
    parent.Font()->SetHeight(-18);
    EXPECT_EQ(child.Font()->Name(), "Parent Face");
    EXPECT_EQ(child.Font()->Height(), -18);
    EXPECT_TRUE(child.Font()->ParentFont());

    child.Font()->SetHeight(-9);
    EXPECT_FALSE(child.Font()->ParentFont());
    parent.Font()->SetHeight(-30);
    EXPECT_EQ(child.Font()->Height(), -9);
}

TEST(SkinImage, DrawsItsPictureWhereAskedWithTheSkinAlpha) {
    TRdImage image;
    image.resize(10, 8);
    auto png = std::make_unique<TPngImage>();
    ASSERT_TRUE(png->LoadFromBytes(testing::PngBytes(2, 2, qRgb(255, 0, 0))));
    image.Picture()->Picture().SetGraphic(std::move(png));

    EXPECT_EQ(image.DestRect(), QRect(0, 0, 2, 2));
    image.SetCenter(true);
    EXPECT_EQ(image.DestRect(), QRect(4, 3, 2, 2));
    image.SetStretch(true);
    EXPECT_EQ(image.DestRect(), QRect(0, 0, 10, 8));
    image.SetProportional(true);
    EXPECT_EQ(image.DestRect(), QRect(1, 0, 8, 8));

    QImage shot = Render(image);
    EXPECT_EQ(shot.pixel(0, 4), 0u);
    EXPECT_EQ(shot.pixel(5, 4), qRgba(255, 0, 0, 255));
    image.AllSkin()->Draw()->SetDrawAlpha(128);
    shot = Render(image);
    EXPECT_NEAR(qAlpha(shot.pixel(5, 4)), 128, 2);

    bool before = false;
    bool after = false;
    image.OnPaint = [&](TRdImage&, QPainter&) { before = !after; };
    image.OnPaintEnd = [&](TRdImage&, QPainter&) { after = true; };
    Render(image);
    EXPECT_TRUE(before && after);
}

}  // namespace
}  // namespace qpt
