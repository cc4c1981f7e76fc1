#include <gtest/gtest.h>

#include "imaging/encode/IECodecLibraries.h"
#include "support/loader/SharedLibrary.h"

namespace qpt {
namespace {

constexpr const char* kMissing = "libqpt-no-such-library.so.9";

int Marker(int) {
    return 0;
}

TEST(SharedLibraryTest, AMissingLibraryLoadsNothingAndFindsNothing) {
    const TSharedLibrary library(kMissing);
    EXPECT_FALSE(library.Loaded());
    EXPECT_NE(library.Error().find(kMissing), std::string::npos) << library.Error();
    // A call left over from before must not survive a failed look-up.
    int (*call)(int) = Marker;
    EXPECT_FALSE(library.Find("abs", call));
    EXPECT_EQ(call, nullptr);
}

TEST(SharedLibraryTest, FindsWhatAnOpenedLibraryHasAndOnlyThat) {
    const TSharedLibrary library("libc.so.6");
    ASSERT_TRUE(library.Loaded());
    int (*absolute)(int) = nullptr;
    ASSERT_TRUE(library.Find("abs", absolute));
    EXPECT_EQ(absolute(-7), 7);
    int (*call)(int) = Marker;
    EXPECT_FALSE(library.Find("qpt_no_such_call", call));
    EXPECT_EQ(call, nullptr);
}

// A missing library, or one of another format that lacks the calls, gives no
// table at all, so an encoder never calls through a null pointer.
TEST(CodecLibrariesTest, NoTableFromAMissingOrWrongLibrary) {
    EXPECT_FALSE(IELoadJpegCalls(kMissing));
    EXPECT_FALSE(IELoadTiffCalls(kMissing));
    EXPECT_FALSE(IELoadGifCalls(kMissing));
    EXPECT_FALSE(IELoadJpegCalls("libgif.so.7"));
    EXPECT_FALSE(IELoadTiffCalls("libjpeg.so.62"));
    EXPECT_FALSE(IELoadGifCalls("libtiff.so.6"));
}

// The run-time names in the program must match the libraries installed with
// the headers it was built against.
TEST(CodecLibrariesTest, TheInstalledLibrariesGiveCompleteTables) {
    EXPECT_NE(IEJpegCalls(), nullptr);
    EXPECT_NE(IETiffCalls(), nullptr);
    EXPECT_NE(IEGifCalls(), nullptr);
}

}  // namespace
}  // namespace qpt
