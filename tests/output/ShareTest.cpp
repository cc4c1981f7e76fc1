// The widget-free side of sharing: the pages each kind opens, what counts as
// a link in the image host's answer, and where the upload goes.
#include <gtest/gtest.h>

#include <utility>

#include "output/share/ShareKind.h"
#include "output/share/UploadAnswer.h"
#include "output/share/UploadSettings.h"
#include "support/MainIni.h"
#include "support/ScreenRecordSettingsData.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

TEST(ShareKind, EachKindOpensItsPageWithTheLinkAsReturned) {
    // Query characters of the link stay as they are: the pages take it raw.
    const QString link = "https://i.example.com/a b?x=1&y=2";
    EXPECT_EQ(BuildShareAddress(skFacebook, link), "https://www.facebook.com/sharer.php?u=" + link);
    EXPECT_EQ(BuildShareAddress(skTwitter, link),
              "https://twitter.com/home?source=ZelkScreenshot&status=" + link);
    EXPECT_EQ(BuildShareAddress(skPinterest, link),
              "https://www.pinterest.com/pin/create/button/?url=" + link);
    EXPECT_EQ(BuildShareAddress(skImageHost, link), link);
    EXPECT_EQ(BuildShareAddress(skImageSearch, link),
              "https://www.google.com/searchbyimage?image_url=" + link);

    // A failed upload still opens the target page, except for the host's own.
    EXPECT_EQ(BuildShareAddress(skFacebook, {}), "https://www.facebook.com/sharer.php?u=");
    EXPECT_TRUE(BuildShareAddress(skImageHost, {}).isEmpty());
    EXPECT_TRUE(BuildShareAddress(5, link).isEmpty());
    EXPECT_TRUE(BuildShareAddress(-1, link).isEmpty());
}

TEST(ShareKind, UsageCodesAndTitles) {
    EXPECT_EQ(ShareUsageCode(skFacebook), "a307");
    EXPECT_EQ(ShareUsageCode(skTwitter), "a308");
    EXPECT_EQ(ShareUsageCode(skPinterest), "a309");
    EXPECT_EQ(ShareUsageCode(skImageHost), "a310");
    EXPECT_TRUE(ShareUsageCode(skImageSearch).isEmpty());
    EXPECT_EQ(ShareTitleKey(skPinterest), "M_ShareWinTitle");
    EXPECT_EQ(ShareTitleKey(skImageSearch), "M_Screen_SearchTitle");
}

TEST(UploadAnswer, TheLinkIsDataThenLink) {
    // The host escapes its slashes; the status and flags are not looked at.
    EXPECT_EQ(ReadUploadLink(R"({"data":{"id":"x","link":"https:\/\/i.example.com\/x.png"},)"
                             R"("success":false,"status":500})"),
              "https://i.example.com/x.png");
    EXPECT_EQ(ReadUploadLink(R"({"data":{"link":"HTTP://host/\u00e9.png"}})"), "HTTP://host/é.png");
}

TEST(UploadAnswer, AnythingElseGivesNoLink) {
    for (const char* answer : {
             "", "<html>502 Bad Gateway</html>",
             R"({"data":{"link":"https://i.example.com/x.png")",  // cut short
             R"({"data":{"error":"Invalid client_id"},"success":false,"status":403})",
             R"({"link":"https://i.example.com/x.png"})",
             R"({"data":[{"link":"https://i.example.com/x.png"}]})", R"({"data":{"link":42}})",
             R"({"data":{"link":null}})", R"(["data"])",
             R"({"data":{"link":"file:///etc/passwd"}})",
             R"j({"data":{"link":"javascript:alert(1)"}})j",
             R"({"data":{"link":"https://i.example.com/x.png --new-window"}})",
             R"({"data":{"link":"https://i.example.com/\u0000x"}})",
             "{\"data\":{\"link\":\"https://i.example.com/\xff.png\"}}",  // not UTF-8
         })
        EXPECT_TRUE(ReadUploadLink(answer).isEmpty()) << answer;
}

TEST(UploadSettings, ThePublicHostUnlessTheShareSectionSaysOtherwise) {
    testing::ScratchHome home;
    const TUploadSettings defaults = UploadSettingsOf(TScreenRecordSettingsData());
    EXPECT_EQ(defaults.uploadUrl, "https://api.imgur.com/3/image");
    EXPECT_EQ(defaults.clientId, "0f3e9b1d7a2c486");
    EXPECT_TRUE(defaults.caFile.isEmpty());
    EXPECT_EQ(defaults.timeoutMs, 20000);
    EXPECT_EQ(TUploadSettings().timeoutMs, 20000);
    EXPECT_EQ(UploadAddress(defaults), "https://api.imgur.com/3/image?client_id=0f3e9b1d7a2c486");

    WriteMainIni("Share", "UploadUrl", "https://127.0.0.1:4443/3/image?v=2");
    WriteMainIni("Share", "ClientId", "a b&c");
    WriteMainIni("Share", "CaFile", "/tmp/ca.pem");
    const TUploadSettings own = UploadSettingsOf(TScreenRecordSettingsData());
    EXPECT_EQ(own.caFile, "/tmp/ca.pem");
    EXPECT_EQ(UploadAddress(own), "https://127.0.0.1:4443/3/image?v=2&client_id=a%20b%26c");

    // An emptied key is as good as missing.
    WriteMainIni("Share", "UploadUrl", " ");
    EXPECT_EQ(UploadSettingsOf(TScreenRecordSettingsData()).uploadUrl,
              "https://api.imgur.com/3/image");
}

TEST(UploadSettings, TheTimeOutIsTakenWithinItsBoundsAndIsTheDefaultBeyond) {
    testing::ScratchHome home;
    for (const auto& [text, ms] : {std::pair{"1000", 1000},
                                   {"300000", 300000},
                                   {"45000", 45000},
                                   {"999", 20000},
                                   {"300001", 20000},
                                   {"0", 20000},
                                   {"-1500", 20000},
                                   {"soon", 20000}}) {
        WriteMainIni("Share", "UploadTimeoutMs", text);
        EXPECT_EQ(UploadSettingsOf(TScreenRecordSettingsData()).timeoutMs, ms) << text;
    }
}

}  // namespace
}  // namespace qpt
