// Checks the built skin packages in the program folder against the list of
// what the forms need (skin-art/contents.txt).
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QResource>
#include <QSet>

#include "tests/skin/SkinPackageFiles.h"

namespace qpt::testing {
namespace {

const QString kSkinDir = QString(QPT_PROGRAM_DIR) + "/skin/";
const QStringList kSkins = {"classic", "classic2"};

int scaleOf(const QString& skin) {
    return skin == "classic2" ? 2 : 1;
}

class SkinPackageTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        for (const QString& name : QStringList{"public", "classic", "classic2"})
            registered_ +=
                QResource::registerResource(kSkinDir + name + ".rcc", "/" + name) ? 1 : 0;
        contents_ = ReadSkinContents(QString(QPT_SOURCE_DIR) + "/skin-art/contents.txt");
    }
    static void TearDownTestSuite() {
        for (const QString& name : QStringList{"public", "classic", "classic2"})
            QResource::unregisterResource(kSkinDir + name + ".rcc", "/" + name);
    }
    void SetUp() override {
        ASSERT_EQ(registered_, 3) << "the packages are built into " << kSkinDir.toStdString();
        ASSERT_TRUE(contents_.problems.isEmpty()) << contents_.problems.join('\n').toStdString();
        ASSERT_FALSE(contents_.pictures.isEmpty());
    }

    // Every ini file of the public package, main.ini first, as the cache merges them.
    static QList<IniFile> publicIniFiles() {
        QList<IniFile> files{ReadIniFile(":/public/main.ini")};
        for (const QString& name : QDir(":/public").entryList({"*.ini"}, QDir::Files))
            if (name != "main.ini") files.append(ReadIniFile(":/public/" + name));
        return files;
    }

    static inline int registered_ = 0;
    static inline SkinContents contents_;
};

bool hasVisiblePixel(const QImage& image) {
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < argb.height(); ++y)
        for (int x = 0; x < argb.width(); ++x)
            if (qAlpha(argb.pixel(x, y)) > 0) return true;
    return false;
}

TEST_F(SkinPackageTest, EveryPictureTheFormsNameIsDrawnAtItsSizeInBothSkins) {
    for (const QString& skin : kSkins) {
        for (const SkinContents::Picture& picture : contents_.pictures) {
            SCOPED_TRACE((skin + "/images/" + picture.name).toStdString());
            const QImage image(":/" + skin + "/images/" + picture.name + ".png");
            ASSERT_FALSE(image.isNull());
            EXPECT_EQ(image.size(), picture.size * scaleOf(skin));
            EXPECT_TRUE(image.hasAlphaChannel());
            EXPECT_TRUE(hasVisiblePixel(image)) << "the picture came out empty";
        }
    }
}

TEST_F(SkinPackageTest, PackagesHoldNoPictureOutsideTheList) {
    QSet<QString> listed;
    for (const SkinContents::Picture& picture : contents_.pictures)
        listed.insert(picture.name + ".png");
    for (const QString& skin : kSkins) {
        const QStringList files = QDir(":/" + skin + "/images").entryList(QDir::Files);
        EXPECT_EQ(files.size(), listed.size()) << skin.toStdString();
        for (const QString& file : files)
            EXPECT_TRUE(listed.contains(file)) << (skin + "/images/" + file).toStdString();
    }
}

// A hover, pressed or disabled look that equals the normal one means a colour
// swap went wrong, and the control would not answer the mouse visibly.
TEST_F(SkinPackageTest, StateLooksDifferFromTheNormalLook) {
    static const QRegularExpression stateSuffix("_(over|press|selected|disable)$");
    int compared = 0;
    for (const SkinContents::Picture& picture : contents_.pictures) {
        if (!stateSuffix.match(picture.name).hasMatch()) continue;
        const QString normal = QString(picture.name).replace(stateSuffix, "_normal");
        const QImage base(":/classic/images/" + normal + ".png");
        if (base.isNull()) continue;
        ++compared;
        EXPECT_NE(QImage(":/classic/images/" + picture.name + ".png"), base)
            << picture.name.toStdString();
    }
    EXPECT_GT(compared, 20);
}

TEST_F(SkinPackageTest, EveryNamedColourIsDefinedAndEveryValueParses) {
    for (const QString& skin : kSkins) {
        const IniFile ini = ReadIniFile(":/" + skin + "/color_setting.ini");
        EXPECT_TRUE(ini.problems.isEmpty()) << ini.problems.join('\n').toStdString();
        QHash<QString, ColourValue> values;
        for (const IniSection& section : ini.sections) {
            if (section.name == "validate") continue;
            for (const auto& [key, text] : section.values) {
                const auto value = ParseColourValue(text);
                EXPECT_TRUE(value) << (section.name + "." + key + "=" + text).toStdString();
                if (value) values.insert((section.name + "." + key).toLower(), *value);
            }
        }
        // Links may chain; a chain longer than the table is a cycle.
        auto resolve = [&](QString name) -> std::optional<unsigned> {
            for (qsizetype step = 0; step <= values.size(); ++step) {
                const auto found = values.constFind(name.toLower());
                if (found == values.constEnd()) return std::nullopt;
                if (const auto* colour = std::get_if<unsigned>(&*found)) return *colour;
                name = std::get<ColourLink>(*found).target;
            }
            return std::nullopt;
        };
        for (const QString& name : values.keys())
            EXPECT_TRUE(resolve(name)) << skin.toStdString() << ": " << name.toStdString();
        for (const QString& name : contents_.colours)
            EXPECT_TRUE(resolve(name)) << skin.toStdString() << " lacks " << name.toStdString();
    }
}

TEST_F(SkinPackageTest, PublicPackageHasEverySkinClassTheControlsRead) {
    const QList<IniFile> files = publicIniFiles();
    for (const IniFile& file : files)
        EXPECT_TRUE(file.problems.isEmpty()) << file.problems.join('\n').toStdString();
    for (const SkinContents::SkinClass& wanted : contents_.classes) {
        bool found = false;
        for (const IniFile& file : files)
            for (const IniSection& section : file.sections)
                found |= section.name == wanted.section &&
                         section.value("class") == std::optional(wanted.className);
        EXPECT_TRUE(found) << wanted.className.toStdString() << " / "
                           << wanted.section.toStdString();
    }
}

// A picture named in a skin section must exist in every skin, or the control
// that takes the section goes blank.
TEST_F(SkinPackageTest, PicturesNamedInIniFilesExistInBothSkins) {
    static const QRegularExpression imageName("imgname=(images/[^'\\s]+)");
    QList<IniFile> files = publicIniFiles();
    for (const QString& skin : kSkins)
        files.append(ReadIniFile(":/" + skin + "/main.ini"));
    int named = 0;
    for (const IniFile& file : files) {
        for (const IniSection& section : file.sections) {
            for (const auto& [key, text] : section.values) {
                const auto match = imageName.match(key + "=" + text);
                if (!match.hasMatch()) continue;
                ++named;
                for (const QString& skin : kSkins)
                    EXPECT_TRUE(QFile::exists(":/" + skin + "/" + match.captured(1)))
                        << skin.toStdString() << ": " << match.captured(1).toStdString();
            }
        }
    }
    EXPECT_GT(named, 10);
}

struct Slice {
    QString picture;
    QList<int> numbers;  // left, top, right, bottom, mode
};

QHash<QString, Slice> slicesOf(const QString& skin) {
    QHash<QString, Slice> slices;
    for (const IniSection& section : ReadIniFile(":/" + skin + "/main.ini").sections) {
        if (section.value("class") != std::optional<QString>("image")) continue;
        Slice slice{section.value("imgname").value_or(QString()), {}};
        for (const QString& part : section.value("imgopt!").value_or(QString()).split(','))
            slice.numbers.append(part.toInt());
        slices.insert(section.name, slice);
    }
    return slices;
}

// Corners that overlap, or that leave no middle, tear the picture when it is
// stretched; the large skin must slice its pictures at twice the margins.
TEST_F(SkinPackageTest, NineSliceMarginsFitTheirPicturesAndScaleWithTheSkin) {
    const auto classic = slicesOf("classic");
    const auto classic2 = slicesOf("classic2");
    ASSERT_FALSE(classic.isEmpty());
    EXPECT_EQ(QSet<QString>(classic.keyBegin(), classic.keyEnd()),
              QSet<QString>(classic2.keyBegin(), classic2.keyEnd()));
    for (const QString& skin : kSkins) {
        for (const auto& [name, slice] :
             (skin == "classic" ? classic : classic2).asKeyValueRange()) {
            SCOPED_TRACE((skin + " [" + name + "]").toStdString());
            ASSERT_EQ(slice.numbers.size(), 5);
            const QImage image(":/" + skin + "/" + slice.picture);
            ASSERT_FALSE(image.isNull());
            EXPECT_LT(slice.numbers[0] + slice.numbers[2], image.width());
            EXPECT_LT(slice.numbers[1] + slice.numbers[3], image.height());
            EXPECT_TRUE(slice.numbers[4] == 1 || slice.numbers[4] == 3);
            if (skin == "classic2" && classic.contains(name)) {
                for (int i = 0; i < 4; ++i) {
                    EXPECT_EQ(slice.numbers[i], 2 * classic[name].numbers[i]);
                }
            }
        }
    }
}

}  // namespace
}  // namespace qpt::testing
