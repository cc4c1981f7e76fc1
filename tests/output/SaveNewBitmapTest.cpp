#include <gtest/gtest.h>
#include <tiffio.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include "app/session/SessionState.h"
#include "imaging/IEBitmap.h"
#include "output/SaveNewBitmap.h"
#include "support/LogManage.h"
#include "tests/common/ScratchHome.h"
#include "tests/output/ChildProcess.h"

namespace qpt {
namespace {

using testing::ReadFile;

constexpr int kW = 61, kH = 37;

// Few enough colours for GIF to keep them all, in blocks of JPEG's colour
// sampling so that it keeps them close; channels differ so that a swap shows.
uint8_t Channel(int x, int y, int c) {
    return uint8_t((x / 16) * 35 + (y / 16) * 45 + c * 25);
}

class SaveNewBitmapTest : public ::testing::Test {
protected:
    SaveNewBitmapTest() : picture_(kW, kH, ie24RGB) {
        for (int y = 0; y < kH; ++y)
            for (int x = 0; x < kW; ++x)
                for (int c = 0; c < 3; ++c)
                    picture_.Scanline(y)[x * 3 + c] = Channel(x, y, 2 - c);  // B, G, R
        CreateLogManage(LogPath());
        LogManage()->SetTimeStamp(false);
        JpegQuality = 90;
    }
    ~SaveNewBitmapTest() override { QFile::remove(LogPath()); }

    QString LogPath() const { return home_.root() + "log/QptHost.log"; }
    QString Folder() const { return home_.root() + "pictures/"; }
    QStringList LogLines() const {
        const QByteArray bytes = ReadFile(LogPath()).mid(2);
        return QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()),
                                  bytes.size() / 2)
            .split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    }
    QString TempFile() const { return home_.runtimeDir() + "qpt/11.bmp"; }

    testing::ScratchHome home_;
    TIEBitmap picture_;
};

// Reads back through libtiff or QImage, as R, G, B rows.
QImage Decode(const QString& path) {
    if (!path.endsWith(QStringLiteral(".tif"), Qt::CaseInsensitive) &&
        !path.endsWith(QStringLiteral(".tiff"), Qt::CaseInsensitive))
        return QImage(path).convertToFormat(QImage::Format_RGB888);
    TIFF* tif = TIFFOpen(path.toLocal8Bit().constData(), "r");
    if (!tif) return {};
    QImage image(kW, kH, QImage::Format_RGBA8888);
    const bool read = TIFFReadRGBAImageOriented(
        tif, kW, kH, reinterpret_cast<uint32_t*>(image.bits()), ORIENTATION_TOPLEFT, 0);
    TIFFClose(tif);
    return read ? image.convertToFormat(QImage::Format_RGB888) : QImage();
}

// The mean difference per channel: zero for lossless formats.
double MeanError(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW; ++x)
            for (int c = 0; c < 3; ++c)
                sum += std::abs(image.constScanLine(y)[x * 3 + c] - Channel(x, y, c));
    return sum / (kW * kH * 3);
}

struct TFormatCase {
    const char* Extension;
    QByteArray Magic;
    double Tolerance;
};

TEST_F(SaveNewBitmapTest, FormatFollowsTheExtensionInAnyCaseAndRoundTrips) {
    const TFormatCase cases[] = {
        {".bmp", "BM", 0},           {".PNG", "\x89PNG", 0},       {".png", "\x89PNG", 0},
        {".jpg", "\xFF\xD8\xFF", 3}, {".JPEG", "\xFF\xD8\xFF", 3}, {".tif", "II*", 0},
        {".Tiff", "II*", 0},         {".gif", "GIF8", 0},
    };
    for (const TFormatCase& c : cases) {
        const QString path = Folder() + "shot" + c.Extension;
        ASSERT_TRUE(SaveNewBitmap(picture_, path)) << c.Extension;
        EXPECT_TRUE(ReadFile(path).startsWith(c.Magic)) << c.Extension;
        const QImage image = Decode(path);
        ASSERT_EQ(image.size(), QSize(kW, kH)) << c.Extension;
        EXPECT_LE(MeanError(image), c.Tolerance) << c.Extension;
        EXPECT_FALSE(QFile::exists(TempFile()));
    }
    // PNG and TIFF carry the opaque alpha channel of a 32-bit surface.
    EXPECT_EQ(ReadFile(Folder() + "shot.png").at(25), 6);  // colour type RGBA
    EXPECT_TRUE(QImage(Folder() + "shot.png").hasAlphaChannel());
}

TEST_F(SaveNewBitmapTest, LogsEveryStepOfAConvertedFormat) {
    const QString path = Folder() + "sub/shot.png";
    ASSERT_TRUE(SaveNewBitmap(picture_, path));
    const QString temp = TempFile();
    EXPECT_EQ(LogLines(),
              QStringList(
                  {"[SaveNewBitmap]filepath:SaveNewBitmap", "[SaveNewBitmap]ForceDirectories done",
                   "[SaveNewBitmap]filepath:SaveNewBitmap",
                   "[SaveNewBitmap]filepath:ChangeFileExt," + Folder() + "sub/shot.bmp",
                   "[SaveNewBitmap]filepath:GetEnvironmentVariable," + home_.runtimeDir() + "qpt/",
                   "[SaveNewBitmap]filepath:SaveToFile," + temp,
                   "[SaveNewBitmap]filepath:ExtractFileExt,.png",
                   "[SaveNewBitmap]ExtractFileIconToFile ffPng,sBmpFile:" + temp + ",aFileName," +
                       path + ",sExt,.png",
                   "[SaveNewBitmap]filepath:ExtractFileIconToFile,succ"}));
}

TEST_F(SaveNewBitmapTest, JpegAndUnknownExtensionsLogNoConversion) {
    ASSERT_TRUE(SaveNewBitmap(picture_, Folder() + "shot.jpeg"));
    EXPECT_EQ(LogLines().size(), 7);
    EXPECT_EQ(LogLines().last(), "[SaveNewBitmap]filepath:ExtractFileExt,.jpeg");
    for (const char* name : {"shot.webp", "shot", "shot.png.txt", "dotted.dir/shot"}) {
        const QString path = Folder() + name;
        EXPECT_FALSE(SaveNewBitmap(picture_, path)) << name;
        EXPECT_FALSE(QFile::exists(path)) << name;
    }
    EXPECT_FALSE(QFile::exists(TempFile()));
    EXPECT_EQ(QDir(Folder()).entryList(QDir::Files), QStringList({"shot.jpeg"}));
}

TEST_F(SaveNewBitmapTest, JpegTakesTheLowByteOfTheSessionQuality) {
    JpegQuality = 20;
    ASSERT_TRUE(SaveNewBitmap(picture_, Folder() + "low.jpg"));
    JpegQuality = 256 + 20;
    ASSERT_TRUE(SaveNewBitmap(picture_, Folder() + "wrapped.jpg"));
    JpegQuality = 95;
    ASSERT_TRUE(SaveNewBitmap(picture_, Folder() + "high.jpg"));
    EXPECT_EQ(ReadFile(Folder() + "low.jpg"), ReadFile(Folder() + "wrapped.jpg"));
    EXPECT_LT(ReadFile(Folder() + "low.jpg").size(), ReadFile(Folder() + "high.jpg").size());
}

// The five formats, each with a name that already holds an older file.
class FailedSaveTest : public SaveNewBitmapTest {
protected:
    FailedSaveTest() {
        QDir().mkpath(Folder());
        for (const QString& name : Names())
            testing::WriteFile(Folder() + name, kOld);
    }
    static QStringList Names() {
        return {"shot.bmp", "shot.gif", "shot.jpg", "shot.png", "shot.tif"};
    }
    // Nothing but the older files, as they were: no part of a new one, and
    // no temporary file left beside them.
    void ExpectOnlyTheOldFiles() const {
        EXPECT_EQ(QDir(Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name), Names());
        for (const QString& name : Names())
            EXPECT_EQ(ReadFile(Folder() + name), kOld) << name.toStdString();
    }
    const QByteArray kOld = "an older picture of the same name";
};

TEST_F(FailedSaveTest, AFullDiskKeepsTheOlderFile) {
    for (const QString& name : Names()) {
        const int result = testing::RunInChild([&] {
            testing::LimitFileSize(64);
            return SaveNewBitmap(picture_, Folder() + name) ? 1 : 0;
        });
        EXPECT_EQ(result, 0) << name.toStdString();
    }
    ExpectOnlyTheOldFiles();
}

TEST_F(FailedSaveTest, AReadOnlyFolderKeepsTheOlderFile) {
    const auto traverse = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    QFile::setPermissions(home_.root(), traverse | QFile::WriteOwner);
    QFile::setPermissions(Folder(), traverse);
    for (const QString& name : Names()) {
        const int result = testing::RunInChild([&] {
            if (!testing::DropRootRights()) return 2;
            return SaveNewBitmap(picture_, Folder() + name) ? 1 : 0;
        });
        EXPECT_EQ(result, 0) << name.toStdString();
    }
    QFile::setPermissions(Folder(), traverse | QFile::WriteOwner);
    ExpectOnlyTheOldFiles();
}

TEST_F(FailedSaveTest, ANameThatIsAFolderStaysAFolder) {
    for (const char* name : {"taken.bmp", "taken.gif", "taken.jpg", "taken.png", "taken.tif"}) {
        const QString path = Folder() + name;
        testing::WriteFile(path + "/inside.txt", kOld);
        EXPECT_FALSE(SaveNewBitmap(picture_, path)) << name;
        EXPECT_EQ(ReadFile(path + "/inside.txt"), kOld) << name;
    }
    ExpectOnlyTheOldFiles();
}

}  // namespace
}  // namespace qpt
