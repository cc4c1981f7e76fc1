#pragma once

#include <xcb/xcb.h>

#include "output/holder/HeldContent.h"
#include "output/holder/HolderDisplay.h"

namespace qpt::holder {

// Serves CLIPBOARD, owned since the given time, until another client takes
// it or a clipboard manager has saved the content, and then until the
// transfers under way have ended. readyFd becomes readable once the content
// has settled its PNG. Returns when the holder may end.
void ServeClipboard(HolderDisplay& display, const HeldContent& content, xcb_timestamp_t ownedSince,
                    int readyFd);

}  // namespace qpt::holder
