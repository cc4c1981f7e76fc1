#pragma once

#include <xcb/xcb.h>

#include <QList>
#include <QPoint>
#include <string>

namespace qpt::testing {

xcb_atom_t Intern(xcb_connection_t* c, const char* name);

// An unmapped top-level window with the given WM_CLASS (instance and class,
// each ended by a zero) and title.
xcb_window_t MakeTopLevelWindow(xcb_connection_t* c, const std::string& wmClass, const char* title);

// The host as the program looks for it, made on the test's own connection,
// with the notices it has been sent.
class HostStandIn {
public:
    explicit HostStandIn(xcb_connection_t* c);

    xcb_window_t window() const { return window_; }
    // The words of each notice 1129 received so far (wParam, lParam), in
    // order; other events on the connection are dropped.
    QList<QPoint> Notices();

private:
    xcb_connection_t* c_;
    xcb_window_t window_;
    xcb_atom_t noticeAtom_;
    QList<QPoint> notices_;
};

}  // namespace qpt::testing
