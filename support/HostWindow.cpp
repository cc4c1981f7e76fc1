#include "support/HostWindow.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace qpt {

namespace {

struct ConnectionCloser {
    void operator()(xcb_connection_t* c) const { xcb_disconnect(c); }
};
using Connection = std::unique_ptr<xcb_connection_t, ConnectionCloser>;

Connection Connect(xcb_window_t* root) {
    if (!std::getenv("DISPLAY")) return nullptr;
    int screenNumber = 0;
    Connection c(xcb_connect(nullptr, &screenNumber));
    if (!c || xcb_connection_has_error(c.get())) return nullptr;
    xcb_screen_iterator_t it = xcb_setup_roots_iterator(xcb_get_setup(c.get()));
    for (int i = 0; i < screenNumber && it.rem; ++i)
        xcb_screen_next(&it);
    if (!it.rem) return nullptr;
    *root = it.data->root;
    return c;
}

xcb_atom_t Atom(xcb_connection_t* c, const char* name) {
    auto cookie = xcb_intern_atom(c, 0, static_cast<uint16_t>(std::strlen(name)), name);
    std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(c, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QByteArray Property(xcb_connection_t* c, xcb_window_t w, xcb_atom_t property, xcb_atom_t type) {
    auto cookie = xcb_get_property(c, 0, w, property, type, 0, 4096);
    std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(c, cookie, nullptr), &std::free);
    if (!reply) return {};
    const int length = xcb_get_property_value_length(reply.get());
    return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())), length);
}

std::vector<xcb_window_t> WindowList(const QByteArray& words) {
    std::vector<xcb_window_t> windows(words.size() / sizeof(xcb_window_t));
    std::memcpy(windows.data(), words.constData(), windows.size() * sizeof(xcb_window_t));
    return windows;
}

class HostSearch {
public:
    explicit HostSearch(xcb_connection_t* c)
        : c_(c), netWmName_(Atom(c, "_NET_WM_NAME")), utf8_(Atom(c, "UTF8_STRING")) {}

    bool Matches(xcb_window_t w) const {
        if (WindowClassPart(Property(c_, w, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING)) !=
            kHostWindowClass)
            return false;
        QByteArray title = Property(c_, w, netWmName_, utf8_);
        if (title.isEmpty()) title = Property(c_, w, XCB_ATOM_WM_NAME, XCB_ATOM_STRING);
        return title == kHostWindowTitle;
    }

    // Without a window manager's client list, the client windows are the
    // children of the root or, under a reparenting manager, their children.
    xcb_window_t SearchTree(xcb_window_t parent, int depth) const {
        auto cookie = xcb_query_tree(c_, parent);
        std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)> reply(
            xcb_query_tree_reply(c_, cookie, nullptr), &std::free);
        if (!reply) return 0;
        const xcb_window_t* children = xcb_query_tree_children(reply.get());
        const int count = xcb_query_tree_children_length(reply.get());
        for (int i = 0; i < count; ++i)
            if (Matches(children[i])) return children[i];
        if (depth == 0) return 0;
        for (int i = 0; i < count; ++i)
            if (xcb_window_t found = SearchTree(children[i], depth - 1)) return found;
        return 0;
    }

private:
    xcb_connection_t* c_;
    xcb_atom_t netWmName_;
    xcb_atom_t utf8_;
};

}  // namespace

QByteArray WindowClassPart(const QByteArray& wmClass) {
    const qsizetype end = wmClass.indexOf('\0');
    if (end < 0) return {};
    QByteArray rest = wmClass.mid(end + 1);
    const qsizetype classEnd = rest.indexOf('\0');
    return classEnd < 0 ? rest : rest.left(classEnd);
}

std::uint32_t FindHostWindow() {
    xcb_window_t root = 0;
    Connection c = Connect(&root);
    if (!c) return 0;
    const HostSearch search(c.get());
    const QByteArray clients =
        Property(c.get(), root, Atom(c.get(), "_NET_CLIENT_LIST"), XCB_ATOM_WINDOW);
    if (!clients.isEmpty()) {
        for (xcb_window_t w : WindowList(clients))
            if (search.Matches(w)) return w;
        return 0;
    }
    return search.SearchTree(root, 1);
}

void PostHostNotice(std::uint32_t window, std::int32_t wParam, std::int32_t lParam) {
    if (window == 0) return;
    xcb_window_t root = 0;
    Connection c = Connect(&root);
    if (!c) return;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = Atom(c.get(), kHostNoticeAtom);
    event.data.data32[0] = static_cast<uint32_t>(kHostNoticeMessage);
    event.data.data32[1] = static_cast<uint32_t>(wParam);
    event.data.data32[2] = static_cast<uint32_t>(lParam);
    auto cookie = xcb_send_event_checked(c.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                                         reinterpret_cast<const char*>(&event));
    // The reply is the proof that the server has the event; a window that has
    // gone answers with an error, which is of no interest here.
    std::free(xcb_request_check(c.get(), cookie));
}

}  // namespace qpt
