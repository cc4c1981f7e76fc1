#pragma once

namespace qpt {

// Settles how Qt talks to the display, before the application object exists:
// the pinned window needs absolute screen positions (so X11, through XWayland
// where needed) and one picture pixel per screen pixel (so no Qt scaling).
void PreparePlatformEnvironment();

}  // namespace qpt
