// All forms of the session made in process: every call the pinned window
// makes on the other forms must be answered once they exist.
#include <gtest/gtest.h>

#include <memory>

#include "annotate/FormTools.h"
#include "app/FormPinned.h"
#include "app/FormSequence.h"
#include "app/session/SessionForms.h"
#include "skin/MenuItem.h"
#include "skin/RdImageButton.h"
#include "support/Language.h"
#include "support/MainIni.h"
#include "support/QptMessages.h"
#include "tests/app/InProcessPin.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

TEST(FormSequence, EveryCallOfThePinnedWindowIsAnsweredOnceAllFormsExist) {
    testing::MakeTestApplication();
    testing::ScratchHome home;
    testing::WriteHandOver(testing::PlainPicture(QSize(120, 80)), QRect(40, 50, 120, 80));
    std::unique_ptr<TFormPinned> pinned(CreateSessionForms({"QptPin", "/QPTMain"}));
    EXPECT_EQ(pinned->Bars.MissingHooks(), QStringList()) << "every form is made and wired";
    EXPECT_EQ(FormPinned, pinned.get());
    EXPECT_EQ(Image_Front, pinned->Image_Front);
    ASSERT_NE(FormSmallTools, nullptr);
    ASSERT_NE(FormMsg, nullptr);
    EXPECT_TRUE(FormMsg->isWindow()) << "a window of its own, though the pinned one owns it";
    ASSERT_NE(FormSavePath, nullptr);
    EXPECT_TRUE(FormSavePath->isWindow());
    EXPECT_FALSE(FormSavePath->isVisible()) << "the path panel waits for its button";
    pinned.reset();
    EXPECT_EQ(FormPinned, nullptr) << "a form that goes leaves no stale variable";
    EXPECT_EQ(Image_Front, nullptr);
    EXPECT_EQ(FormSmallTools, nullptr);
    EXPECT_EQ(FormMsg, nullptr);
    EXPECT_EQ(FormSavePath, nullptr);
}

// The settings name a second language: what the forms show comes from its
// file, where it has the text, and from the English one otherwise.
TEST(FormSequence, TheFormsSpeakTheLanguageTheSettingsName) {
    testing::MakeTestApplication();
    testing::ScratchHome home;
    const QString folder = home.root() + "Language/";
    testing::WriteFile(folder + "English.lng", "[QPT_Main_M]\nM_OK=OK\n");
    testing::WriteFile(folder + "Deutsch.lng",
                       "\xEF\xBB\xBF[Main]\nDisplayName=Deutsch\n[QPT_Main_M]\n"
                       "M_Screen_TipInfo=In der Zwischenablage: 100%% fertig.\n"
                       "M_Screen_Rect=Rechteck\nM_Share_Imgur=Imgur (Bildhoster)\n");
    WriteMainIni("Main", "Language", "Deutsch");
    CreateLanguage("QPT", folder);
    testing::WriteHandOver(testing::PlainPicture(QSize(120, 80)), QRect(40, 50, 120, 80));
    std::unique_ptr<TFormPinned> pinned(CreateSessionForms({"QptPin", "/QPTMain"}));
    EXPECT_EQ(Language()->LanguageName(), "Deutsch");
    EXPECT_EQ(QptMessages().Text("M_Screen_TipInfo"), "In der Zwischenablage: 100% fertig.");
    EXPECT_EQ(QptMessages().Text("M_OK"), "OK");
    auto* tools = pinned->findChild<TFormTools*>();
    ASSERT_NE(tools, nullptr);
    EXPECT_EQ(tools->Btn_Rd_Rect->Hint(), "Rechteck");
    EXPECT_EQ(tools->MenuImgur->Caption(), "Imgur (Bildhoster)");
    EXPECT_EQ(tools->Btn_Rd_Ellip->Hint(), "Oval");
    // The next tests find the program's own language again.
    CreateLanguage("QPT");
    FetchMessageTexts(*Language());
}

}  // namespace
}  // namespace qpt
