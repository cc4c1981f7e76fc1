// The holder reads the rows of the BMP that the engine's writer made, in
// place; anything else it refuses rather than misreads.
#include <gtest/gtest.h>

#include <QBuffer>

#include "imaging/IEBmpWriter.h"
#include "output/holder/BmpRows.h"
#include "tests/output/TestPicture.h"

namespace qpt {
namespace {

std::vector<uint8_t> BmpOf(const TIEBitmap& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(IEWriteBmp(picture, buffer));
    const QByteArray& bytes = buffer.data();
    return std::vector<uint8_t>(bytes.begin(), bytes.end());
}

void ExpectSameRows(const TIEBitmap& picture, const TIEPixelView& view) {
    const int bytes = picture.Width() * IEBytesPerPixel(view.Layout);
    for (int y = 0; y < picture.Height(); ++y)
        ASSERT_EQ(std::memcmp(view.Row(y), picture.Scanline(y), size_t(bytes)), 0) << "row " << y;
}

TEST(BmpRows, OpaquePictureWithPaddedRowsReadsTopRowFirst) {
    const TIEBitmap picture = testing::PatternPicture(5, 3, 9);
    const std::vector<uint8_t> file = BmpOf(picture);
    const auto view = holder::ReadBmpRows(file);
    ASSERT_TRUE(view);
    EXPECT_EQ(view->Layout, TIEPixelLayout::Bgr24);
    EXPECT_EQ(view->Width, 5);
    EXPECT_EQ(view->Height, 3);
    EXPECT_EQ(view->Stride, -16);
    ExpectSameRows(picture, *view);
}

TEST(BmpRows, TranslucentPictureKeepsItsAlpha) {
    TIEBitmap picture(4, 2, ie32RGB);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 16; ++x)
            picture.Scanline(y)[x] = uint8_t(y * 16 + x);
    const std::vector<uint8_t> file = BmpOf(picture);
    const auto view = holder::ReadBmpRows(file);
    ASSERT_TRUE(view);
    EXPECT_EQ(view->Layout, TIEPixelLayout::Bgra32);
    ExpectSameRows(picture, *view);
}

TEST(BmpRows, ShortOrForeignFilesAreRefused) {
    std::vector<uint8_t> file = BmpOf(testing::PatternPicture(6, 4, 1));
    EXPECT_FALSE(holder::ReadBmpRows(std::span(file).first(file.size() - 1)));
    EXPECT_FALSE(holder::ReadBmpRows(std::span(file).first(20)));
    std::vector<uint8_t> grey = BmpOf(TIEBitmap(6, 4, ie8g));
    EXPECT_FALSE(holder::ReadBmpRows(grey));
    std::vector<uint8_t> huge = file;
    huge[19] = 0x7F;  // a width no row of the file can hold
    EXPECT_FALSE(holder::ReadBmpRows(huge));
    file[0] = 'X';
    EXPECT_FALSE(holder::ReadBmpRows(file));
}

}  // namespace
}  // namespace qpt
