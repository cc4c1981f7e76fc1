#pragma once

namespace qpt {

// Settles how Qt talks to the display, before the application object exists:
// the pinned window needs absolute screen positions (so X11, through XWayland
// where needed) and one picture pixel per screen pixel (so no Qt scaling).
void PreparePlatformEnvironment();

// Whether the windows can appear: an X11 display is named and can be opened,
// or the user chose another Qt platform on purpose. Without this check Qt
// aborts with a message that does not tell the user what is missing.
bool DisplayAvailable();

// The one line on standard error when there is no display.
inline constexpr char kNoDisplayMessage[] =
    "QptPin needs an X11 display (under Wayland: XWayland); none could be opened.";
inline constexpr int kNoDisplayExitCode = 2;

}  // namespace qpt
