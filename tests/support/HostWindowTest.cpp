// The notice to the host crosses a real X server: a window of the host's class
// and title is made here, found, and sent the notice.
#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "support/HostWindow.h"
#include "tests/common/DisplayTest.h"
#include "tests/common/HostStandIn.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::Intern;
using testing::MakeTopLevelWindow;
using testing::ScratchHome;

class HostWindowOnX : public testing::DisplayTest {};

TEST_F(HostWindowOnX, FindsTheWindowByClassAndTitleOnly) {
    EXPECT_EQ(FindHostWindow(), 0u);
    MakeTopLevelWindow(c_, std::string("host\0Other\0", 11), "Zelk Screenshot");
    MakeTopLevelWindow(c_, std::string("host\0TForm_QPTMain\0", 19), "Another title");
    EXPECT_EQ(FindHostWindow(), 0u);
    const xcb_window_t host =
        MakeTopLevelWindow(c_, std::string("x\0TForm_QPTMain\0", 16), "Zelk Screenshot");
    EXPECT_EQ(FindHostWindow(), host);
}

TEST_F(HostWindowOnX, NoticeArrivesAsClientMessageWithCodeAndWords) {
    const xcb_window_t host =
        MakeTopLevelWindow(c_, std::string("x\0TForm_QPTMain\0", 16), "Zelk Screenshot");
    PostHostNotice(host, 2, 1);
    xcb_generic_event_t* event = nullptr;
    while ((event = xcb_wait_for_event(c_)) && (event->response_type & 0x7f) != XCB_CLIENT_MESSAGE)
        std::free(event);
    ASSERT_NE(event, nullptr);
    const auto* message = reinterpret_cast<xcb_client_message_event_t*>(event);
    EXPECT_EQ(message->type, Intern(c_, "_QPT_HOST_NOTICE"));
    EXPECT_EQ(message->format, 32);
    EXPECT_EQ(message->data.data32[0], 1129u);
    EXPECT_EQ(message->data.data32[1], 2u);
    EXPECT_EQ(message->data.data32[2], 1u);
    std::free(event);
}

TEST_F(HostWindowOnX, NoticeToAMissingWindowIsQuiet) {
    PostHostNotice(0, 1, 1);
    PostHostNotice(0x3fffffff, 1, 1);  // no such window: an X error, swallowed
    SUCCEED();
}

TEST(HostWindow, WithoutADisplayThereIsNoHost) {
    ScratchHome env;
    env.setEnv("DISPLAY", std::nullopt);
    EXPECT_EQ(FindHostWindow(), 0u);
    PostHostNotice(42, 1, 1);
}

TEST(HostWindow, ClassPartOfWmClass) {
    EXPECT_EQ(WindowClassPart(QByteArray("inst\0TForm_QPTMain\0", 19)), "TForm_QPTMain");
    EXPECT_EQ(WindowClassPart(QByteArray("inst\0Cls", 8)), "Cls");
    EXPECT_EQ(WindowClassPart("no separator"), "");
}

}  // namespace
}  // namespace qpt
