#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QPainter>
#include <map>
#include <memory>

#include "skin/PngImage.h"
#include "skin/RdgImage.h"

namespace qpt {
namespace {

QImage Filled(int w, int h, QRgb seed) {
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.setPixel(x, y, qRgb(qRed(seed) + x, qGreen(seed) + y, 7));
    return image;
}

// Stands in for the skin cache: one object per name, none for unknown names.
class RdgImageTest : public ::testing::Test {
protected:
    void SetUp() override {
        saved_ = SetGraphicResolver([this](const QString& name) -> TRdGraphic* {
            ++asked[name];
            auto it = graphics.find(name);
            return it == graphics.end() ? nullptr : it->second.get();
        });
    }
    // Later tests of the same program resolve through the skin cache again.
    void TearDown() override { SetGraphicResolver(std::move(saved_)); }
    TGraphicResolver saved_;

    TPngImage& AddPng(const QString& name, const QImage& pixels) {
        auto png = std::make_unique<TPngImage>();
        png->SetPixels(pixels);
        auto& slot = graphics[name];
        slot = std::move(png);
        return static_cast<TPngImage&>(*slot);
    }
    TRdgImage& AddRdg(const QString& name, const QStringList& lines) {
        auto rdg = std::make_unique<TRdgImage>();
        rdg->LoadFromText(lines);
        auto& slot = graphics[name];
        slot = std::move(rdg);
        return static_cast<TRdgImage&>(*slot);
    }

    std::map<QString, std::unique_ptr<TRdGraphic>> graphics;
    std::map<QString, int> asked;
};

TEST_F(RdgImageTest, NameOnlyShowsTheWholePictureAndFollowsItsChanges) {
    TPngImage& png = AddPng("images/bg.png", Filled(6, 4, qRgb(10, 20, 0)));
    TRdgImage rdg;
    int repaints = 0;
    rdg.SetOnChange([&] { ++repaints; });
    rdg.LoadFromText({"imgname=images/bg.png", "imgalpha=-1"});
    EXPECT_EQ(asked["images/bg.png"], 0);  // nothing is looked up before use
    EXPECT_EQ(rdg.Width(), 6);
    EXPECT_EQ(rdg.Height(), 4);
    EXPECT_EQ(rdg.DrawAlpha(), 255);

    QImage target(6, 4, QImage::Format_ARGB32_Premultiplied);
    target.fill(0);
    QPainter painter(&target);
    rdg.Draw(painter, target.rect());
    painter.end();
    EXPECT_EQ(target, png.Pixels());

    // The cache reloads the picture in place: the description sees it at once.
    repaints = 0;
    png.SetAlphaBlendValue(90);
    png.SetPixels(Filled(8, 2, qRgb(0, 0, 0)));
    EXPECT_GE(repaints, 1);
    EXPECT_EQ(rdg.DrawAlpha(), 90);
    EXPECT_EQ(rdg.Width(), 8);
    EXPECT_EQ(asked["images/bg.png"], 1);
}

TEST_F(RdgImageTest, RectangleCutsThePicture) {
    AddPng("p.png", Filled(10, 10, qRgb(0, 0, 0)));
    TRdgImage rdg;
    rdg.LoadFromText({"imgname=p.png", "imgrect=2,3,7"});  // missing bottom reads as 0
    EXPECT_EQ(rdg.Width(), 5);
    EXPECT_EQ(rdg.Height(), 0);
    rdg.LoadFromText({"imgname=p.png", "imgrect=2,3,7,9"});
    EXPECT_EQ(rdg.Width(), 5);
    EXPECT_EQ(rdg.Height(), 6);
    EXPECT_EQ(rdg.GetPixel(0, 0), qRgb(2, 3, 7));
    EXPECT_EQ(rdg.GetPixel(5, 0), 0u);
}

TEST_F(RdgImageTest, InheritanceRespectsForcedKeysBothWays) {
    AddPng("p.png", Filled(12, 12, qRgb(0, 0, 0)));
    AddRdg("[base]",
           {"imgname=p.png", "imgrect!=0,0,4,4", "imgalpha=100", "imgopt=1,1,1,1,2", "duration=0"});
    TRdgImage child;
    child.LoadFromText({"imgname=[base]", "imgrect=1,1,3,3", "imgalpha!=50", "imgopt!=2,2,2,2,3"});
    ASSERT_EQ(child.Width(), 4);  // resolving merges the source's keys
    EXPECT_EQ(child.ImgRect(), (TImgRect{0, 0, 4, 4}));
    EXPECT_EQ(child.AlphaBlendValue(), 50);
    EXPECT_EQ(child.DrawAlpha(), 50);
    EXPECT_EQ(child.ImgOpt().Left(), 2);
    EXPECT_EQ(child.ImgOpt().StretchMode(), TSuperStretchMode::sdmFrame);
    EXPECT_TRUE(child.Values().contains("imgrect=0,0,4,4"));
    EXPECT_FALSE(child.Values().contains("imgname=p.png"));

    QStringList stored;
    child.ToValues(stored);
    EXPECT_TRUE(stored.contains("imgname=[base]"));
    EXPECT_TRUE(stored.contains("imgalpha!=50"));
    EXPECT_TRUE(stored.contains("imgopt!=2,2,2,2,3"));
    EXPECT_FALSE(stored.contains("imgrect=0,0,4,4"));
    EXPECT_FALSE(stored.contains("imgalpha=100"));

    TRdgImage plain;
    plain.LoadFromText({"imgname=[base]"});
    EXPECT_EQ(plain.DrawAlpha(), 100);
    EXPECT_EQ(plain.ImgOpt().Left(), 1);
    EXPECT_EQ(plain.ImgOpt().StretchMode(), TSuperStretchMode::sdmFill);
}

TEST_F(RdgImageTest, MissingOrCircularSourcesDrawNothing) {
    AddRdg("[a]", {"imgname=[b]"});
    AddRdg("[b]", {"imgname=[a]"});
    for (const char* name : {"imgname=[nothere]", "imgname=[a]", "imgname="}) {
        TRdgImage rdg;
        rdg.LoadFromText({name});
        EXPECT_EQ(rdg.Width(), 0) << name;
        EXPECT_EQ(rdg.ResolvedImage(), nullptr);
        QImage target(4, 4, QImage::Format_ARGB32_Premultiplied);
        target.fill(0xFF123456);
        QPainter painter(&target);
        rdg.Draw(painter, target.rect());
        painter.end();
        EXPECT_EQ(target.pixel(1, 1), 0xFF123456u);
    }
}

TEST_F(RdgImageTest, FramesAnimateWhilePaintedAndTheTimerGoesWhenNot) {
    int argc = 0;
    if (!QCoreApplication::instance()) static QCoreApplication app(argc, nullptr);
    for (int i = 1; i <= 3; ++i)
        AddPng(QString("f%1.png").arg(i), Filled(i, 1, 0));
    TRdgImage rdg;
    rdg.LoadFromText({"imgname=f%d.png<1-3>", "duration=300"});
    EXPECT_EQ(rdg.PlayIndex(), 1);
    EXPECT_EQ(rdg.TimerInterval(), 100);
    EXPECT_EQ(rdg.Width(), 1);
    rdg.PrepareDraw(1000);
    EXPECT_TRUE(rdg.HasTimer());
    rdg.AnimationTick(1100);
    EXPECT_EQ(rdg.Width(), 2);
    rdg.AnimationTick(1200);
    rdg.AnimationTick(1300);
    EXPECT_EQ(rdg.PlayIndex(), 1);  // wrapped after the last frame
    rdg.AnimationTick(1000 + 3000);
    EXPECT_TRUE(rdg.HasTimer());
    rdg.AnimationTick(1000 + 3001);
    EXPECT_FALSE(rdg.HasTimer());

    // Without a duration "<" is just part of the name.
    TRdgImage still;
    still.LoadFromText({"imgname=f%d.png<1-3>"});
    EXPECT_EQ(still.PlayIndex(), -1);
    EXPECT_EQ(still.Width(), 0);
    EXPECT_EQ(asked["f%d.png<1-3>"], 1);
}

TEST_F(RdgImageTest, InheritedAnimationAndClearing) {
    AddPng("f2.png", Filled(2, 2, 0));
    AddRdg("[anim]", {"imgname=f%d.png<2-4>", "duration=900"});
    TRdgImage child;
    child.LoadFromText({"imgname=[anim]"});
    EXPECT_EQ(child.Width(), 2);
    EXPECT_EQ(child.PlayIndex(), 2);
    EXPECT_EQ(child.Duration(), 900);
    EXPECT_TRUE(child.Values().contains("PlayImgName=f%d.png"));

    child.LoadValues(nullptr, false);
    EXPECT_TRUE(child.Values().isEmpty());
    EXPECT_EQ(child.PlayIndex(), -1);
    EXPECT_EQ(child.Width(), 0);
}

TEST_F(RdgImageTest, AskingForSlicingCutsInThirdsAndFixesIt) {
    AddPng("p.png", Filled(9, 6, 0));
    TRdgImage rdg;
    rdg.LoadFromText({"imgname=p.png"});
    rdg.ImgOpt().SetEmpty(false);
    EXPECT_EQ(rdg.ImgOpt().Left(), 3);
    EXPECT_EQ(rdg.ImgOpt().Bottom(), 2);
    QStringList stored;
    rdg.ToValues(stored);
    EXPECT_TRUE(stored.contains("imgopt!=3,2,3,2,0"));
}

TEST_F(RdgImageTest, SourceGoingAwayIsForgotten) {
    TRdgImage rdg;
    {
        TPngImage& png = AddPng("gone.png", Filled(3, 3, 0));
        rdg.LoadFromText({"imgname=gone.png"});
        EXPECT_EQ(rdg.Width(), 3);
        EXPECT_EQ(png.ReferrerCount(), 1u);
        graphics.erase("gone.png");
    }
    EXPECT_EQ(rdg.BaseImage(), nullptr);
    EXPECT_EQ(rdg.Width(), 0);
}

}  // namespace
}  // namespace qpt
