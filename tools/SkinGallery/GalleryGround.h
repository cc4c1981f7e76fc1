#pragma once

#include <QtGlobal>

class QWidget;

namespace qpt {

// Skin colours (00BBGGRR) of the grounds controls are shown on.
inline constexpr quint32 kLightGround = 0xD8D8D8;
inline constexpr quint32 kDarkGround = 0x38332E;

// Puts a control on a panel of the colour with a small margin: controls that
// draw no background of their own show their extent, and light pictures
// meant for dark windows show as they would there.
QWidget* OnGround(QWidget* control, quint32 color);

}  // namespace qpt
