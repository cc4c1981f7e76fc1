#include <gtest/gtest.h>

#include <cstdio>
//
#include <jpeglib.h>

#include <cstdlib>

#include "imaging/encode/IEJpegEncoder.h"
#include "tests/imageencode/TestPictures.h"

namespace qpt {
namespace {

struct TDecodedJpeg {
    int Width = 0, Height = 0;
    std::vector<uint8_t> Rgb;
};

TDecodedJpeg DecodeJpeg(const std::vector<uint8_t>& bytes) {
    jpeg_decompress_struct cinfo{};
    jpeg_error_mgr error{};
    cinfo.err = jpeg_std_error(&error);
    jpeg_create_decompress(&cinfo);
    jpeg_mem_src(&cinfo, bytes.data(), bytes.size());
    jpeg_read_header(&cinfo, TRUE);
    cinfo.out_color_space = JCS_RGB;
    jpeg_start_decompress(&cinfo);
    TDecodedJpeg d;
    d.Width = int(cinfo.output_width), d.Height = int(cinfo.output_height);
    d.Rgb.resize(size_t(d.Width) * d.Height * 3);
    while (cinfo.output_scanline < cinfo.output_height) {
        JSAMPROW row = &d.Rgb[size_t(cinfo.output_scanline) * d.Width * 3];
        jpeg_read_scanlines(&cinfo, &row, 1);
    }
    jpeg_finish_decompress(&cinfo);
    jpeg_destroy_decompress(&cinfo);
    return d;
}

// Blocks of 32 pixels in colours far apart on every channel, so that a
// swapped channel or a lost row shows; JPEG keeps the inside of flat blocks
// close, so only block centres are compared.
testing::TTestPicture Blocks(TIEPixelLayout layout) {
    testing::TTestPicture picture(96, 64, layout, 4);
    const uint8_t colours[6][3] = {{230, 40, 20},  {20, 200, 60},  {30, 60, 220},
                                   {240, 220, 30}, {120, 20, 160}, {250, 250, 250}};
    const int bpp = IEBytesPerPixel(layout);
    const bool bgr = layout == TIEPixelLayout::Bgr24 || layout == TIEPixelLayout::Bgrx32 ||
                     layout == TIEPixelLayout::Bgra32;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 96; ++x) {
            const uint8_t* c = colours[(y / 32) * 3 + x / 32];
            uint8_t* p = &picture.Bytes[size_t(y) * size_t(picture.Stride) + size_t(x) * bpp];
            p[0] = c[bgr ? 2 : 0], p[1] = c[1], p[2] = c[bgr ? 0 : 2];
        }
    return picture;
}

TEST(JpegEncoder, EveryLayoutDecodesToItsColours) {
    for (TIEPixelLayout layout :
         {TIEPixelLayout::Bgr24, TIEPixelLayout::Bgrx32, TIEPixelLayout::Bgra32,
          TIEPixelLayout::Rgb24, TIEPixelLayout::Rgba32}) {
        const testing::TTestPicture picture = Blocks(layout);
        std::vector<uint8_t> jpeg;
        ASSERT_TRUE(IEEncodeJpeg(picture.View(), 90, jpeg));
        const TDecodedJpeg d = DecodeJpeg(jpeg);
        ASSERT_EQ(d.Width, 96);
        ASSERT_EQ(d.Height, 64);
        for (int by = 0; by < 2; ++by)
            for (int bx = 0; bx < 3; ++bx) {
                const int x = bx * 32 + 16, y = by * 32 + 16;
                uint8_t want[4];
                picture.Rgba(x, y, want);
                const uint8_t* got = &d.Rgb[(size_t(y) * 96 + x) * 3];
                for (int c = 0; c < 3; ++c)
                    EXPECT_LE(std::abs(got[c] - want[c]), 4)
                        << "layout " << int(layout) << " block " << bx << "," << by;
            }
    }
}

TEST(JpegEncoder, RefusesAnInvalidViewAndReportsAFullDevice) {
    std::vector<uint8_t> out;
    EXPECT_FALSE(IEEncodeJpeg(TIEPixelView{}, 90, out));
    const testing::TTestPicture picture(300, 200, TIEPixelLayout::Bgr24);
    FILE* full = std::fopen("/dev/full", "wb");
    ASSERT_NE(full, nullptr);
    EXPECT_FALSE(IEEncodeJpeg(picture.View(), 90, fileno(full)));
    std::fclose(full);
}

}  // namespace
}  // namespace qpt
