#pragma once

#include <xcb/xcb.h>

#include <vector>

#include "output/holder/HolderDisplay.h"

namespace qpt::holder {

// The request to a running clipboard manager to keep the content after the
// holder has gone: a SAVE_TARGETS conversion of CLIPBOARD_MANAGER, with the
// targets to keep listed in a property of the holder's window.
class ManagerSave {
public:
    enum class Outcome { Pending, Saved, Refused };

    explicit ManagerSave(HolderDisplay& display) : display_(display) {}

    // False when no clipboard manager runs.
    bool Ask(const std::vector<xcb_atom_t>& targets, xcb_timestamp_t time);

    // The manager's answer, when the event is one.
    Outcome OnSelectionNotify(const xcb_selection_notify_event_t& event) const;

private:
    HolderDisplay& display_;
};

}  // namespace qpt::holder
