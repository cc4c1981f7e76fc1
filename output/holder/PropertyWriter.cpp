#include "output/holder/PropertyWriter.h"

#include <algorithm>

namespace qpt::holder {

namespace {

// Large enough that a 4K screenshot goes in a few dozen round trips, small
// enough that neither side holds much of it twice.
constexpr uint32_t kPieceBytes = 1 << 20;

constexpr uint32_t kWatchMask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

}  // namespace

PropertyWriter::PropertyWriter(xcb_connection_t* c, const Atoms& atoms, uint32_t maxPropertyBytes)
    : c_(c),
      atoms_(atoms),
      maxPropertyBytes_(maxPropertyBytes),
      pieceBytes_(std::min(kPieceBytes, maxPropertyBytes / 4 * 4)) {}

void PropertyWriter::Put(xcb_window_t w, xcb_atom_t property, xcb_atom_t type, uint8_t format,
                         std::span<const uint8_t> bytes) {
    xcb_change_property(c_, XCB_PROP_MODE_REPLACE, w, property, type, format,
                        uint32_t(bytes.size() / (format / 8)), bytes.data());
}

void PropertyWriter::Write(xcb_window_t requestor, xcb_atom_t property, const Answer& answer) {
    if (answer.bytes.size() <= maxPropertyBytes_) {
        Put(requestor, property, answer.type, answer.format, answer.bytes);
        return;
    }
    // The requestor's deletion of the INCR property starts the pieces, so
    // its window must be watched before it can see that property.
    Watch(requestor, true);
    const uint32_t size = uint32_t(std::min<std::size_t>(answer.bytes.size(), UINT32_MAX));
    xcb_change_property(c_, XCB_PROP_MODE_REPLACE, requestor, property, atoms_.incr, 32, 1, &size);
    transfers_.push_back({requestor, property, answer.type, answer.format, answer.bytes, 0,
                          Clock::now() + kPatience});
}

void PropertyWriter::SendNextPiece(Transfer& t) {
    const std::size_t piece = std::min<std::size_t>(pieceBytes_, t.bytes.size() - t.sent);
    Put(t.requestor, t.property, t.type, t.format, t.bytes.subspan(t.sent, piece));
    t.sent += piece;
    t.deadline = Clock::now() + kPatience;
}

void PropertyWriter::OnPropertyNotify(const xcb_property_notify_event_t& event) {
    if (event.state != XCB_PROPERTY_DELETE) return;
    for (std::size_t i = 0; i < transfers_.size(); ++i) {
        Transfer& t = transfers_[i];
        if (t.requestor != event.window || t.property != event.atom) continue;
        // The piece after the last full one is empty, and tells the end.
        const bool last = t.sent == t.bytes.size();
        SendNextPiece(t);
        if (last) Forget(i);
        return;
    }
}

void PropertyWriter::OnWindowGone(xcb_window_t window) {
    for (std::size_t i = transfers_.size(); i-- > 0;)
        if (transfers_[i].requestor == window) transfers_.erase(transfers_.begin() + long(i));
}

void PropertyWriter::DropStale(Clock::time_point now) {
    for (std::size_t i = transfers_.size(); i-- > 0;)
        if (transfers_[i].deadline <= now) Forget(i);
}

std::optional<Clock::time_point> PropertyWriter::NextDeadline() const {
    std::optional<Clock::time_point> next;
    for (const Transfer& t : transfers_)
        if (!next || t.deadline < *next) next = t.deadline;
    return next;
}

void PropertyWriter::Forget(std::size_t index) {
    const xcb_window_t requestor = transfers_[index].requestor;
    transfers_.erase(transfers_.begin() + long(index));
    if (!Watched(requestor)) Watch(requestor, false);
}

bool PropertyWriter::Watched(xcb_window_t window) const {
    return std::any_of(transfers_.begin(), transfers_.end(),
                       [window](const Transfer& t) { return t.requestor == window; });
}

void PropertyWriter::Watch(xcb_window_t window, bool on) {
    const uint32_t mask = on ? kWatchMask : 0;
    xcb_change_window_attributes(c_, window, XCB_CW_EVENT_MASK, &mask);
}

}  // namespace qpt::holder
