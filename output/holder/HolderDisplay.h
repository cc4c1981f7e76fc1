#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace qpt::holder {

// The atoms of the selection protocols, interned in one round trip.
struct Atoms {
    xcb_atom_t clipboard = XCB_ATOM_NONE;
    xcb_atom_t targets = XCB_ATOM_NONE;
    xcb_atom_t multiple = XCB_ATOM_NONE;
    xcb_atom_t timestamp = XCB_ATOM_NONE;
    xcb_atom_t incr = XCB_ATOM_NONE;
    xcb_atom_t atomPair = XCB_ATOM_NONE;
    xcb_atom_t png = XCB_ATOM_NONE;
    xcb_atom_t bmp = XCB_ATOM_NONE;
    xcb_atom_t utf8String = XCB_ATOM_NONE;
    xcb_atom_t textPlainUtf8 = XCB_ATOM_NONE;
    xcb_atom_t textPlain = XCB_ATOM_NONE;
    xcb_atom_t manager = XCB_ATOM_NONE;
    xcb_atom_t saveTargets = XCB_ATOM_NONE;
    // Properties on the holder's own window.
    xcb_atom_t saveList = XCB_ATOM_NONE;
    xcb_atom_t clock = XCB_ATOM_NONE;
};

// The holder's connection and its unmapped window, the owner of CLIPBOARD.
class HolderDisplay {
public:
    HolderDisplay() = default;
    ~HolderDisplay();
    HolderDisplay(const HolderDisplay&) = delete;
    HolderDisplay& operator=(const HolderDisplay&) = delete;

    // Connects to the display named by DISPLAY and makes the window; false
    // when the display cannot be reached. Again after a failure: a new try.
    bool Connect();
    bool Connected() const;

    // The server's present time, read from a property change on the window,
    // so that ownership and requests carry a real timestamp.
    xcb_timestamp_t ServerTime();

    // Sets the window as owner of CLIPBOARD and asks the server whether it
    // really is, since a newer owner may have won in between.
    bool TakeClipboard(xcb_timestamp_t time);

    xcb_connection_t* Connection() const { return c_; }
    xcb_window_t Window() const { return window_; }
    const Atoms& atoms() const { return atoms_; }
    // The most data that one ChangeProperty request may carry.
    uint32_t MaxPropertyBytes() const { return maxPropertyBytes_; }

private:
    void Disconnect();

    xcb_connection_t* c_ = nullptr;
    xcb_window_t window_ = 0;
    Atoms atoms_;
    uint32_t maxPropertyBytes_ = 0;
};

}  // namespace qpt::holder
