#include <gif_lib.h>
#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "imaging/encode/IEGifEncoder.h"
#include "tests/imageencode/TestPictures.h"

namespace qpt {
namespace {

using testing::TTestPicture;

struct TDecodedGif {
    bool Ok = false;
    int Width = 0, Height = 0, PaletteSize = 0;
    std::vector<uint8_t> Rgb;
};

struct TReader {
    const std::vector<uint8_t>* Bytes;
    size_t Position = 0;
};

int Input(GifFileType* gif, GifByteType* out, int length) {
    auto* r = static_cast<TReader*>(gif->UserData);
    const size_t n = std::min(size_t(length), r->Bytes->size() - r->Position);
    std::memcpy(out, r->Bytes->data() + r->Position, n);
    r->Position += n;
    return int(n);
}

// giflib's own reader, expanded through the palette.
TDecodedGif DecodeGif(const std::vector<uint8_t>& bytes) {
    TDecodedGif d;
    TReader reader{&bytes};
    int error = 0;
    GifFileType* gif = DGifOpen(&reader, Input, &error);
    if (!gif) return d;
    if (DGifSlurp(gif) == GIF_OK && gif->ImageCount == 1 && gif->SColorMap) {
        const SavedImage& frame = gif->SavedImages[0];
        d.Width = frame.ImageDesc.Width, d.Height = frame.ImageDesc.Height;
        d.PaletteSize = gif->SColorMap->ColorCount;
        for (int i = 0; i < d.Width * d.Height; ++i) {
            const GifColorType& c = gif->SColorMap->Colors[frame.RasterBits[i]];
            d.Rgb.insert(d.Rgb.end(), {c.Red, c.Green, c.Blue});
        }
        d.Ok = true;
    }
    DGifCloseFile(gif, &error);
    return d;
}

std::vector<uint8_t> RgbOf(const TTestPicture& picture) {
    std::vector<uint8_t> rgb;
    for (int y = 0; y < picture.Height; ++y)
        for (int x = 0; x < picture.Width; ++x) {
            uint8_t p[4];
            picture.Rgba(x, y, p);
            rgb.insert(rgb.end(), p, p + 3);
        }
    return rgb;
}

TEST(GifEncoder, FewColoursStayExact) {
    for (int colours : {1, 2, 3, 200, 256}) {
        const TTestPicture picture = testing::FewColourPicture(123, 77, colours);
        std::vector<uint8_t> gif;
        ASSERT_TRUE(IEEncodeGif(picture.View(), gif));
        const TDecodedGif d = DecodeGif(gif);
        ASSERT_TRUE(d.Ok);
        EXPECT_EQ(d.Width, 123);
        EXPECT_EQ(d.Height, 77);
        EXPECT_EQ(d.Rgb, RgbOf(picture)) << colours << " colours";
        EXPECT_GE(d.PaletteSize, 2);  // a power of two, even for one colour
    }
}

// A screenshot's case: a flat background and panel, and a photograph-like
// gradient over thousands of colours.
TTestPicture PanelAndGradient() {
    TTestPicture picture(256, 160, TIEPixelLayout::Bgr24);
    for (int y = 0; y < 160; ++y)
        for (int x = 0; x < 256; ++x) {
            uint8_t* p = &picture.Bytes[size_t(y) * size_t(picture.Stride) + size_t(x) * 3];
            if (y < 40)  // the background
                p[0] = 0xF3, p[1] = 0xF2, p[2] = 0xF1;
            else if (x < 64)  // a panel
                p[0] = 0x40, p[1] = 0x35, p[2] = 0x2F;
            else  // the photograph
                p[0] = uint8_t(x), p[1] = uint8_t(y + x / 3), p[2] = uint8_t(255 - y);
        }
    return picture;
}

TEST(GifEncoder, ManyColoursKeepFlatAreasExactAndGradientsClose) {
    const TTestPicture picture = PanelAndGradient();
    std::vector<uint8_t> gif;
    ASSERT_TRUE(IEEncodeGif(picture.View(), gif));
    const TDecodedGif d = DecodeGif(gif);
    ASSERT_TRUE(d.Ok);
    const std::vector<uint8_t> want = RgbOf(picture);
    int flatWrong = 0;
    double gradientError = 0;
    for (int y = 0; y < 160; ++y)
        for (int x = 0; x < 256; ++x) {
            const size_t i = (size_t(y) * 256 + x) * 3;
            if (y < 40 || x < 64) {
                flatWrong += std::memcmp(&d.Rgb[i], &want[i], 3) != 0;
                continue;
            }
            // Error diffusion trades a pixel's accuracy for its area's: look
            // at 4 by 4 averages.
            if (x % 4 || y % 4) continue;
            for (int c = 0; c < 3; ++c) {
                int got = 0, ideal = 0;
                for (int dy = 0; dy < 4; ++dy)
                    for (int dx = 0; dx < 4; ++dx) {
                        const size_t j = (size_t(y + dy) * 256 + x + dx) * 3 + c;
                        got += d.Rgb[j], ideal += want[j];
                    }
                gradientError += std::abs(got - ideal) / 16.0;
            }
        }
    EXPECT_EQ(flatWrong, 0);
    EXPECT_LT(gradientError / (192 / 4 * 120 / 4 * 3), 2.0);
}

TEST(GifEncoder, PaletteNeverExceeds256AndIsUsedWhole) {
    const TTestPicture picture(300, 200, TIEPixelLayout::Bgra32);  // every pixel differs
    const TIEIndexedPicture reduced = IEReduceTo256Colours(picture.View());
    ASSERT_EQ(reduced.Palette.size(), 256u);
    const std::set<uint8_t> used(reduced.Indices.begin(), reduced.Indices.end());
    EXPECT_GT(used.size(), 200u);
    std::vector<uint8_t> gif;
    ASSERT_TRUE(IEEncodeGif(reduced, *std::make_unique<TIEBufferSink>(gif)));
    EXPECT_TRUE(DecodeGif(gif).Ok);
}

TEST(GifEncoder, RefusesWhatGifCannotHold) {
    std::vector<uint8_t> gif;
    EXPECT_FALSE(IEEncodeGif(TIEPixelView{}, gif));
    std::vector<uint8_t> wide(70000 * 3);
    EXPECT_FALSE(IEEncodeGif(TIEPixelView{wide.data(), 70000, 1, 70000 * 3}, gif));
    EXPECT_TRUE(gif.empty());
}

}  // namespace
}  // namespace qpt
