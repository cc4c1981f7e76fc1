#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <cstring>

#include "imaging/IEBitmap.h"

namespace qpt {
namespace {

// Every test gets its own temporary folder and the machine's own policy.
class BitmapTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        IESetTempFolder(dir_.path());
    }
    void TearDown() override {
        IESetMinFileSizeOverride(-1);
        IESetMemoryBlockLimit(0);
        IESetTempFolder({});
    }
    int FilesInTempFolder() const { return int(QDir(dir_.path()).entryList(QDir::Files).size()); }

    QTemporaryDir dir_;
};

// Gives every byte of a bitmap a value that depends on its row and column.
void Paint(TIEBitmap& b) {
    for (int y = 0; y < b.Height(); ++y)
        for (int64_t x = 0; x < b.RowLen(); ++x)
            b.Scanline(y)[x] = uint8_t(y * 7 + x * 13);
}

bool Painted(const TIEBitmap& b, int64_t bytes, int rows) {
    for (int y = 0; y < rows; ++y)
        for (int64_t x = 0; x < bytes; ++x)
            if (b.Scanline(y)[x] != uint8_t(y * 7 + x * 13)) return false;
    return true;
}

TEST(PixelFormatTable, RowLengthsFollowBitsAndAlignment) {
    EXPECT_EQ(IERowLen(3, IEPixelFormatInfo(ie24RGB).BitCount), 12);
    EXPECT_EQ(IERowLen(4, 24), 12);
    EXPECT_EQ(IERowLen(33, 1), 8);
    EXPECT_EQ(IERowLen(5, 48), 32);
    EXPECT_EQ(IERowLen(3, 24, 8), 9);
    EXPECT_EQ(IERowLen(3, 24, 16), 10);
    EXPECT_EQ(IEPixelFormatInfo(ieCMYK).ChannelCount, 4);
    EXPECT_EQ(IEPixelFormatInfo(ie32RGB).BitCount, 32);
    EXPECT_EQ(IEPixelFormatInfo(TIEPixelFormat(200)).BitCount, 0);
}

TEST_F(BitmapTest, AllocateRefusesEmptyRequestsAndKeepsStorageWhenUnchanged) {
    TIEBitmap b;
    EXPECT_EQ(b.Location(), ieFile);
    EXPECT_FALSE(b.Allocate(0, 5, ie24RGB));
    EXPECT_FALSE(b.Allocate(5, 5, ieNull));
    EXPECT_EQ(b.Width(), 0);
    EXPECT_EQ(b.PixelFormat(), ieNull);

    ASSERT_TRUE(b.Allocate(3, 2, ie24RGB));
    EXPECT_EQ(b.Location(), ieMemory);  // small pictures never go to a file
    EXPECT_EQ(b.RowLen(), 12);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(b.Scanline(0)) % 64, 0u);
    Paint(b);
    uint8_t* before = b.Scanline(0);
    ASSERT_TRUE(b.Allocate(3, 2, ie24RGB));
    EXPECT_EQ(b.Scanline(0), before);
    EXPECT_TRUE(Painted(b, b.RowLen(), 2));

    ASSERT_TRUE(b.Allocate(4, 4, ie8p));
    EXPECT_EQ(b.Palette().size(), 256u);
}

TEST_F(BitmapTest, StorageFollowsMinFileSizeBothWays) {
    TIEBitmap b;
    b.SetMinFileSize(100);
    b.SetLocation(ieMemory);
    ASSERT_TRUE(b.Allocate(100, 10, ie24RGB));
    EXPECT_EQ(b.Location(), ieFile);
    EXPECT_EQ(FilesInTempFolder(), 0);  // unlinked at once

    b.SetMinFileSize(1 << 20);
    ASSERT_TRUE(b.Allocate(101, 10, ie24RGB));
    EXPECT_EQ(b.Location(), ieMemory);

    IESetMinFileSizeOverride(7);
    EXPECT_EQ(TIEBitmap().MinFileSize(), 7);
    IESetMinFileSizeOverride(-1);
    const int64_t available = IEAvailableMemory();
    ASSERT_GT(available, 0);
    EXPECT_NEAR(double(TIEBitmap().MinFileSize()), double(available) / 1.1, double(available) / 20);
}

TEST_F(BitmapTest, FileBitmapReadsBackRowByRowAcrossWindows) {
    // 3000 rows of 3 KiB: several mapping windows, so rows must survive the
    // windows being moved away and back.
    TIEBitmap b;
    b.SetMinFileSize(0);
    ASSERT_TRUE(b.Allocate(1024, 3000, ie24RGB));
    ASSERT_EQ(b.Location(), ieFile);
    Paint(b);
    EXPECT_TRUE(Painted(b, b.RowLen(), b.Height()));
    for (int y = b.Height() - 1; y >= 0; y -= 997)
        EXPECT_EQ(b.Scanline(y)[5], uint8_t(y * 7 + 5 * 13));

    TIEBitmap copy;
    copy.Assign(b);
    EXPECT_EQ(copy.Location(), ieMemory);
    EXPECT_TRUE(Painted(copy, copy.RowLen(), copy.Height()));

    // Back into a file, once as one block and once row by row from a
    // bottom-up buffer: both must land at the same rows.
    for (uint8_t origin : {0, 1}) {
        TIEBitmap source;
        source.SetOrigin(origin);
        ASSERT_TRUE(source.Allocate(1024, 3000, ie24RGB));
        Paint(source);
        TIEBitmap again;
        again.SetMinFileSize(0);
        again.Assign(source);
        ASSERT_EQ(again.Location(), ieFile);
        EXPECT_TRUE(Painted(again, again.RowLen(), again.Height())) << int(origin);
    }
}

TEST_F(BitmapTest, SegmentsTakeOverWhenOneBlockIsRefused) {
    IESetMemoryBlockLimit(12 << 20);
    TIEBitmap b;
    b.SetMinFileSize(int64_t(1) << 40);
    ASSERT_TRUE(b.Allocate(4000, 3000, ie24RGB));  // 36 MB in 4 segments of 9 MB
    EXPECT_EQ(b.Location(), ieMemory);
    EXPECT_TRUE(b.IsSegmented());
    Paint(b);
    EXPECT_TRUE(Painted(b, b.RowLen(), b.Height()));
    EXPECT_TRUE(b.WrapQImage().isNull());

    IESetMemoryBlockLimit(1 << 20);  // segments would have to be under 10 MB
    IESetFileFallback(false);
    TIEBitmap refused;
    refused.SetMinFileSize(int64_t(1) << 40);
    EXPECT_FALSE(refused.Allocate(4000, 3000, ie24RGB));
    EXPECT_EQ(refused.Width(), 0);
    IESetFileFallback(true);
    ASSERT_TRUE(refused.Allocate(4000, 3000, ie24RGB));
    EXPECT_EQ(refused.Location(), ieFile);
}

TEST_F(BitmapTest, AlphaPlaneRules) {
    TIEBitmap b(5, 7, ie24RGB);
    EXPECT_FALSE(b.HasAlphaChannel());
    TIEBitmap* a = b.AlphaChannel();
    ASSERT_NE(a, nullptr);
    EXPECT_TRUE(b.HasAlphaChannel());
    EXPECT_EQ(a->Width(), 5);
    EXPECT_EQ(a->Height(), 7);
    EXPECT_EQ(a->PixelFormat(), ie8g);
    EXPECT_TRUE(a->Full());
    EXPECT_EQ(a->Scanline(6)[4], 255);
    EXPECT_EQ(a->AlphaChannel(), nullptr);

    a->Scanline(3)[2] = 10;
    a->SyncFull();
    EXPECT_FALSE(a->Full());
    a->Fill(255);
    EXPECT_TRUE(a->Full());
    a->Fill(0);
    EXPECT_FALSE(a->Full());

    // Merging against the background: alpha 0 gives the background.
    b.Fill(0x000000FF);  // red
    b.AlphaChannel()->Scanline(0)[0] = 255;
    b.RemoveAlphaChannel(true, 0x00FF0000);  // over blue
    EXPECT_FALSE(b.HasAlphaChannel());
    EXPECT_EQ(b.Scanline(0)[2], 255);  // first pixel stays red
    EXPECT_EQ(b.Scanline(1)[0], 255);  // others turn blue
    EXPECT_EQ(b.Scanline(1)[2], 0);
}

TEST_F(BitmapTest, SizeSettersKeepContentsAndPlane) {
    TIEBitmap b(4, 4, ie24RGB);
    Paint(b);
    b.AlphaChannel();
    b.SetWidth(6);
    EXPECT_EQ(b.AlphaChannel()->Width(), 6);
    EXPECT_FALSE(b.AlphaChannel()->Full());  // the new columns are transparent
    EXPECT_TRUE(Painted(b, 12, 4));
    EXPECT_EQ(b.Scanline(0)[12], 0);
    b.SetHeight(2);
    EXPECT_EQ(b.Height(), 2);
    EXPECT_TRUE(Painted(b, 12, 2));

    TIEBitmap empty;  // no pixels yet: only the numbers change
    empty.SetWidth(9);
    EXPECT_EQ(empty.Width(), 9);
    EXPECT_FALSE(empty.IsAllocated());
}

TEST_F(BitmapTest, LocationMovesCarryContentsAndPlane) {
    TIEBitmap b(40, 30, ie24RGB);
    Paint(b);
    b.AlphaChannel()->Fill(100);
    b.SetLocation(ieTBitmap);
    ASSERT_NE(b.VclBitmap(), nullptr);
    EXPECT_EQ(b.VclBitmap()->format(), QImage::Format_BGR888);
    EXPECT_TRUE(Painted(b, 120, 30));
    EXPECT_EQ(b.AlphaChannel()->Location(), ieMemory);
    EXPECT_EQ(b.AlphaChannel()->Scanline(29)[39], 100);

    b.SetMinFileSize(0);
    b.SetLocation(ieFile);
    EXPECT_EQ(b.Location(), ieFile);
    EXPECT_EQ(b.AlphaChannel()->Location(), ieFile);
    EXPECT_TRUE(Painted(b, 120, 30));
    EXPECT_EQ(b.AlphaChannel()->Scanline(29)[39], 100);
}

TEST_F(BitmapTest, QImageStorageRefusesFormatsItCannotHold) {
    TIEBitmap b;
    b.SetLocation(ieTBitmap);
    try {
        b.Allocate(2, 2, ieCMYK);
        FAIL();
    } catch (const EIEException& e) {
        EXPECT_STREQ(e.what(), "ieCMYK pixel format not allowed when IEBitmap.Location=ieTBitmap");
    }
    EXPECT_THROW(b.Allocate(2, 2, ie32f), EIEException);
    ASSERT_TRUE(b.Allocate(2, 2, ie16g));
    EXPECT_EQ(b.PixelFormat(), ie8g);
}

TEST_F(BitmapTest, WrappedQImagePaintsIntoTheRows) {
    for (TIELocation where : {ieMemory, ieFile, ieTBitmap}) {
        TIEBitmap b;
        b.SetMinFileSize(where == ieFile ? 0 : int64_t(1) << 40);
        b.SetLocation(where);
        ASSERT_TRUE(b.Allocate(7, 5, ie24RGB));
        ASSERT_EQ(b.Location(), where);
        b.Fill(0);
        QImage view = b.WrapQImage();
        ASSERT_FALSE(view.isNull());
        view.setPixel(6, 4, qRgb(1, 2, 3));
        const uint8_t* p = b.Scanline(4) + 18;
        EXPECT_EQ(p[0], 3);
        EXPECT_EQ(p[2], 1);
    }
    TIEBitmap bottomUp(2, 2, ie24RGB);
    bottomUp.SetOrigin(1);
    EXPECT_TRUE(bottomUp.WrapQImage().isNull());
}

TEST_F(BitmapTest, AssignCopiesEverythingAndMovesEmptyTheSource) {
    TIEBitmap src(9, 4, ie8p);
    Paint(src);
    src.Palette()[3] = {1, 2, 3};
    QImage withAlpha(3, 2, QImage::Format_ARGB32);
    withAlpha.fill(qRgba(10, 20, 30, 128));
    TIEBitmap fromQt;
    fromQt.Assign(withAlpha);
    EXPECT_EQ(fromQt.PixelFormat(), ie24RGB);
    EXPECT_EQ(fromQt.Scanline(1)[2], 10);
    ASSERT_TRUE(fromQt.HasAlphaChannel());
    EXPECT_EQ(fromQt.AlphaChannel()->Scanline(1)[2], 128);

    TIEBitmap dst;
    dst.Assign(src);
    EXPECT_EQ(dst.PixelFormat(), ie8p);
    EXPECT_EQ(dst.Palette()[3], (TRGB{1, 2, 3}));
    EXPECT_TRUE(Painted(dst, 9, 4));
    dst.Assign(fromQt);
    EXPECT_TRUE(dst.HasAlphaChannel());
    dst.Assign(src);
    EXPECT_FALSE(dst.HasAlphaChannel());

    TIEBitmap moved(std::move(dst));
    EXPECT_EQ(moved.Width(), 9);
    EXPECT_EQ(dst.Width(), 0);
    EXPECT_EQ(dst.Location(), ieFile);
    EXPECT_TRUE(dst.Allocate(1, 1, ie24RGB));
}

TEST_F(BitmapTest, CopyRectAndMergeAlphaClipAndBlend) {
    TIEBitmap dst(4, 4, ie24RGB);
    dst.Fill(0);
    TIEBitmap src(2, 2, ie24RGB);
    src.Fill(0x00FFFFFF);
    TIEBitmap::CopyRect(src, 0, 0, 2, 2, dst, 3, -1);  // only one pixel lands
    EXPECT_EQ(dst.Scanline(0)[9], 255);
    EXPECT_EQ(dst.Scanline(1)[9], 0);
    EXPECT_EQ(dst.Scanline(0)[6], 0);

    dst.Fill(0);
    src.AlphaChannel()->Fill(255);
    src.AlphaChannel()->Scanline(0)[0] = 0;
    src.AlphaChannel()->SetFull(false);
    TIEBitmap::MergeAlpha(src, 0, 0, 2, 2, dst, 0, 0, 4, 4, 128);  // scaled twice
    EXPECT_EQ(dst.Scanline(0)[0], 0);                              // transparent source pixel
    EXPECT_EQ(dst.Scanline(1)[3], 0);                              // still the same source pixel
    EXPECT_EQ(dst.Scanline(3)[9], 128);                            // half opacity over black
    EXPECT_EQ(dst.Scanline(0)[6], 128);
}

}  // namespace
}  // namespace qpt
