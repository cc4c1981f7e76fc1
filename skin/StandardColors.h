#pragma once

#include <QString>
#include <span>

namespace qpt {

// Colours are 0x00BBGGRR; a skin colour may carry alpha in the top byte.
inline constexpr quint32 clNone = 0x1FFFFFFF;
inline constexpr quint32 clDefault = 0x20000000;
inline constexpr quint32 clSystemColor = 0xFF000000;

struct StandardColor {
    const char16_t* name;
    quint32 value;
};

// The 52 colour names every colour property understands, from clBlack to
// clWindowText, the system colours among them.
std::span<const StandardColor> StandardColors();

// The current value of a system colour index (the low byte of 0xFF0000xx),
// from the application's palette when one exists.
quint32 SystemColor(int index);

}  // namespace qpt
