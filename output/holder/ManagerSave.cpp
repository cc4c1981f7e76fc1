#include "output/holder/ManagerSave.h"

#include <cstdlib>
#include <memory>

namespace qpt::holder {

bool ManagerSave::Ask(const std::vector<xcb_atom_t>& targets, xcb_timestamp_t time) {
    xcb_connection_t* c = display_.Connection();
    const Atoms& atoms = display_.atoms();
    std::unique_ptr<xcb_get_selection_owner_reply_t, decltype(&std::free)> owner(
        xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, atoms.manager), nullptr),
        &std::free);
    if (!owner || owner->owner == XCB_WINDOW_NONE) return false;
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, display_.Window(), atoms.saveList, XCB_ATOM_ATOM,
                        32, uint32_t(targets.size()), targets.data());
    xcb_convert_selection(c, display_.Window(), atoms.manager, atoms.saveTargets, atoms.saveList,
                          time);
    return true;
}

ManagerSave::Outcome ManagerSave::OnSelectionNotify(
    const xcb_selection_notify_event_t& event) const {
    const Atoms& atoms = display_.atoms();
    if (event.requestor != display_.Window() || event.selection != atoms.manager ||
        event.target != atoms.saveTargets)
        return Outcome::Pending;
    return event.property == XCB_ATOM_NONE ? Outcome::Refused : Outcome::Saved;
}

}  // namespace qpt::holder
