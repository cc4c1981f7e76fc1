#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "skin/ColorTable.h"
#include "skin/RdGraphic.h"
#include "skin/Resource.h"
#include "skin/StyleClasses.h"
#include "tests/common/ScratchHome.h"
#include "tests/skin/SkinPackageBuilder.h"

namespace qpt {
namespace {

using testing::BuildPackage;
using testing::PngBytes;

const QByteArray kPublicMain =
    "[btn]\nclass=button\na=public\nb=public\nc=public\nd=public\n"
    "[base]\nclass=button\nx=1\ny=1\n"
    "[child]\nclass=button\nparent=base\ny=2\n"
    "[self]\nclass=button\nparent=self\n"
    "[lonely]\nclass=label\nparent=base\n"
    "[pal]\nclass=color\nback=#101010\nfront=[late.x]\n";

std::map<QString, QByteArray> PublicFiles() {
    return {{"main.ini", kPublicMain},
            {"extra.ini", "[btn]\nclass=button\nb=extra\nc=extra\nd=extra\n"},
            {"notes.txt", "[btn]\nclass=button\na=not an ini file\n"}};
}

// One skin; `scale` changes the picture sizes and the colours.
std::map<QString, QByteArray> SkinFiles(int scale) {
    const QByteArray colours = scale == 1 ? "[validate]\ntype=BGR\n"
                                            "[text_color]\ncl_text_a=123456\ncl_text_b=[late.x]\n"
                                            "[late]\nx=$00FF00\n"
                                          : "[text_color]\ncl_text_a=#0000FF\ncl_text_b=[late.x]\n"
                                            "[late]\nx=FF0000\n";
    return {{"main.ini",
             "[btn]\nclass=button\nc=skin\nd=skin\n"
             "[btn_base]\nclass=image\nimgname=images/a.png\n"
             "[btn_hot]\nclass=image\nparent=btn_base\nimgrect=0,0,1,1\n"},
            {"more.ini", "[btn]\nclass=button\nd=more\n"},
            {"color_setting.ini", colours},
            {"images/a.png", PngBytes(2 * scale, 2 * scale, qRgb(255, 0, 0))}};
}

class ResourceTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(tmp_.isValid());
        skin_ = tmp_.path() + "/skin/";
        TResource::UnloadCache(true);
    }
    void TearDown() override {
        TResource::SetResourceHook({});
        TResource::UnloadCache(true);
    }

    QString Package(const QString& file, const std::map<QString, QByteArray>& files) {
        const QString path = BuildPackage(skin_, file, files);
        EXPECT_FALSE(path.isEmpty()) << "cannot pack " << file.toStdString();
        return path;
    }
    void LoadAll() {
        TResource::LoadRccFile(Package("public.rcc", PublicFiles()), false);
        TResource::LoadRccFile(Package("classic.rcc", SkinFiles(1)), false);
    }
    // Counts the reads of every resource name, leaving the packages to answer.
    void CountReads() {
        TResource::SetResourceHook([this](QByteArray&, const QString& name) {
            ++reads_[name];
            return false;
        });
    }
    static QString Value(const QString& cls, const QString& section, const QString& key) {
        const TNameValueList* values = TResource::StyleClasses().Section(cls, section);
        return values ? values->Values(key) : QString("<no section>");
    }
    static quint32 Colour(const QString& name) {
        quint32 id = 0;
        IdentToColor(name, id);
        return ColorToRGB(id);
    }

    QTemporaryDir tmp_;
    QString skin_;
    std::map<QString, int> reads_;
};

TEST_F(ResourceTest, LaterFilesOverrideOnlyTheKeysTheyName) {
    LoadAll();
    EXPECT_EQ(TResource::SkinRccName(), "classic");
    EXPECT_EQ(Value("button", "btn", "a"), "public");
    EXPECT_EQ(Value("button", "btn", "b"), "extra");
    EXPECT_EQ(Value("button", "btn", "c"), "skin");
    EXPECT_EQ(Value("button", "btn", "d"), "more");
}

TEST_F(ResourceTest, ParentsStayInsideTheirClass) {
    LoadAll();
    EXPECT_EQ(Value("button", "child", "x"), "1");
    EXPECT_EQ(Value("button", "child", "y"), "2");
    const TStyleClasses& styles = TResource::StyleClasses();
    EXPECT_EQ(styles.Section("button", "child")->Parent(), styles.Section("button", "base"));
    EXPECT_EQ(styles.Section("button", "self")->Parent(), nullptr);
    EXPECT_EQ(styles.Section("label", "lonely")->Parent(), nullptr);

    const QStringList hot = TResource::RdgValues("[btn_hot]");
    EXPECT_TRUE(hot.contains("imgname=images/a.png")) << hot.join(' ').toStdString();
    EXPECT_TRUE(hot.contains("imgrect=0,0,1,1"));
    EXPECT_TRUE(TResource::RdgValues("[nothing]").isEmpty());
}

TEST_F(ResourceTest, ColoursComeFromStyleClassesAndTheSkinsColourFile) {
    LoadAll();
    EXPECT_EQ(Colour("text_color.cl_text_a"), 123456u);  // BGR file: a decimal number
    EXPECT_EQ(Colour("text_color.cl_text_b"), 0x00FF00u);
    EXPECT_EQ(Colour("pal.back"), 0x101010u);
    EXPECT_EQ(Colour("pal.front"), 0x00FF00u);  // a style colour linked into the colour file
    EXPECT_EQ(Colour("validate.type"), TColorTable::kUndefinedColor);
    EXPECT_EQ(Colour("text_color.cl_nowhere"), TColorTable::kUndefinedColor);
}

TEST_F(ResourceTest, SwappingSkinsRefillsEveryGraphicInPlace) {
    LoadAll();
    const QString classic2 = Package("classic2.rcc", SkinFiles(2));
    TRdGraphic* picture = TResource::GetGraphic("images/a.png");
    TRdGraphic* description = TResource::GetGraphic("[btn_base]");
    TRdGraphic* part = TResource::GetGraphic("[btn_hot]");
    ASSERT_TRUE(picture && description && part);
    EXPECT_EQ(picture->Width(), 2);
    EXPECT_EQ(description->Width(), 2);
    EXPECT_EQ(part->Width(), 1);
    EXPECT_EQ(TResource::GetGraphic("images/a.png"), picture);

    TResource::LoadRccFile(classic2, false);
    EXPECT_EQ(TResource::SkinRccName(), "classic2");
    EXPECT_EQ(TResource::GetGraphic("images/a.png"), picture);
    EXPECT_EQ(TResource::GetGraphic("[btn_base]"), description);
    EXPECT_EQ(picture->Width(), 4);
    EXPECT_EQ(description->Width(), 4);
    EXPECT_EQ(part->Width(), 1);
    EXPECT_EQ(Colour("text_color.cl_text_a"), 0xFF0000u);
    EXPECT_EQ(Colour("text_color.cl_text_b"), 0x0000FFu);

    CountReads();  // the same skin again: nothing is read
    TResource::LoadRccFile(classic2, false);
    EXPECT_TRUE(reads_.empty());
}

TEST_F(ResourceTest, MissingPictureIsReadOnceUntilTheNextReload) {
    LoadAll();
    CountReads();
    TRdGraphic* missing = TResource::GetGraphic("images/none.png");
    ASSERT_NE(missing, nullptr);
    EXPECT_TRUE(missing->Empty());
    EXPECT_EQ(TResource::GetGraphic("images/none.png"), missing);
    EXPECT_EQ(reads_[":/classic/images/none.png"], 1);
    TResource::ReloadGraphics();
    EXPECT_EQ(reads_[":/classic/images/none.png"], 2);
    EXPECT_TRUE(TResource::GetGraphic("[no_section]")->Empty());
}

TEST_F(ResourceTest, BadOrMissingPackagesLeaveEmptyPicturesAndTheDefaultColour) {
    testing::WriteFile(skin_ + "empty.rcc", {});
    testing::WriteFile(skin_ + "junk.rcc", QByteArray(300, 'x'));
    for (const QString file : {"nothere.rcc", "empty.rcc", "junk.rcc"}) {
        SCOPED_TRACE(file.toStdString());
        TResource::LoadRccFile(skin_ + "public.rcc", false);  // missing as well
        TResource::LoadRccFile(skin_ + file, false);
        TRdGraphic* picture = TResource::GetGraphic("images/a.png");
        ASSERT_NE(picture, nullptr);
        EXPECT_TRUE(picture->Empty());
        EXPECT_EQ(Colour("text_color.cl_text_a"), TColorTable::kUndefinedColor);
        EXPECT_EQ(TResource::StyleClasses().Count(), 0);
        TResource::UnloadCache(true);
    }
    // A missing skin falls back to "classic" beside it.
    Package("classic.rcc", SkinFiles(1));
    TResource::LoadRccFile(skin_ + "nothere.rcc", false);
    EXPECT_EQ(TResource::SkinRccName(), "classic");
    EXPECT_EQ(TResource::GetGraphic("images/a.png")->Width(), 2);
}

TEST_F(ResourceTest, DllAndRccNameOnePackage) {
    const QString built = Package("classic.rcc", SkinFiles(1));
    ASSERT_TRUE(QFile::rename(built, skin_ + "classic.dll"));
    TResource::LoadRccFile(skin_ + "Classic.rcc", false);
    EXPECT_EQ(TResource::SkinRccPath(), skin_ + "classic.dll");
    EXPECT_EQ(TResource::SkinRccName(), "classic");
    EXPECT_EQ(Colour("text_color.cl_text_a"), 123456u);

    TResource::UnloadRccFile(skin_ + "classic.rcc");
    EXPECT_TRUE(TResource::SkinRccPath().isEmpty());
    EXPECT_TRUE(TResource::ReadResource("main.ini").isEmpty());
}

TEST_F(ResourceTest, PublicPackagesAndUnloading) {
    LoadAll();
    const QString extra = Package("extra.rcc", {{"x.ini", "[s]\nk=v\n"}});
    TResource::LoadRccFile(extra, true);
    EXPECT_EQ(TResource::PublicRccPath(), skin_ + "public.rcc");
    EXPECT_EQ(TResource::RegisteredRccFiles(), QStringList({extra, skin_ + "public.rcc"}));
    EXPECT_EQ(TResource::ReadResource(":/extra/x.ini"), "[s]\nk=v\n");
    QString folders, files;
    TResource::EnumResource(":/public/", folders, files);
    EXPECT_EQ(files, "extra.ini|main.ini|notes.txt|");
    TResource::EnumResource(":/classic/", folders, files);
    EXPECT_EQ(folders, "images|");

    TResource::UnloadRccFile(extra);
    EXPECT_TRUE(TResource::ReadResource(":/extra/x.ini").isEmpty());
    TResource::GetGraphic("images/a.png");
    TResource::UnloadCache(true);
    EXPECT_TRUE(TResource::RegisteredRccFiles().isEmpty());
    EXPECT_TRUE(TResource::ReadResource(":/public/main.ini").isEmpty());
    EXPECT_EQ(TResource::StyleClasses().Count(), 0);
    EXPECT_EQ(TResource::RdgCount(), 0);
    EXPECT_EQ(TResource::GraphicCount(), 0);
    EXPECT_EQ(Colour("pal.back"), TColorTable::kUndefinedColor);
}

TEST_F(ResourceTest, LooseFilesWinWhenSwitchedOn) {
    LoadAll();
    testing::WriteFile(skin_ + "classic/images/a.png", PngBytes(3, 3, qRgb(0, 0, 255)));
    TResource::SetSkinBasePath(skin_);
    TResource::SetLooseFilesEnabled(true);
    EXPECT_EQ(TResource::GetGraphic("images/a.png")->Width(), 3);
    QString folders, files;
    TResource::EnumResource(":/classic/images/", folders, files);
    EXPECT_EQ(files, "a.png|");
    TResource::SetLooseFilesEnabled(false);
    TResource::ReloadGraphics();
    EXPECT_EQ(TResource::GetGraphic("images/a.png")->Width(), 2);
}

}  // namespace
}  // namespace qpt
