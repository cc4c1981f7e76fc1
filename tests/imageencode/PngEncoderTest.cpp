#include <fcntl.h>
#include <gtest/gtest.h>
#include <png.h>
#include <unistd.h>

#include <cstring>

#include "imaging/encode/IEPngEncoder.h"
#include "tests/imageencode/TestPictures.h"

namespace qpt {
namespace {

using testing::TTestPicture;

struct TDecoded {
    bool Ok = false;
    bool HasAlpha = false;
    int Width = 0, Height = 0;
    std::vector<uint8_t> Rgba;
};

// libpng's own reader checks every chunk and the zlib checksum.
TDecoded DecodePng(const std::vector<uint8_t>& bytes) {
    TDecoded d;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size())) return d;
    d.HasAlpha = image.format & PNG_FORMAT_FLAG_ALPHA;
    image.format = PNG_FORMAT_RGBA;
    d.Width = int(image.width), d.Height = int(image.height);
    d.Rgba.resize(PNG_IMAGE_SIZE(image));
    d.Ok = png_image_finish_read(&image, nullptr, d.Rgba.data(), 0, nullptr);
    png_image_free(&image);
    return d;
}

// Counts differing pixels, so that a failure says how much went wrong. A
// bottom-up view shows the picture's rows in the other order.
int Mismatches(const TTestPicture& picture, const TDecoded& d, bool alphaKept, bool bottomUp) {
    int wrong = 0;
    for (int y = 0; y < picture.Height; ++y)
        for (int x = 0; x < picture.Width; ++x) {
            uint8_t want[4];
            picture.Rgba(x, bottomUp ? picture.Height - 1 - y : y, want);
            if (!alphaKept) want[3] = 255;
            wrong += std::memcmp(want, &d.Rgba[(size_t(y) * d.Width + x) * 4], 4) != 0;
        }
    return wrong;
}

struct TPngCase {
    TIEPixelLayout Layout;
    TIEAlphaOut Alpha;
    int Bands;
    int Width = 131, Height = 97;
};

class PngRoundTrip : public ::testing::TestWithParam<TPngCase> {};

// Odd widths, row padding and bottom-up rows, with the rows split into
// bands at places that cut through the picture's kinds of rows.
TEST_P(PngRoundTrip, DecodesToThePixelsItWasGiven) {
    const TPngCase c = GetParam();
    const TTestPicture picture(c.Width, c.Height, c.Layout, 3);
    const bool alphaKept = c.Alpha == TIEAlphaOut::FromPixels && IEHasAlpha(c.Layout);
    for (const TIEPixelView& view : {picture.View(), picture.BottomUpView()}) {
        std::vector<uint8_t> png;
        ASSERT_TRUE(IEEncodePng(view, png, {c.Alpha, c.Bands}));
        const TDecoded d = DecodePng(png);
        ASSERT_TRUE(d.Ok);
        EXPECT_EQ(d.HasAlpha, c.Alpha != TIEAlphaOut::None);
        ASSERT_EQ(d.Width, c.Width);
        ASSERT_EQ(d.Height, c.Height);
        EXPECT_EQ(Mismatches(picture, d, alphaKept, view.Stride < 0), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    LayoutsAlphaBands, PngRoundTrip,
    ::testing::Values(TPngCase{TIEPixelLayout::Bgr24, TIEAlphaOut::None, 1},
                      TPngCase{TIEPixelLayout::Bgr24, TIEAlphaOut::Opaque, 3},
                      TPngCase{TIEPixelLayout::Bgrx32, TIEAlphaOut::FromPixels, 2},
                      TPngCase{TIEPixelLayout::Bgra32, TIEAlphaOut::FromPixels, 5},
                      TPngCase{TIEPixelLayout::Bgra32, TIEAlphaOut::None, 0},
                      TPngCase{TIEPixelLayout::Rgb24, TIEAlphaOut::None, 97},
                      TPngCase{TIEPixelLayout::Rgba32, TIEAlphaOut::Opaque, 4},
                      TPngCase{TIEPixelLayout::Bgra32, TIEAlphaOut::FromPixels, 16, 1, 1}));

// Rows longer than the checksum's block, as on any large screen.
TEST(PngEncoder, SplittingIntoBandsKeepsTheRatio) {
    const TTestPicture picture(2000, 300, TIEPixelLayout::Bgr24);
    std::vector<uint8_t> one, four;
    ASSERT_TRUE(IEEncodePng(picture.View(), one, {TIEAlphaOut::None, 1}));
    ASSERT_TRUE(IEEncodePng(picture.View(), four, {TIEAlphaOut::None, 4}));
    // Each band starts with the window before it, so only the flush marks
    // and a few restarted matches are added.
    EXPECT_LT(double(four.size()), double(one.size()) * 1.01);
    EXPECT_EQ(DecodePng(one).Rgba, DecodePng(four).Rgba);
}

TEST(PngEncoder, RefusesViewsThatDoNotDescribeAPicture) {
    const TTestPicture picture(8, 8, TIEPixelLayout::Bgr24);
    TIEPixelView noPixels = picture.View();
    noPixels.Pixels = nullptr;
    TIEPixelView empty = picture.View();
    empty.Height = 0;
    TIEPixelView shortRows = picture.View();
    shortRows.Stride = 8 * 3 - 1;
    for (const TIEPixelView& view : {noPixels, empty, shortRows}) {
        std::vector<uint8_t> png;
        EXPECT_FALSE(IEEncodePng(view, png));
        EXPECT_TRUE(png.empty());
    }
}

TEST(PngEncoder, ReportsADescriptorThatTakesNoMore) {
    const TTestPicture picture(300, 200, TIEPixelLayout::Bgr24);
    const int full = ::open("/dev/full", O_WRONLY);
    ASSERT_GE(full, 0);
    EXPECT_FALSE(IEEncodePng(picture.View(), full));
    ::close(full);
}

}  // namespace
}  // namespace qpt
