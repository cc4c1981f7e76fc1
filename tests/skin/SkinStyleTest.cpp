#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <memory>

#include "skin/ColorId.h"
#include "skin/DesignRectProperty.h"
#include "skin/RdGraphic.h"
#include "skin/RdImage.h"
#include "skin/RdSkinStyle.h"
#include "skin/RdgImage.h"
#include "skin/Resource.h"
#include "skin/SkinReader.h"
#include "tests/common/QtPrinters.h"
#include "tests/skin/SkinPackageBuilder.h"

namespace qpt {

// A control as the later skinned controls are: pictures, slicing, a colour,
// an enumeration and lines, all reachable by skin lines.
class TTestButton : public TRdGraphicControl {
    Q_OBJECT
    Q_PROPERTY(qpt::TRdPictureProperty* ImageNormal READ ImageNormal)
    Q_PROPERTY(qpt::TDesignRectProperty* ImageOption READ ImageOption)
    Q_PROPERTY(quint32 Color MEMBER Color)
    Q_PROPERTY(TLayout Layout MEMBER Layout)
    Q_PROPERTY(QStringList Lines MEMBER Lines)

public:
    enum TLayout { blGlyphLeft, blGlyphTop };
    Q_ENUM(TLayout)

    using TRdGraphicControl::TRdGraphicControl;
    TRdPictureProperty* ImageNormal() const { return image_; }
    TDesignRectProperty* ImageOption() const { return option_; }

    quint32 Color = 0;
    TLayout Layout = blGlyphLeft;
    QStringList Lines;

private:
    TRdPictureProperty* image_ = new TRdPictureProperty(this);
    TDesignRectProperty* option_ = new TDesignRectProperty(this);
};

namespace {

using testing::BuildPackage;
using testing::PngBytes;

const QByteArray kPublicMain =
    "[base]\nclass=TTestButton\nFont.Name='Skin Sans'\nFont.Height=-20\nImageOption.Left=4\n"
    "HitTest=False\nColor=text_color.cl_text_b\n"
    "[child]\nclass=TTestButton\nparent=base\nImageOption.Left=6\nNoSuchValue=1\n"
    "Layout=blNowhere\nFont.Style=[fsBold, fsItalic]\nLines=('a' 'b')\n"
    "[big]\nclass=font\nHeight=-30\n";

// One skin; its pictures and one slicing grow with `scale`.
std::map<QString, QByteArray> SkinFiles(int scale) {
    const QByteArray left = QByteArray::number(3 * scale);
    return {{"main.ini",
             "[base]\nclass=TTestButton\nImageNormal.Text='imgname=images/a.png'\n"
             "ImageOption.Top=" +
                 left +
                 "\n"
                 "[a_desc]\nclass=image\nimgname=images/a.png\n"},
            {"color_setting.ini", "[text_color]\ncl_text_b=#00FF00\n"},
            {"images/a.png", PngBytes(2 * scale, 2 * scale, qRgb(255, 0, 0))}};
}

class SkinStyleTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(tmp_.isValid());
        TResource::UnloadCache(true);
        skin_ = tmp_.path() + "/skin/";
        ASSERT_FALSE(BuildPackage(skin_, "public.rcc", {{"main.ini", kPublicMain}}).isEmpty());
        ASSERT_FALSE(BuildPackage(skin_, "classic.rcc", SkinFiles(1)).isEmpty());
        ASSERT_FALSE(BuildPackage(skin_, "classic2.rcc", SkinFiles(2)).isEmpty());
        TRdSkinStyle::SetMessageHandler([this](const QString& text) { messages_.append(text); });
        form_.setObjectName("FormPinned");
    }
    void TearDown() override {
        style_.reset();
        TRdSkinStyle::SetMessageHandler({});
        TResource::UnloadCache(true);
    }

    // The style as the pinned form holds it.
    TRdSkinStyle& LoadStyle() {
        style_ = std::make_unique<TRdSkinStyle>(&form_);
        style_->SetMainSkin(true);
        style_->SetRuntimePath(skin_);
        style_->SetPublicRccFiles({"public.rcc"});
        style_->SetSkinRccFile("classic.rcc");
        style_->Loaded();
        return *style_;
    }

    QTemporaryDir tmp_;
    QString skin_;
    QStringList messages_;
    QWidget form_;
    std::unique_ptr<TRdSkinStyle> style_;
};

TEST_F(SkinStyleTest, SectionAppliesWithItsParentExceptIgnoredAndBadLines) {
    LoadStyle();
    auto* button = new TTestButton(&form_);
    auto* plain = new TTestButton(&form_);
    button->Font()->SetHeight(-11);
    button->AllSkin()->SetIgnoreValues({"font.height", "Font.Height", ""});
    EXPECT_EQ(button->AllSkin()->IgnoreValues(), QStringList{"font.height"});
    button->AllSkin()->SetSkinClass("child");  // applies at once: a skin is loaded

    EXPECT_EQ(button->Font()->Name(), "Skin Sans");  // from the parent section
    EXPECT_EQ(button->Font()->Height(), -11);        // ignored
    EXPECT_EQ(button->ImageOption()->Left(), 6);     // own value over the parent's
    EXPECT_EQ(button->ImageOption()->Top(), 3);      // skin package over public
    EXPECT_FALSE(button->HitTest());
    EXPECT_EQ(button->Color, ColorId("text_color.cl_text_b"));
    EXPECT_EQ(button->Layout, TTestButton::blGlyphLeft);  // bad identifier skipped
    EXPECT_EQ(button->Font()->Style(), TRdFont::fsBold | TRdFont::fsItalic);
    EXPECT_EQ(button->Lines, (QStringList{"a", "b"}));
    ASSERT_NE(button->ImageNormal()->Graphic(), nullptr);
    EXPECT_EQ(button->ImageNormal()->Graphic()->Width(), 2);
    EXPECT_TRUE(button->AllSkin()->SkinValues().contains("parent=base"));

    // Without a section name the form's values stand.
    EXPECT_EQ(plain->Font()->Height(), -11);
    EXPECT_TRUE(plain->HitTest());
    EXPECT_TRUE(plain->AllSkin()->SkinValues().isEmpty());

    // The font's own skin class goes along with a recursive apply.
    button->Font()->AllSkin()->SetSkinClass("big");
    button->Font()->SetHeight(-11);
    button->AllSkin()->ApplySkin(true);
    EXPECT_EQ(button->Font()->Height(), -30);
}

TEST_F(SkinStyleTest, CurrentValuesReadBackIntoAnotherControl) {
    LoadStyle();
    TTestButton skinned(&form_);
    skinned.AllSkin()->SetSkinClass("child");
    const QStringList lines = skinned.AllSkin()->CurrentValues();
    EXPECT_TRUE(lines.contains("Font.Height=-20")) << lines.join('\n').toStdString();
    EXPECT_TRUE(lines.contains("ImageOption.Left=6"));
    EXPECT_TRUE(lines.contains("Font.Style=[fsBold, fsItalic]"));
    EXPECT_TRUE(lines.contains("ImageNormal.Text='imgname=images/a.png'"));
    EXPECT_FALSE(lines.filter("AllSkin").size());

    TTestButton copy(&form_);
    for (const QString& line : lines) {
        const qsizetype eq = line.indexOf('=');
        EXPECT_EQ(TSkinReader::SetPropertyText(&copy, line.left(eq), line.mid(eq + 1)),
                  TSkinReader::TResult::Applied)
            << line.toStdString();
    }
    EXPECT_EQ(copy.AllSkin()->CurrentValues(), lines);
}

TEST_F(SkinStyleTest, ReaderWalksDottedPathsAndRefusesWhatDoesNotFit) {
    TTestButton button;
    using R = TSkinReader::TResult;
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "font.HEIGHT", "-15"), R::Applied);
    EXPECT_EQ(button.Font()->Height(), -15);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "ImageOption.StretchMode", "sdmFrame"),
              R::Applied);
    EXPECT_EQ(button.ImageOption()->Rect().StretchMode(), TSuperStretchMode::sdmFrame);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Color", "clRed"), R::Applied);
    EXPECT_EQ(button.Color, 0x0000FFu);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "AllSkin.Draw.DrawAlpha", "-5"), R::Applied);
    EXPECT_EQ(button.DrawAlpha(), 0);

    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Nothing", "1"), R::Unknown);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Left.Deeper", "1"), R::Unknown);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Font.FontHeight", "1"), R::Unknown);
    QString error;
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Hint", "Plain", &error), R::Invalid);
    EXPECT_EQ(error, "Invalid Ident value: Plain");
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Font.Height", "$FFFFFFFFFF"), R::Invalid);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Font.Height", "1.5"), R::Invalid);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Font.Style", "fsBold"), R::Invalid);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Font.Style", "[fsBold, fsNone]"), R::Invalid);
    // A number names an enumeration value only when the type has it.
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "ImageOption.StretchMode", "-12"), R::Invalid);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "ImageOption.StretchMode", "4"), R::Invalid);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "ImageOption.StretchMode", "2"), R::Applied);
    EXPECT_EQ(button.ImageOption()->Rect().StretchMode(), TSuperStretchMode::sdmFill);
    EXPECT_EQ(TSkinReader::SetPropertyText(&button, "Font.Style", "256"), R::Invalid);
    EXPECT_EQ(button.Font()->Height(), -15);
    EXPECT_EQ(button.Font()->Style(), TRdFont::TFontStyles());
}

// Counts the skin change notices a window receives.
class NoticeCounter : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == TRdSkinStyle::SkinChangedEvent()) ++count;
        return false;
    }
};

TEST_F(SkinStyleTest, SwapToDoubleSizeSkinRefreshesControlsAndKeepsGraphics) {
    TRdSkinStyle& style = LoadStyle();
    auto* button = new TTestButton(&form_);
    button->AllSkin()->SetSkinClass("base");
    auto* image = new TRdImage(&form_);
    image->Picture()->SetText("imgname=[a_desc]");
    TRdGraphic* picture = TResource::GetGraphic("images/a.png");
    TRdGraphic* description = TResource::GetGraphic("[a_desc]");
    ASSERT_TRUE(picture && description);
    EXPECT_EQ(image->Picture()->Graphic()->Width(), 2);
    NoticeCounter notices;
    form_.installEventFilter(&notices);

    style.SetSkinRccFile("classic2.rcc");
    EXPECT_EQ(TResource::SkinRccName(), "classic2");
    EXPECT_EQ(style.CurSkinRccFile(), skin_ + "classic2.rcc");
    EXPECT_EQ(TResource::GetGraphic("images/a.png"), picture);
    EXPECT_EQ(TResource::GetGraphic("[a_desc]"), description);
    EXPECT_EQ(picture->Width(), 4);
    EXPECT_EQ(image->Picture()->Graphic()->Width(), 4);
    EXPECT_EQ(button->ImageNormal()->Graphic()->Width(), 4);
    EXPECT_EQ(button->ImageOption()->Top(), 6);  // re-applied from the new skin
    EXPECT_GE(notices.count, 1);

    // A package that is not there leaves the skin on the screen as it is.
    style.SetSkinRccFile("missing.rcc");
    EXPECT_EQ(style.SkinRccFile(), "missing.rcc");
    EXPECT_EQ(TResource::SkinRccName(), "classic2");
    EXPECT_EQ(picture->Width(), 4);
    form_.removeEventFilter(&notices);
}

TEST_F(SkinStyleTest, OneMainStyleGovernsAndHandsOverWhenItGoes) {
    TRdSkinStyle& first = LoadStyle();
    EXPECT_EQ(TRdSkinStyle::Main(), &first);
    EXPECT_EQ(first.CurMainStyle(), "QWidget.FormPinned");
    QWidget other;
    auto second = std::make_unique<TRdSkinStyle>(&other);
    second->SetRuntimePath(skin_);
    second->SetMainSkin(true);
    ASSERT_EQ(messages_.size(), 1);
    EXPECT_EQ(messages_[0],
              "warning: main.SkinStyle exists! must close unit: QWidget.FormPinned,\r\n\r\n"
              "and Re-open Current Form !!");
    EXPECT_EQ(TRdSkinStyle::Main(), &first);
    second->Loaded();
    second->SetSkinRccFile(skin_ + "classic2.rcc");  // stored, not loaded
    EXPECT_EQ(second->SkinRccFile(), "classic2.rcc");
    EXPECT_EQ(TResource::SkinRccName(), "classic");

    // The next in line takes over with its own skin.
    style_.reset();
    EXPECT_EQ(TRdSkinStyle::Main(), second.get());
    EXPECT_EQ(TRdSkinStyle::LiveCount(), 1);
    EXPECT_EQ(TResource::SkinRccName(), "classic2");
}

TEST_F(SkinStyleTest, ForcingReappliesAndClearingDropsOwnPictures) {
    LoadStyle();
    TTestButton button(&form_);
    button.AllSkin()->SetSkinClass("base");
    button.ImageOption()->SetLeft(99);
    button.AllSkin()->SetForceUseSkinPic(true);
    EXPECT_EQ(button.ImageOption()->Left(), 4);
    ASSERT_FALSE(button.ImageNormal()->Empty());
    button.AllSkin()->SetClearOwnerPic(true);
    EXPECT_EQ(button.ImageNormal()->Graphic(), nullptr);
}

}  // namespace
}  // namespace qpt

#include "SkinStyleTest.moc"
