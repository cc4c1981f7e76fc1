#include "skin/X11Window.h"

#include <QGuiApplication>

#if QT_CONFIG(xcb)
#include <dlfcn.h>
#include <xcb/xcb.h>

#include <QElapsedTimer>
#include <cstdlib>

#include <QtGui/qguiapplication_platform.h>
#endif

namespace qpt {

#if QT_CONFIG(xcb)
namespace {

// libxcb is loaded by Qt's X11 platform plugin; we only borrow it when it is
// there, so that the skin library links no X library of its own.
struct XcbCalls {
    decltype(&xcb_configure_window_checked) configure = nullptr;
    decltype(&xcb_discard_reply) discard = nullptr;
    decltype(&xcb_flush) flush = nullptr;
    decltype(&xcb_intern_atom) internAtom = nullptr;
    decltype(&xcb_intern_atom_reply) internAtomReply = nullptr;
    decltype(&xcb_get_selection_owner) selectionOwner = nullptr;
    decltype(&xcb_get_selection_owner_reply) selectionOwnerReply = nullptr;

    bool Complete() const {
        return configure && discard && flush && internAtom && internAtomReply && selectionOwner &&
               selectionOwnerReply;
    }
};

template <typename F>
void Find(void* library, F& target, const char* name) {
    target = reinterpret_cast<F>(dlsym(library, name));
}

XcbCalls LoadCalls() {
    XcbCalls calls;
    void* library = dlopen("libxcb.so.1", RTLD_NOW | RTLD_NOLOAD);
    if (!library) return calls;
    Find(library, calls.configure, "xcb_configure_window_checked");
    Find(library, calls.discard, "xcb_discard_reply");
    Find(library, calls.flush, "xcb_flush");
    Find(library, calls.internAtom, "xcb_intern_atom");
    Find(library, calls.internAtomReply, "xcb_intern_atom_reply");
    Find(library, calls.selectionOwner, "xcb_get_selection_owner");
    Find(library, calls.selectionOwnerReply, "xcb_get_selection_owner_reply");
    return calls;
}

// Null off X11 or when the library cannot be borrowed.
xcb_connection_t* Connection(const XcbCalls*& calls) {
    static const XcbCalls loaded = LoadCalls();
    auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    auto* x11 = app ? app->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!x11 || !loaded.Complete()) return nullptr;
    calls = &loaded;
    return x11->connection();
}

xcb_atom_t CompositorAtom(xcb_connection_t* connection, const XcbCalls& xcb) {
    static const char kName[] = "_NET_WM_CM_S0";
    xcb_intern_atom_reply_t* reply = xcb.internAtomReply(
        connection, xcb.internAtom(connection, 0, sizeof(kName) - 1, kName), nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return atom;
}

bool CompositorRuns(xcb_connection_t* connection, const XcbCalls& xcb) {
    static const xcb_atom_t atom = CompositorAtom(connection, xcb);
    if (atom == XCB_ATOM_NONE) return false;
    xcb_get_selection_owner_reply_t* reply =
        xcb.selectionOwnerReply(connection, xcb.selectionOwner(connection, atom), nullptr);
    const bool owned = reply && reply->owner != xcb_window_t(XCB_WINDOW_NONE);
    std::free(reply);
    return owned;
}

}  // namespace

bool X11StackBelow(WId window, WId sibling) {
    const XcbCalls* xcb = nullptr;
    xcb_connection_t* connection = Connection(xcb);
    if (!connection || !window || !sibling) return false;
    const uint32_t values[] = {uint32_t(sibling), XCB_STACK_MODE_BELOW};
    // A window manager that does not know the sibling refuses the request;
    // the shadow then stays where it is, which is no reason for a message.
    const xcb_void_cookie_t cookie =
        xcb->configure(connection, xcb_window_t(window),
                       XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values);
    xcb->discard(connection, cookie.sequence);
    xcb->flush(connection);
    return true;
}

bool TranslucentWindowsShow() {
    const XcbCalls* xcb = nullptr;
    xcb_connection_t* connection = Connection(xcb);
    if (!connection) return true;
    // Asked on every move of a window: one round trip to the server a second
    // is enough to notice a compositor coming or going.
    static QElapsedTimer asked;
    static bool runs = false;
    if (!asked.isValid() || asked.hasExpired(1000)) {
        runs = CompositorRuns(connection, *xcb);
        asked.start();
    }
    return runs;
}

#else

bool X11StackBelow(WId, WId) {
    return false;
}

bool TranslucentWindowsShow() {
    return true;
}

#endif

}  // namespace qpt
