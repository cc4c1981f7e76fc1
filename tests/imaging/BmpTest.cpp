#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include <QBuffer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include "imaging/IEBmpReader.h"
#include "imaging/IEBmpWriter.h"
#include "imaging/IEImageIO.h"

// Fixtures name only the header fields that matter to each case.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace qpt {
namespace {

void Le(QByteArray& b, uint32_t v, int bytes) {
    for (int i = 0; i < bytes; ++i)
        b.append(char(v >> (8 * i)));
}

struct TBmpSpec {
    int HeaderSize = 40;
    int Width = 1, Height = 1;  // negative height: top-down
    int BitCount = 24;
    uint32_t Compression = 0;
    std::vector<uint32_t> Masks;  // inside headers of 52 bytes and up
    QByteArray Extra;             // what follows the header: masks or palette
    QByteArray Pixels;
};

// Hand-made files, so that the reader is checked against the layout and
// not against our own writer.
QByteArray MakeBmp(const TBmpSpec& s) {
    QByteArray info;
    Le(info, uint32_t(s.HeaderSize), 4);
    if (s.HeaderSize == 12) {
        Le(info, uint32_t(s.Width), 2), Le(info, uint32_t(s.Height), 2);
        Le(info, 1, 2), Le(info, uint32_t(s.BitCount), 2);
    } else {
        Le(info, uint32_t(s.Width), 4), Le(info, uint32_t(s.Height), 4);
        Le(info, 1, 2), Le(info, uint32_t(s.BitCount), 2);
        Le(info, s.Compression, 4), Le(info, uint32_t(s.Pixels.size()), 4);
        Le(info, 2835, 4), Le(info, 2835, 4), Le(info, 0, 4), Le(info, 0, 4);
        for (uint32_t m : s.Masks)
            Le(info, m, 4);
        info.resize(s.HeaderSize, '\0');
    }
    QByteArray file("BM");
    const uint32_t offset = 14 + uint32_t(info.size() + s.Extra.size());
    Le(file, offset + uint32_t(s.Pixels.size()), 4), Le(file, 0, 4), Le(file, offset, 4);
    return file + info + s.Extra + s.Pixels;
}

QByteArray Palette(std::initializer_list<uint32_t> rgb, int entry = 4) {
    QByteArray p;
    for (uint32_t c : rgb)
        Le(p, c, entry);  // 0x00RRGGBB is B, G, R in file order
    return p;
}

// The picture's pixel as 0xRRGGBB.
uint32_t Pixel(TIEBitmap& b, int x, int y) {
    const uint8_t* p = b.Scanline(y) + x * 3;
    return uint32_t(p[2]) << 16 | uint32_t(p[1]) << 8 | p[0];
}

bool Read(const QByteArray& bytes, TIEBitmap& out) {
    TIEMemorySource source(bytes);
    return IEReadBmp(source, out);
}

TEST(BmpReader, PalettedLayoutsInBothRowOrders) {
    // 1 bit, 3 by 2, bottom-up: first file row is the picture's last.
    TBmpSpec one{.Width = 3, .Height = 2, .BitCount = 1};
    one.Extra = Palette({0x102030, 0xF0E0D0});
    one.Pixels = QByteArray("\xA0\0\0\0\x40\0\0\0", 8);  // 1 0 1 / 0 1 0
    TIEBitmap b;
    ASSERT_TRUE(Read(MakeBmp(one), b));
    EXPECT_EQ(b.PixelFormat(), ie24RGB);
    EXPECT_EQ(Pixel(b, 0, 1), 0xF0E0D0u);
    EXPECT_EQ(Pixel(b, 1, 1), 0x102030u);
    EXPECT_EQ(Pixel(b, 1, 0), 0xF0E0D0u);

    TBmpSpec four{.Width = 3, .Height = -2, .BitCount = 4};  // top-down
    four.Extra = Palette({0, 0x0000FF, 0x00FF00, 0xFF0000});
    four.Pixels = QByteArray("\x12\x30\0\0\x33\x10\0\0", 8);
    ASSERT_TRUE(Read(MakeBmp(four), b));
    EXPECT_EQ(Pixel(b, 0, 0), 0x0000FFu);
    EXPECT_EQ(Pixel(b, 2, 0), 0xFF0000u);
    EXPECT_EQ(Pixel(b, 0, 1), 0xFF0000u);
    EXPECT_EQ(Pixel(b, 2, 1), 0x0000FFu);

    // A core header with 3-byte palette entries, 8 bits.
    TBmpSpec core{.HeaderSize = 12, .Width = 2, .Height = 1, .BitCount = 8};
    QByteArray pal = Palette({0x112233, 0x445566}, 3);
    pal.append(QByteArray(254 * 3, '\0'));
    core.Extra = pal;
    core.Pixels = QByteArray("\x01\x00\0\0", 4);
    ASSERT_TRUE(Read(MakeBmp(core), b));
    EXPECT_EQ(Pixel(b, 0, 0), 0x445566u);
    EXPECT_EQ(Pixel(b, 1, 0), 0x112233u);
}

TEST(BmpReader, DirectColourLayoutsAndAlpha) {
    TIEBitmap b;
    TBmpSpec rgb555{.Width = 1, .Height = 1, .BitCount = 16};
    rgb555.Pixels = QByteArray("\x1F\x7C\0\0", 4);  // red 31, blue 31
    ASSERT_TRUE(Read(MakeBmp(rgb555), b));
    EXPECT_EQ(Pixel(b, 0, 0), 0xFF00FFu);

    TBmpSpec rgb565{.Width = 1, .Height = 1, .BitCount = 16, .Compression = 3};
    Le(rgb565.Extra, 0xF800, 4), Le(rgb565.Extra, 0x07E0, 4), Le(rgb565.Extra, 0x001F, 4);
    rgb565.Pixels = QByteArray("\xE0\x07\0\0", 4);  // green 63
    ASSERT_TRUE(Read(MakeBmp(rgb565), b));
    EXPECT_EQ(Pixel(b, 0, 0), 0x00FF00u);

    // 32 bits whose fourth byte is all zero: padding, no plane.
    TBmpSpec padded{.Width = 2, .Height = 1, .BitCount = 32};
    padded.Pixels = QByteArray("\x01\x02\x03\0\x04\x05\x06\0", 8);
    ASSERT_TRUE(Read(MakeBmp(padded), b));
    EXPECT_EQ(Pixel(b, 1, 0), 0x060504u);
    EXPECT_FALSE(b.HasAlphaChannel());
    padded.Pixels[3] = char(0x80);  // now the fourth byte means alpha
    ASSERT_TRUE(Read(MakeBmp(padded), b));
    ASSERT_TRUE(b.HasAlphaChannel());
    EXPECT_EQ(b.AlphaChannel()->Scanline(0)[0], 0x80);
    EXPECT_EQ(b.AlphaChannel()->Scanline(0)[1], 0);

    // A fifth-version header with masks in swapped order and an alpha mask.
    TBmpSpec v5{.HeaderSize = 124, .Width = 1, .Height = 1, .BitCount = 32, .Compression = 3};
    v5.Masks = {0x000000FF, 0x0000FF00, 0x00FF0000, 0xFF000000};
    v5.Pixels = QByteArray("\x11\x22\x33\x44", 4);
    ASSERT_TRUE(Read(MakeBmp(v5), b));
    EXPECT_EQ(Pixel(b, 0, 0), 0x112233u);
    EXPECT_EQ(b.AlphaChannel()->Scanline(0)[0], 0x44);
}

TEST(BmpReader, RunLengthEncodings) {
    TBmpSpec rle8{.Width = 4, .Height = 3, .BitCount = 8, .Compression = 1};
    rle8.Extra = Palette({0, 0x0000FF, 0x00FF00, 0xFF0000});
    // Bottom row: run of 3 x index 1, end of line; then absolute 2, 3, 1 (padded);
    // delta (1, 0) skips a pixel of the top row, run of 1 x index 3, end.
    rle8.Pixels = QByteArray(
        "\x03\x01\x00\x00\x00\x03\x02\x03\x01\x00\x00\x00"
        "\x00\x02\x01\x00\x01\x03\x00\x01",
        20);
    TIEBitmap b;
    ASSERT_TRUE(Read(MakeBmp(rle8), b));
    EXPECT_EQ(Pixel(b, 2, 2), 0x0000FFu);
    EXPECT_EQ(Pixel(b, 3, 2), 0u);  // left out by the run
    EXPECT_EQ(Pixel(b, 0, 1), 0x00FF00u);
    EXPECT_EQ(Pixel(b, 1, 1), 0xFF0000u);
    EXPECT_EQ(Pixel(b, 2, 1), 0x0000FFu);
    EXPECT_EQ(Pixel(b, 0, 0), 0u);
    EXPECT_EQ(Pixel(b, 1, 0), 0xFF0000u);

    TBmpSpec rle4{.Width = 6, .Height = 1, .BitCount = 4, .Compression = 2};
    rle4.Extra = Palette({0, 0x0000FF, 0x00FF00, 0xFF0000});
    rle4.Pixels = QByteArray("\x03\x12\x00\x03\x30\x10\x00\x01", 8);  // 1 2 1, absolute 3 0 1
    ASSERT_TRUE(Read(MakeBmp(rle4), b));
    EXPECT_EQ(Pixel(b, 0, 0), 0x0000FFu);
    EXPECT_EQ(Pixel(b, 1, 0), 0x00FF00u);
    EXPECT_EQ(Pixel(b, 2, 0), 0x0000FFu);
    EXPECT_EQ(Pixel(b, 3, 0), 0xFF0000u);
    EXPECT_EQ(Pixel(b, 5, 0), 0x0000FFu);
}

// A file cut short keeps the picture's size: the rows that arrived stand
// where they belong (at the bottom of a bottom-up picture, at the top of a
// top-down one), and the rest is black.
TEST(BmpReader, TruncatedFilesKeepTheirRowsInPlace) {
    TBmpSpec s{.Width = 2, .Height = 4, .BitCount = 24};
    for (int row = 0; row < 4; ++row)
        s.Pixels += QByteArray(6, char(row + 1)) + QByteArray(2, '\0');
    for (const int height : {4, -4}) {
        SCOPED_TRACE(height);
        TBmpSpec cut = s;
        cut.Height = height;
        QByteArray file = MakeBmp(cut);
        file.chop(8 + 3);  // the last row entirely and part of the one before
        TIEBitmap b;
        ASSERT_TRUE(Read(file, b));
        ASSERT_EQ(b.Height(), 4);
        const int first = height > 0 ? 3 : 0, step = height > 0 ? -1 : 1;
        EXPECT_EQ(b.Scanline(first)[0], 1);
        EXPECT_EQ(b.Scanline(first + step)[0], 2);
        EXPECT_EQ(Pixel(b, 1, first + 2 * step), 0u);
        EXPECT_EQ(Pixel(b, 1, first + 3 * step), 0u);
    }

    // Cut inside the headers: nothing, and the bitmap is as it was.
    TIEBitmap kept(3, 3, ie24RGB);
    for (int cut : {0, 2, 17, 30, 54})
        EXPECT_FALSE(Read(MakeBmp(s).left(cut), kept)) << cut;
    EXPECT_EQ(kept.Width(), 3);
}

TEST(BmpReader, HostileHeadersAreRefusedBeforeAllocation) {
    auto refused = [](TBmpSpec s) {
        TIEBitmap b;
        return !Read(MakeBmp(s), b) && b.Width() == 0;
    };
    EXPECT_TRUE(refused({.Width = 1 << 20, .Height = 1, .Pixels = QByteArray(64, 'x')}));
    EXPECT_TRUE(refused({.Width = 1, .Height = INT32_MIN, .Pixels = QByteArray(64, 'x')}));
    EXPECT_TRUE(refused({.Width = 0, .Height = 1, .Pixels = QByteArray(64, 'x')}));
    EXPECT_TRUE(refused({.Width = 1, .Height = 1, .BitCount = 7, .Pixels = QByteArray(64, 'x')}));
    EXPECT_TRUE(refused({.HeaderSize = 100000, .Width = 1, .Height = 1}));
    // RLE that claims 60000 by 60000 from a few bytes.
    EXPECT_TRUE(refused({.Width = 60000,
                         .Height = 60000,
                         .BitCount = 8,
                         .Compression = 1,
                         .Pixels = QByteArray("\x00\x01", 2)}));
    // Uncompressed, a huge claim from a few rows: a file cut short keeps its
    // size, so such a claim would cost what the data never holds.
    EXPECT_TRUE(refused({.Width = 4, .Height = 60000, .Pixels = QByteArray(32, '\x7F')}));
}

// A file of any size, of which only the head is real and the rest repeats
// `padding`; it remembers the furthest byte asked for.
class TPaddedSource : public TIEByteSource {
public:
    TPaddedSource(QByteArray head, QByteArray padding, int64_t size)
        : head_(std::move(head)), padding_(std::move(padding)), size_(size) {}
    int64_t Size() const override { return size_; }
    int64_t ReadAt(int64_t offset, void* dest, int64_t length) override {
        if (offset < 0 || length <= 0 || offset >= size_) return 0;
        length = std::min(length, size_ - offset);
        auto* out = static_cast<char*>(dest);
        for (int64_t i = 0; i < length; ++i) {
            const int64_t at = offset + i;
            const qsizetype tail = qsizetype((at - head_.size()) % padding_.size());
            out[i] = at < head_.size() ? head_[qsizetype(at)] : padding_[tail];
        }
        furthest = std::max(furthest, offset + length);
        return length;
    }
    int64_t furthest = 0;

private:
    QByteArray head_, padding_;
    int64_t size_;
};

// A 400 by 300 RLE picture padded to 3 GiB with moves of no distance: only
// what the picture can use is read.
TEST(BmpReader, RunLengthDataIsReadNoFurtherThanThePictureCanUse) {
    QByteArray palette = Palette({0x000000, 0xFF0000});
    palette.append(QByteArray(254 * 4, '\0'));
    const QByteArray head = MakeBmp({.Width = 400,
                                     .Height = 300,
                                     .BitCount = 8,
                                     .Compression = 1,
                                     .Extra = palette,
                                     .Pixels = QByteArray("\x05\x01", 2)});
    TPaddedSource source(head, QByteArray("\x00\x02\x00\x00", 4), int64_t(3) << 30);
    TIEBitmap b;
    ASSERT_TRUE(IEReadBmp(source, b));
    EXPECT_EQ(b.Width(), 400);
    EXPECT_EQ(Pixel(b, 4, 299), 0xFF0000u);
    EXPECT_EQ(Pixel(b, 5, 299), 0u);
    EXPECT_LE(source.furthest, head.size() + 4 * 400 * 300 + 2 * 300 + 2);
}

TEST(BmpWriter, RoundTripsEveryWrittenLayout) {
    for (int width : {1, 3, 5}) {
        TIEBitmap src(width, 3, ie24RGB);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < width * 3; ++x)
                src.Scanline(y)[x] = uint8_t(y * 40 + x);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        ASSERT_TRUE(IEWriteBmp(src, buffer));
        EXPECT_EQ(buffer.data().size(), 54 + 3 * IERowLen(width, 24));
        TIEBitmap back;
        ASSERT_TRUE(Read(buffer.data(), back));
        ASSERT_EQ(back.Width(), width);
        for (int y = 0; y < 3; ++y)
            EXPECT_EQ(0, memcmp(back.Scanline(y), src.Scanline(y), width * 3));
        EXPECT_FALSE(back.HasAlphaChannel());

        src.AlphaChannel()->Scanline(2)[0] = 77;
        src.AlphaChannel()->SetFull(false);
        QBuffer withAlpha;
        withAlpha.open(QIODevice::WriteOnly);
        ASSERT_TRUE(IEWriteBmp(src, withAlpha));
        ASSERT_TRUE(Read(withAlpha.data(), back));
        ASSERT_TRUE(back.HasAlphaChannel());
        EXPECT_EQ(back.AlphaChannel()->Scanline(2)[0], 77);
        EXPECT_EQ(back.Scanline(1)[2], src.Scanline(1)[2]);
    }
    TIEBitmap grey(3, 2, ie8g);
    grey.Fill(0x42);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(IEWriteBmp(grey, buffer));
    TIEBitmap back;
    ASSERT_TRUE(Read(buffer.data(), back));
    EXPECT_EQ(Pixel(back, 2, 1), 0x424242u);
    EXPECT_FALSE(IEWriteBmp(TIEBitmap(2, 2, ieCMYK), buffer));
}

class ImageIOTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static int argc = 1;
        static char name[] = "imaging_tests";
        static char* argv[] = {name, nullptr};
        if (!QGuiApplication::instance()) new QGuiApplication(argc, argv);
    }
    QString Write(const QString& name, const QByteArray& bytes) {
        QFile f(dir_.filePath(name));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return f.fileName();
    }
    QTemporaryDir dir_;
};

TEST_F(ImageIOTest, ContentDecidesOverTheExtension) {
    QImage png(4, 3, QImage::Format_RGB32);
    png.fill(qRgb(9, 8, 7));
    QBuffer pngBytes;
    pngBytes.open(QIODevice::WriteOnly);
    png.save(&pngBytes, "PNG");

    TIEBitmap b;
    TIEImageIO io(&b);
    int loads = 0;
    io.OnLoaded = [&] { ++loads; };
    ASSERT_TRUE(io.LoadFromFile(Write("shot.bmp", pngBytes.data()), true));
    EXPECT_EQ(io.Params().FileType, ioPNG);
    EXPECT_EQ(b.Width(), 4);
    EXPECT_EQ(Pixel(b, 3, 2), 0x090807u);

    const QByteArray bmp = MakeBmp({.Width = 1, .Height = 1, .Pixels = QByteArray("\1\2\3\0", 4)});
    ASSERT_TRUE(io.LoadFromFile(Write("capture.png", bmp), true));
    EXPECT_EQ(io.Params().FileType, ioBMP);
    EXPECT_EQ(b.Width(), 1);
    EXPECT_EQ(Pixel(b, 0, 0), 0x030201u);
    EXPECT_TRUE(io.LoadFromFile(Write("noext", bmp), true));
    EXPECT_FALSE(io.LoadFromFile(Write("noext2", bmp), false));
    EXPECT_EQ(loads, 3);

    // Unreadable input: bitmap untouched, Aborting set, nothing reported. A
    // named pipe nobody writes to is refused at once, not waited on.
    const QString pipe = dir_.filePath("pipe.bmp");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& path : {Write("junk.bmp", "BMjunk"), dir_.filePath("missing.bmp"),
                                QString("http://example.invalid/a.bmp"), pipe}) {
        EXPECT_FALSE(io.LoadFromFile(path, true));
        EXPECT_TRUE(io.Aborting());
        EXPECT_EQ(b.Width(), 1);
    }
    EXPECT_EQ(IEFileTypeOfExtension("JPG"), ioJPEG);
    EXPECT_EQ(IEFileTypeOfExtension("xyz"), ioUnknown);
}

}  // namespace
}  // namespace qpt
