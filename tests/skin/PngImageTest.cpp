#include <gtest/gtest.h>
#include <zlib.h>

#include <QtEndian>

#include "skin/PngImage.h"
#include "skin/PngImageData.h"

namespace qpt {
namespace {

QImage Sample() {
    QImage image(5, 3, QImage::Format_ARGB32);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            image.setPixel(x, y, qRgba(40 * x, 80 * y, 200 - 10 * x, x == 4 ? 0 : 255));
    return image;
}

QByteArray Chunk(const char* type, const QByteArray& body) {
    QByteArray chunk;
    quint32 length = qToBigEndian(quint32(body.size()));
    chunk.append(reinterpret_cast<const char*>(&length), 4);
    const QByteArray typed = QByteArray(type) + body;
    chunk += typed;
    quint32 crc = qToBigEndian(
        quint32(crc32(0, reinterpret_cast<const Bytef*>(typed.constData()), uInt(typed.size()))));
    chunk.append(reinterpret_cast<const char*>(&crc), 4);
    return chunk;
}

QByteArray Header(quint32 width, quint32 height) {
    QByteArray body(13, '\0');
    qToBigEndian(width, body.data());
    qToBigEndian(height, body.data() + 4);
    body[8] = 8;  // depth
    body[9] = 6;  // RGBA
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + Chunk("IHDR", body);
}

TEST(PngImage, RoundTripKeepsPixelsAttributesAndForeignText) {
    TPngImage source;
    source.SetPixels(Sample());
    source.SetAlphaBlendValue(128);
    source.SetGrayMode(true);
    source.SetSmoothFilter(TPngSmoothFilter::psfSmooth);
    const QByteArray bytes = source.SaveToBytes();
    ASSERT_TRUE(bytes.contains("tEXtRDPNG"));

    TPngImage copy;
    ASSERT_TRUE(copy.LoadFromBytes(bytes)) << copy.LastError().toStdString();
    EXPECT_EQ(copy.Pixels(), source.Pixels());
    EXPECT_EQ(copy.GetPixel(1, 2), Sample().pixel(1, 2));
    EXPECT_EQ(qAlpha(copy.GetPixel(4, 0)), 0);
    EXPECT_EQ(copy.AlphaBlendValue(), 128);
    EXPECT_TRUE(copy.GrayMode());
    EXPECT_EQ(copy.SmoothFilter(), TPngSmoothFilter::psfSmooth);

    // Back at the defaults the chunk goes away.
    copy.SetAlphaBlendValue(255);
    copy.SetGrayMode(false);
    copy.SetSmoothFilter(TPngSmoothFilter::psfDefault);
    EXPECT_FALSE(copy.SaveToBytes().contains("RDPNG"));
}

TEST(PngImage, UnreadableAttributesKeepDefaultsAndOtherTextSurvives) {
    TPngImage plain;
    plain.SetPixels(Sample());
    QByteArray bytes = plain.SaveToBytes();
    const qsizetype end = bytes.indexOf("IEND") - 4;
    bytes.insert(end, Chunk("tEXt", QByteArray("RDPNG\0", 6) +
                                        "AlphaBlendValue=300\nGrayMode=maybe\nSmoothFilter=7") +
                          Chunk("tEXt", QByteArray("Author\0Me", 9)));
    TPngImage image;
    ASSERT_TRUE(image.LoadFromBytes(bytes));
    EXPECT_EQ(image.AlphaBlendValue(), 255);
    EXPECT_FALSE(image.GrayMode());
    EXPECT_EQ(image.SmoothFilter(), TPngSmoothFilter::psfDefault);
    EXPECT_TRUE(image.SaveToBytes().contains(QByteArray("tEXtAuthor\0Me", 13)));
}

TEST(PngImage, HostileDataGivesAnEmptyPicture) {
    TPngImage good;
    good.SetPixels(Sample());
    const QByteArray bytes = good.SaveToBytes();
    TPngImage image;
    for (qsizetype cut = 0; cut < bytes.size() - 12; ++cut) {
        EXPECT_FALSE(image.LoadFromBytes(bytes.left(cut))) << cut;
        EXPECT_TRUE(image.Empty());
    }
    QByteArray flipped = bytes;
    flipped[40] = char(flipped[40] ^ 0x55);  // inside the pixel data: CRC no longer matches
    EXPECT_FALSE(image.LoadFromBytes(flipped));

    EXPECT_FALSE(image.LoadFromBytes(Header(70000, 1) + bytes.mid(33)));
    // Announces 60000 x 60000 but carries a few bytes: refused before allocating.
    EXPECT_FALSE(image.LoadFromBytes(Header(60000, 60000) + bytes.mid(33)));
    EXPECT_FALSE(image.LoadFromBytes("GIF89a"));
    EXPECT_EQ(image.GetPixel(0, 0), 0u);

    // Enough data that it could fill 4097 x 4097 pixels, but no skin picture
    // is that big: refused for its size before the data is looked at.
    const QByteArray big = Header(4097, 4097) + Chunk("IDAT", QByteArray(130000, 'x'));
    EXPECT_FALSE(image.LoadFromBytes(big));
    EXPECT_TRUE(image.LastError().contains("too large")) << image.LastError().toStdString();
}

TEST(PngImage, CopiesSharePixelsUntilOneWrites) {
    const size_t before = PngShare::EntryCount();
    TPngImage a;
    a.SetPixels(Sample());
    TPngImage b, c;
    b.Assign(&a);
    c.Assign(&b);
    EXPECT_TRUE(a.SharesPixelsWith(b));
    EXPECT_TRUE(b.SharesPixelsWith(c));
    EXPECT_EQ(a.Pixels().constBits(), c.Pixels().constBits());
    EXPECT_EQ(PngShare::EntryCount(), before + 1);

    b.SetPixel(0, 0, qRgba(1, 2, 3, 255));
    EXPECT_EQ(b.GetPixel(0, 0), qRgba(1, 2, 3, 255));
    EXPECT_EQ(a.GetPixel(0, 0), Sample().pixel(0, 0));
    EXPECT_FALSE(a.SharesPixelsWith(b));
    EXPECT_TRUE(a.SharesPixelsWith(c));

    // The last holder takes the buffer back without a copy.
    c.Assign(nullptr);
    const uchar* shared = a.Pixels().constBits();
    a.MutablePixels();
    EXPECT_EQ(a.Pixels().constBits(), shared);
    EXPECT_EQ(PngShare::EntryCount(), before);
}

TEST(PngImage, EqualPicturesEnteringSeparatelyShareOneEntry) {
    TPngImage a, b, copyA, copyB;
    a.SetPixels(Sample());
    b.SetPixels(Sample());
    copyA.Assign(&a);
    copyB.Assign(&b);
    EXPECT_TRUE(copyA.SharesPixelsWith(copyB));
}

TEST(PngImage, OnlyPlainPicturesAreCounted) {
    TPngImage plain;
    EXPECT_EQ(plain.AddRef(), 1);
    EXPECT_EQ(plain.Release(), 0);
    struct Derived : TPngImage {};
    Derived derived;
    EXPECT_THROW(derived.AddRef(), std::logic_error);
}

}  // namespace
}  // namespace qpt
