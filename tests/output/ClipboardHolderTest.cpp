// The clipboard holder under a real X server and real clients: what the
// program copied stays on the clipboard after the program has ended.
#include <gtest/gtest.h>

#include <QImage>

#include "tests/output/ClipboardTestSupport.h"
#include "tests/output/TestPicture.h"

namespace qpt::testing {
namespace {

constexpr char kNoManagerLine[] = "no clipboard manager runs";

QImage Decode(const QByteArray& bytes, const char* format) {
    return QImage::fromData(bytes, format);
}

QStringList Lines(const QByteArray& text) {
    return QString::fromUtf8(text).split('\n', Qt::SkipEmptyParts);
}

using ClipboardHolder = ClipboardTest;

TEST_F(ClipboardHolder, PictureIsPastedAsPngAndBmpAfterTheProgramEnded) {
    ASSERT_EQ(CopyPicture(321, 200, 1), 0);
    const QStringList targets = Lines(Xclip("TARGETS"));
    for (const char* t : {"TARGETS", "MULTIPLE", "TIMESTAMP", "image/png", "image/bmp"})
        EXPECT_TRUE(targets.contains(t)) << t;
    EXPECT_FALSE(targets.contains("UTF8_STRING"));
    EXPECT_EQ(PatternDifference(Decode(Xclip("image/png"), "PNG"), 321, 200, 1), "");
    EXPECT_EQ(PatternDifference(Decode(Xclip("image/bmp"), "BMP"), 321, 200, 1), "");
    EXPECT_EQ(LogText().count(kNoManagerLine), 1) << LogText().toStdString();
}

TEST_F(ClipboardHolder, TextIsPastedAsUtf8UnderEachTextTarget) {
    const QString link = QString::fromUtf8("https://i.example.test/a\u00e9\u20ac.png");
    ASSERT_EQ(CopyText(link), 0);
    EXPECT_EQ(QString::fromUtf8(Xclip("UTF8_STRING")), link);
    EXPECT_EQ(QString::fromUtf8(Xclip("text/plain;charset=utf-8")), link);
    EXPECT_EQ(QString::fromUtf8(Xclip("text/plain")), link);
    EXPECT_FALSE(Lines(Xclip("TARGETS")).contains("image/png"));
    EXPECT_TRUE(Xclip("image/png").isEmpty());
}

TEST_F(ClipboardHolder, DataLargerThanOneRequestComesInPieces) {
    ASSERT_EQ(CopyPicture(3840, 2160, 2), 0);
    const Pasted bmp = client_->Paste("image/bmp");
    ASSERT_TRUE(bmp.converted);
    EXPECT_TRUE(bmp.incremental);
    EXPECT_GT(bmp.pieces, 1);
    EXPECT_EQ(bmp.type, "image/bmp");
    EXPECT_EQ(PatternDifference(Decode(bmp.bytes, "BMP"), 3840, 2160, 2), "");
    const Pasted png = client_->Paste("image/png");
    ASSERT_TRUE(png.converted);
    EXPECT_EQ(PatternDifference(Decode(png.bytes, "PNG"), 3840, 2160, 2), "");
}

TEST_F(ClipboardHolder, MultipleConvertsEachPairAndRefusesWhatItDoesNotOffer) {
    ASSERT_EQ(CopyPicture(64, 48, 3), 0);
    std::vector<Pasted> each;
    const std::vector<xcb_atom_t> pairs = client_->PasteMultiple(
        {{"image/png", "_TEST_A"}, {"text/uri-list", "_TEST_B"}, {"image/bmp", "_TEST_C"}}, each);
    ASSERT_EQ(pairs.size(), 6u);
    EXPECT_EQ(pairs[1], client_->Atom("_TEST_A"));
    EXPECT_EQ(pairs[3], xcb_atom_t(XCB_ATOM_NONE));
    EXPECT_EQ(pairs[5], client_->Atom("_TEST_C"));
    ASSERT_EQ(each.size(), 3u);
    EXPECT_EQ(PatternDifference(Decode(each[0].bytes, "PNG"), 64, 48, 3), "");
    EXPECT_EQ(PatternDifference(Decode(each[2].bytes, "BMP"), 64, 48, 3), "");
}

TEST_F(ClipboardHolder, SecondCopyReplacesTheFirstHolder) {
    ASSERT_EQ(CopyPicture(100, 80, 4), 0);
    const xcb_window_t first = client_->Owner("CLIPBOARD");
    ASSERT_EQ(CopyPicture(90, 70, 5), 0);
    const xcb_window_t second = client_->Owner("CLIPBOARD");
    EXPECT_NE(second, first);
    EXPECT_TRUE(PasteClient::WaitFor([&] { return !client_->WindowExists(first); }));
    EXPECT_EQ(HolderProcesses(display_.name()), 1);
    EXPECT_EQ(PatternDifference(Decode(Xclip("image/png"), "PNG"), 90, 70, 5), "");
}

TEST_F(ClipboardHolder, ClipboardManagerKeepsThePictureAndTheHolderEnds) {
    ClipboardManagerDaemon manager;
    ASSERT_TRUE(PasteClient::WaitFor(
        [&] { return client_->Owner("CLIPBOARD_MANAGER") != XCB_WINDOW_NONE; }, 15000))
        << "no clipboard manager came up (tools/install-deps installs it)";
    ASSERT_EQ(CopyPicture(200, 150, 6), 0);
    EXPECT_TRUE(PasteClient::WaitFor([&] { return HolderProcesses(display_.name()) == 0; }));
    EXPECT_EQ(PatternDifference(Decode(Xclip("image/png"), "PNG"), 200, 150, 6), "");
    EXPECT_FALSE(LogText().contains(kNoManagerLine));
}

TEST_F(ClipboardHolder, WithoutAManagerTheHolderStaysUntilTheClipboardIsTaken) {
    ASSERT_EQ(CopyText("kept"), 0);
    EXPECT_EQ(HolderProcesses(display_.name()), 1);
    client_->TakeClipboard();
    EXPECT_TRUE(PasteClient::WaitFor([&] { return HolderProcesses(display_.name()) == 0; }));
}

}  // namespace
}  // namespace qpt::testing
