#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <span>
#include <vector>

#include "output/holder/HeldContent.h"
#include "output/holder/HolderDisplay.h"

namespace qpt::holder {

// The holder's answer for one target.
struct Answer {
    enum Status { Ready, Waiting, Refused };
    Status status = Refused;
    xcb_atom_t type = XCB_ATOM_NONE;
    uint8_t format = 8;
    std::span<const uint8_t> bytes;
};

// Which targets the content is offered as, and the data of each.
class TargetTable {
public:
    TargetTable(const Atoms& atoms, const HeldContent& content, xcb_timestamp_t ownedSince);

    // MULTIPLE is the server's own business and is refused here.
    Answer For(xcb_atom_t target) const;

    // What a clipboard manager is asked to keep: of a picture only the PNG,
    // which every program that pastes pictures reads, so that the manager
    // does not hold the same picture twice, once of them uncompressed.
    std::vector<xcb_atom_t> KeptTargets() const;

private:
    Answer Data(xcb_atom_t type, std::span<const uint8_t> bytes) const;

    const Atoms& atoms_;
    const HeldContent& content_;
    std::vector<uint32_t> targets_;
    uint32_t ownedSince_;
};

}  // namespace qpt::holder
