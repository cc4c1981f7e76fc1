#include <fcntl.h>
#include <gtest/gtest.h>
#include <tiffio.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <cstring>

#include "imaging/encode/IETiffEncoder.h"
#include "tests/imageencode/TestPictures.h"

namespace qpt {
namespace {

using testing::TTestPicture;

struct TDecodedTiff {
    bool Ok = false;
    uint16_t Samples = 0, Extra = 0, Compression = 0;
    std::vector<uint8_t> Pixels;  // as stored: R, G, B (, A), top row first
};

TDecodedTiff DecodeTiff(const QString& path, int width, int height) {
    TDecodedTiff d;
    TIFF* tif = TIFFOpen(path.toLocal8Bit().constData(), "r");
    if (!tif) return d;
    uint16_t count = 0;
    uint16_t* types = nullptr;
    TIFFGetField(tif, TIFFTAG_SAMPLESPERPIXEL, &d.Samples);
    TIFFGetField(tif, TIFFTAG_COMPRESSION, &d.Compression);
    if (TIFFGetField(tif, TIFFTAG_EXTRASAMPLES, &count, &types) && count == 1) d.Extra = types[0];
    uint32_t w = 0, h = 0;
    TIFFGetField(tif, TIFFTAG_IMAGEWIDTH, &w);
    TIFFGetField(tif, TIFFTAG_IMAGELENGTH, &h);
    d.Ok = int(w) == width && int(h) == height;
    const size_t rowBytes = size_t(width) * d.Samples;
    d.Pixels.resize(rowBytes * height);
    for (int y = 0; y < height && d.Ok; ++y)
        d.Ok = TIFFReadScanline(tif, &d.Pixels[rowBytes * y], uint32_t(y), 0) == 1;
    TIFFClose(tif);
    return d;
}

QString EncodeToFile(const QTemporaryDir& dir, const TIEPixelView& view, TIEAlphaOut alpha) {
    const QString path = dir.filePath("picture.tif");
    const int fd = ::open(path.toLocal8Bit().constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const bool written = fd >= 0 && IEEncodeTiff(view, alpha, fd);
    if (fd >= 0) ::close(fd);
    return written ? path : QString();
}

TEST(TiffEncoder, RoundTripsExactlyWithTheAlphaAsked) {
    QTemporaryDir dir;
    struct TCase {
        TIEPixelLayout Layout;
        TIEAlphaOut Alpha;
    };
    for (const TCase c : {TCase{TIEPixelLayout::Bgr24, TIEAlphaOut::Opaque},
                          TCase{TIEPixelLayout::Bgra32, TIEAlphaOut::FromPixels},
                          TCase{TIEPixelLayout::Rgb24, TIEAlphaOut::None}}) {
        const TTestPicture picture(77, 45, c.Layout, 1);
        const QString path = EncodeToFile(dir, picture.BottomUpView(), c.Alpha);
        ASSERT_FALSE(path.isEmpty());
        const TDecodedTiff d = DecodeTiff(path, 77, 45);
        ASSERT_TRUE(d.Ok);
        EXPECT_EQ(d.Compression, COMPRESSION_LZW);
        EXPECT_EQ(d.Samples, c.Alpha == TIEAlphaOut::None ? 3 : 4);
        EXPECT_EQ(d.Extra, d.Samples == 4 ? EXTRASAMPLE_UNASSALPHA : 0);
        int wrong = 0;
        for (int y = 0; y < 45; ++y)
            for (int x = 0; x < 77; ++x) {
                uint8_t want[4];
                picture.Rgba(x, 44 - y, want);  // the view was bottom-up
                if (c.Alpha != TIEAlphaOut::FromPixels) want[3] = 255;
                const uint8_t* got = &d.Pixels[(size_t(y) * 77 + x) * d.Samples];
                wrong += std::memcmp(got, want, d.Samples) != 0;
            }
        EXPECT_EQ(wrong, 0) << "layout " << int(c.Layout);
    }
}

TEST(TiffEncoder, RefusesAnInvalidViewAndReportsAFullDevice) {
    std::vector<uint8_t> out;
    EXPECT_FALSE(IEEncodeTiff(TIEPixelView{}, TIEAlphaOut::None, out));
    EXPECT_TRUE(out.empty());
    const TTestPicture picture(64, 64, TIEPixelLayout::Bgr24);
    const int full = ::open("/dev/full", O_WRONLY);
    ASSERT_GE(full, 0);
    EXPECT_FALSE(IEEncodeTiff(picture.View(), TIEAlphaOut::Opaque, full));
    ::close(full);
}

}  // namespace
}  // namespace qpt
