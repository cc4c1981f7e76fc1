#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "output/holder/HolderDisplay.h"
#include "output/holder/TargetTable.h"

namespace qpt::holder {

using Clock = std::chrono::steady_clock;

// Puts answers into the requestors' properties. Data larger than one request
// may carry goes out incrementally (INCR): one piece each time the requestor
// has deleted the one before, and an empty piece at the end.
class PropertyWriter {
public:
    // A requestor that takes no piece for this long has given up.
    static constexpr std::chrono::seconds kPatience{5};

    PropertyWriter(xcb_connection_t* c, const Atoms& atoms, uint32_t maxPropertyBytes);

    void Write(xcb_window_t requestor, xcb_atom_t property, const Answer& answer);

    void OnPropertyNotify(const xcb_property_notify_event_t& event);
    void OnWindowGone(xcb_window_t window);
    void DropStale(Clock::time_point now);

    bool Busy() const { return !transfers_.empty(); }
    std::optional<Clock::time_point> NextDeadline() const;

private:
    struct Transfer {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        uint8_t format;
        std::span<const uint8_t> bytes;
        std::size_t sent;
        Clock::time_point deadline;
    };

    void Put(xcb_window_t w, xcb_atom_t property, xcb_atom_t type, uint8_t format,
             std::span<const uint8_t> bytes);
    void SendNextPiece(Transfer& t);
    void Forget(std::size_t index);
    void Watch(xcb_window_t window, bool on);
    bool Watched(xcb_window_t window) const;

    xcb_connection_t* c_;
    const Atoms& atoms_;
    uint32_t maxPropertyBytes_;
    uint32_t pieceBytes_;
    std::vector<Transfer> transfers_;
};

}  // namespace qpt::holder
