#pragma once

#include <QString>
#include <span>

namespace qpt {

// Colours are 0x00BBGGRR; a skin colour may carry alpha in the top byte.
inline constexpr quint32 clNone = 0x1FFFFFFF;
inline constexpr quint32 clDefault = 0x20000000;
inline constexpr quint32 clSystemColor = 0xFF000000;

// The system colours that controls take as defaults; they follow the palette.
inline constexpr quint32 clBackground = clSystemColor | 1;
inline constexpr quint32 clWindow = clSystemColor | 5;
inline constexpr quint32 clWindowFrame = clSystemColor | 6;
inline constexpr quint32 clWindowText = clSystemColor | 8;
inline constexpr quint32 clBtnFace = clSystemColor | 15;
inline constexpr quint32 clHighlight = clSystemColor | 13;
inline constexpr quint32 clHighlightText = clSystemColor | 14;
inline constexpr quint32 clGrayText = clSystemColor | 17;

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
