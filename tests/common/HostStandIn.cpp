#include "tests/common/HostStandIn.h"

#include <cstdlib>
#include <cstring>

#include "support/HostWindow.h"

namespace qpt::testing {

xcb_atom_t Intern(xcb_connection_t* c, const char* name) {
    auto* reply = xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return atom;
}

xcb_window_t MakeTopLevelWindow(xcb_connection_t* c, const std::string& wmClass,
                                const char* title) {
    xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    const xcb_window_t w = xcb_generate_id(c);
    xcb_create_window(c, XCB_COPY_FROM_PARENT, w, screen->root, 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<uint32_t>(wmClass.size()), wmClass.data());
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, w, Intern(c, "_NET_WM_NAME"),
                        Intern(c, "UTF8_STRING"), 8, static_cast<uint32_t>(std::strlen(title)),
                        title);
    xcb_flush(c);
    return w;
}

HostStandIn::HostStandIn(xcb_connection_t* c)
    : c_(c),
      window_(MakeTopLevelWindow(c, std::string("host\0TForm_QPTMain\0", 19), kHostWindowTitle)),
      noticeAtom_(Intern(c, kHostNoticeAtom)) {}

QList<QPoint> HostStandIn::Notices() {
    // A round trip first: a notice the server took before now is then queued here.
    std::free(xcb_get_input_focus_reply(c_, xcb_get_input_focus(c_), nullptr));
    while (xcb_generic_event_t* event = xcb_poll_for_event(c_)) {
        const auto* message = reinterpret_cast<xcb_client_message_event_t*>(event);
        if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message->type == noticeAtom_ &&
            message->data.data32[0] == uint32_t(kHostNoticeMessage))
            notices_ << QPoint(int(message->data.data32[1]), int(message->data.data32[2]));
        std::free(event);
    }
    return notices_;
}

}  // namespace qpt::testing
