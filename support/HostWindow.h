#pragma once

#include <QByteArray>
#include <cstdint>

namespace qpt {

// The host program's main window is found by its class and title; the one
// notice this program sends back is an X11 client message to it.
inline constexpr char kHostWindowClass[] = "TForm_QPTMain";
inline constexpr char kHostWindowTitle[] = "Zelk Screenshot";
inline constexpr char kHostNoticeAtom[] = "_QPT_HOST_NOTICE";
inline constexpr std::int32_t kHostNoticeMessage = 1129;

// The top-level window of the host's class and title on the display named by
// DISPLAY, searched once; 0 when there is no display or no such window.
std::uint32_t FindHostWindow();

// Sends notice 1129 with the two words to the window and waits until the X
// server has taken it, so that the process may end right after. Window 0 or a
// window that has gone: nothing happens, and nothing complains.
void PostHostNotice(std::uint32_t window, std::int32_t wParam, std::int32_t lParam);

// The class part of a WM_CLASS property value ("instance\0class\0").
QByteArray WindowClassPart(const QByteArray& wmClass);

}  // namespace qpt
