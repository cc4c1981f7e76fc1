#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>

#include "skin/PngImage.h"
#include "skin/RdFormShadowBg.h"
#include "skin/RdFormSkin.h"
#include "skin/RdTimer.h"
#include "skin/SkinReader.h"
#include "tests/common/QtPrinters.h"
#include "tests/skin/SkinPackageBuilder.h"

namespace qpt {
namespace {

constexpr QRgb kShadowColor = qRgb(255, 0, 0);

// A form that paints all of itself, so that whatever shows at its edges
// after a paint was drawn over its own painting.
class PaintedForm : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), Qt::green); }
};

class FormSkinTest : public ::testing::Test {
protected:
    void SetUp() override {
        form.setGeometry(100, 80, 200, 120);
        skin = new TRdFormSkin(&form);
        skin->setObjectName("RdFormSkinMain");
    }
    void TearDown() override { QApplication::processEvents(); }

    // The pinned window's shadow, on a plain picture.
    void GiveShadow(int margin = 15) {
        auto png = std::make_unique<TPngImage>();
        ASSERT_TRUE(png->LoadFromBytes(testing::PngBytes(40, 40, kShadowColor)));
        skin->PicShadow()->Picture().SetGraphic(std::move(png));
        skin->PicShadowOption()->Rect().Set(15, 15, 15, 15, TSuperStretchMode::sdmFrame);
        skin->ShadowFrame()->SetAll(margin);
        skin->ShadowFrame()->SetEnabled(true);
    }

    TRdFormShadowBg& Shadow() { return *skin->Shadow(); }

    QWidget form;
    TRdFormSkin* skin = nullptr;
};

TEST_F(FormSkinTest, OneSkinPerFormAndTheSecondNamesTheFirst) {
    EXPECT_EQ(TRdFormSkin::SkinOf(&form), skin);
    EXPECT_EQ(skin->OwnerForm(), &form);
    try {
        TRdFormSkin second(&form);
        FAIL() << "a second skin was made";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "can not create 2rd TRdFormSkin, exists: RdFormSkinMain");
    }
    EXPECT_EQ(form.findChildren<TRdFormSkin*>(Qt::FindDirectChildrenOnly).size(), 1);

    QWidget other;
    EXPECT_EQ(TRdFormSkin::SkinOf(&other), nullptr);
    EXPECT_EQ(TRdFormSkin::SkinOf(nullptr), nullptr);
    delete skin;
    skin = new TRdFormSkin(&form);
    EXPECT_EQ(TRdFormSkin::SkinOf(&form), skin);
}

TEST_F(FormSkinTest, SkinLinesReachTheParts) {
    for (const auto& [path, value] : {std::pair{"ShadowFrame.Left", "15"},
                                      {"ShadowFrame.Enabled", "True"},
                                      {"PicShadowOption.StretchMode", "sdmFrame"},
                                      {"BorderLines.Width", "3"}})
        EXPECT_EQ(TSkinReader::SetPropertyText(skin, path, value), TSkinReader::TResult::Applied)
            << path;
    EXPECT_EQ(skin->ShadowFrame()->Left(), 15);
    EXPECT_TRUE(skin->ShadowFrame()->Enabled());
    EXPECT_EQ(skin->PicShadowOption()->StretchMode(), TDesignRectProperty::sdmFrame);
    EXPECT_EQ(skin->BorderLines()->Width(), 3);
    // The shadow needs the form without its system frame.
    EXPECT_TRUE(form.windowFlags() & Qt::FramelessWindowHint);
}

TEST_F(FormSkinTest, ShadowFollowsTheFormByTheMargins) {
    GiveShadow();
    skin->ShadowFrame()->SetRight(9);
    skin->ShadowFrame()->SetBottom(11);
    form.show();
    EXPECT_EQ(Shadow().geometry(), QRect(85, 65, 224, 146));
    form.move(300, 200);
    EXPECT_EQ(Shadow().geometry(), QRect(285, 185, 224, 146));
    form.resize(250, 100);
    EXPECT_EQ(Shadow().geometry(), QRect(285, 185, 274, 126));

    const QWidget& shadow = Shadow();
    EXPECT_TRUE(shadow.isWindow());
    EXPECT_TRUE(shadow.testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_TRUE(shadow.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(shadow.windowFlags() & Qt::WindowDoesNotAcceptFocus);
    EXPECT_TRUE(shadow.windowFlags() & Qt::WindowTransparentForInput);
}

TEST_F(FormSkinTest, ShadowIsSeenOnlyWhileTheFormIs) {
    GiveShadow();
    EXPECT_FALSE(Shadow().isVisible());
    form.show();
    EXPECT_TRUE(Shadow().isVisible());
    EXPECT_FALSE(skin->ShadowWanted(true)) << "a forced hide";

    form.showMinimized();
    EXPECT_FALSE(Shadow().isVisible());
    form.showNormal();
    EXPECT_TRUE(Shadow().isVisible());

    skin->SetHideShadow(true);
    EXPECT_FALSE(Shadow().isVisible());
    form.move(120, 90);
    EXPECT_FALSE(Shadow().isVisible()) << "told to hide, it stays hidden";
    skin->SetHideShadow(false);
    EXPECT_TRUE(Shadow().isVisible());

    skin->ShadowFrame()->SetEnabled(false);
    EXPECT_FALSE(Shadow().isVisible());
    skin->ShadowFrame()->SetEnabled(true);
    EXPECT_TRUE(Shadow().isVisible());

    form.setWindowFlag(Qt::WindowStaysOnTopHint);
    form.show();
    EXPECT_TRUE(Shadow().windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(Shadow().isVisible());

    form.hide();
    EXPECT_FALSE(Shadow().isVisible());
}

TEST_F(FormSkinTest, ShadowAlphaFollowsTheForm) {
    GiveShadow();
    form.show();
    EXPECT_DOUBLE_EQ(Shadow().windowOpacity(), 1.0);
    SetFormAlphaBlend(&form, 128);
    EXPECT_EQ(FormAlphaBlend(&form), 128);
    EXPECT_EQ(Shadow().AlphaBlendValue(), 128);
    EXPECT_NEAR(Shadow().windowOpacity(), 128 / 255.0, 0.005);

    // Set behind the skin's back, it is taken over at the next update.
    form.setWindowOpacity(100 / 255.0);
    form.move(form.pos() + QPoint(1, 1));
    EXPECT_EQ(Shadow().AlphaBlendValue(), 100);

    skin->ShadowFrame()->SetEnabled(false);
    EXPECT_DOUBLE_EQ(Shadow().windowOpacity(), 0.0);
}

TEST_F(FormSkinTest, FixFlashBlackHidesTheFirstShowFor50ms) {
    GiveShadow();
    skin->SetFixFlashBlack(true);
    SetFormAlphaBlend(&form, 200);
    form.show();
    EXPECT_EQ(FormAlphaBlend(&form), 0);
    EXPECT_EQ(Shadow().windowOpacity(), 0.0);
    auto* timer = skin->findChild<TRdTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->Enabled());
    EXPECT_EQ(timer->Interval(), 50);

    timer->Tick();
    EXPECT_FALSE(timer->Enabled());
    EXPECT_EQ(FormAlphaBlend(&form), 200);
    EXPECT_EQ(Shadow().AlphaBlendValue(), 200);

    form.hide();
    form.show();
    EXPECT_EQ(FormAlphaBlend(&form), 200) << "only the first show";
}

TEST_F(FormSkinTest, BufferGrowsWithSlackAndLeavesTheFormClear) {
    GiveShadow();
    form.show();
    const QImage& buffer = Shadow().Buffer();
    EXPECT_EQ(Shadow().ComposedSize(), QSize(230, 150));
    EXPECT_EQ(buffer.size(), QSize(430, 350));
    // The frame is drawn; the part under the form is left clear.
    EXPECT_EQ(buffer.pixel(3, 3), qRgba(255, 0, 0, 255));
    EXPECT_EQ(buffer.pixel(229, 149), qRgba(255, 0, 0, 255));
    EXPECT_EQ(qAlpha(buffer.pixel(15, 15)), 0);
    EXPECT_EQ(qAlpha(buffer.pixel(214, 134)), 0);

    const uchar* bits = buffer.constBits();
    form.resize(350, 250);
    EXPECT_EQ(Shadow().ComposedSize(), QSize(380, 280));
    EXPECT_EQ(buffer.size(), QSize(430, 350));
    EXPECT_EQ(buffer.constBits(), bits) << "a resize within the slack reallocated";
    EXPECT_EQ(buffer.pixel(379, 279), qRgba(255, 0, 0, 255));
    EXPECT_EQ(qAlpha(buffer.pixel(229, 149)), 0) << "the last composition was not cleared";

    form.resize(500, 100);
    EXPECT_EQ(buffer.size(), QSize(730, 350));

    bool told = false;
    skin->OnShadowPaintEnd = [&](TRdFormSkin& sender, QPainter& canvas) {
        told = &sender == skin && canvas.isActive();
    };
    form.resize(500, 101);
    EXPECT_TRUE(told);
}

TEST_F(FormSkinTest, MissingShadowPictureLeavesTheShadowHidden) {
    skin->ShadowFrame()->SetAll(15);
    skin->ShadowFrame()->SetEnabled(true);
    skin->PicShadow()->SetText("imgname=images/nothere.png");
    form.show();
    form.move(10, 10);
    form.resize(50, 40);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.geometry(), QRect(10, 10, 50, 40));
    EXPECT_FALSE(Shadow().isVisible());

    GiveShadow();
    EXPECT_TRUE(Shadow().isVisible()) << "a picture arriving later shows the shadow";
}

TEST(FormSkin, BorderLinesAreDrawnOverTheFormsOwnPainting) {
    PaintedForm form;
    form.resize(40, 30);
    TRdFormSkin skin(&form);
    skin.BorderLines()->SetEnabled(true);
    skin.BorderLines()->SetColor(0x000000);
    skin.BorderLines()->SetWidth(2);
    skin.BorderLines()->SetRight(false);

    const QImage shot = form.grab().toImage();
    const QRgb black = qRgb(0, 0, 0), green = qRgb(0, 255, 0);
    EXPECT_EQ(shot.pixel(0, 15), black);
    EXPECT_EQ(shot.pixel(1, 15), black);
    EXPECT_EQ(shot.pixel(2, 15), green);
    EXPECT_EQ(shot.pixel(20, 1), black);
    EXPECT_EQ(shot.pixel(20, 2), green);
    EXPECT_EQ(shot.pixel(20, 28), black);
    EXPECT_EQ(shot.pixel(20, 27), green);
    EXPECT_EQ(shot.pixel(39, 15), green) << "the right side is switched off";
    EXPECT_EQ(shot.pixel(39, 29), black);
}

TEST(FormSkin, FormColorFillsUnderTheFormAndRoundedCornersCutTheRegion) {
    QWidget form;
    form.resize(40, 30);
    TRdFormSkin skin(&form);
    skin.SetFormColor(0xFF0000);  // blue, written as 00BBGGRR
    EXPECT_EQ(form.grab().toImage().pixel(20, 15), qRgb(0, 0, 255));

    form.show();
    skin.EllipseSize()->SetWidth(10);
    skin.EllipseSize()->SetHeight(10);
    QRegion mask = form.mask();
    EXPECT_TRUE(mask.contains(QPoint(20, 0)));
    EXPECT_TRUE(mask.contains(QPoint(0, 15)));
    EXPECT_TRUE(mask.contains(QPoint(5, 5)));
    EXPECT_FALSE(mask.contains(QPoint(0, 0)));
    EXPECT_FALSE(mask.contains(QPoint(39, 29)));
    form.resize(60, 30);
    EXPECT_TRUE(form.mask().contains(QPoint(55, 15)));
    EXPECT_FALSE(form.mask().contains(QPoint(59, 0)));

    skin.EllipseSize()->SetWidth(0);
    EXPECT_TRUE(form.mask().isEmpty());
}

}  // namespace
}  // namespace qpt
