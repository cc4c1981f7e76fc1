#include "HostMainWindow.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "support/HostWindow.h"

namespace qpt::standin {

namespace {

xcb_connection_t* Connection() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

}  // namespace

HostMainWindow::HostMainWindow() {
    setWindowTitle(kHostWindowTitle);
    setText("Stand-in host: QptPin pins the picture.\nNotices are printed in the terminal.");
    setMargin(12);
    setWindowFlag(Qt::WindowDoesNotAcceptFocus);
}

void HostMainWindow::ShowAndPublish() {
    show();
    xcb_connection_t* c = Connection();
    if (!c) return;
    static const char wmClass[] = "standinhost\0TForm_QPTMain";
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(winId()),
                        XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, sizeof(wmClass), wmClass);
    std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));  // a round trip
}

NoticePrinter::NoticePrinter() {
    if (xcb_connection_t* c = Connection()) {
        auto* reply = xcb_intern_atom_reply(
            c, xcb_intern_atom(c, 0, std::strlen(kHostNoticeAtom), kHostNoticeAtom), nullptr);
        if (reply) noticeAtom_ = reply->atom;
        std::free(reply);
    }
}

bool NoticePrinter::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t") return false;
    auto* event = static_cast<xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) return false;
    auto* client = static_cast<xcb_client_message_event_t*>(message);
    if (client->type != noticeAtom_ || client->format != 32) return false;
    std::printf("notice %d %d %d\n", static_cast<int>(client->data.data32[0]),
                static_cast<int>(client->data.data32[1]), static_cast<int>(client->data.data32[2]));
    std::fflush(stdout);
    return true;
}

}  // namespace qpt::standin
