#pragma once

#include <xcb/xcb.h>

#include <vector>

#include "output/holder/HolderDisplay.h"
#include "output/holder/PropertyWriter.h"
#include "output/holder/TargetTable.h"

namespace qpt::holder {

// Answers the requests for CLIPBOARD: single targets and MULTIPLE. A request
// for data that is still being made (the PNG) waits, and is answered when
// the content says it is ready.
class SelectionServer {
public:
    SelectionServer(HolderDisplay& display, const TargetTable& table, xcb_timestamp_t ownedSince);

    void OnRequest(const xcb_selection_request_event_t& request);
    void OnContentReady();

    PropertyWriter& Writer() { return writer_; }
    // Transfers under way or requests waiting for data.
    bool Busy() const { return writer_.Busy() || !waiting_.empty(); }

private:
    // The property the answer went to, or None when refused; nullopt while
    // the data is not ready yet.
    std::optional<xcb_atom_t> Convert(const xcb_selection_request_event_t& request);
    std::optional<xcb_atom_t> ConvertMultiple(xcb_window_t requestor, xcb_atom_t property);
    bool Predates(xcb_timestamp_t time) const;
    void Notify(const xcb_selection_request_event_t& request, xcb_atom_t property);

    xcb_connection_t* c_;
    const Atoms& atoms_;
    xcb_window_t owner_;
    const TargetTable& table_;
    xcb_timestamp_t ownedSince_;
    PropertyWriter writer_;
    std::vector<xcb_selection_request_event_t> waiting_;
};

}  // namespace qpt::holder
