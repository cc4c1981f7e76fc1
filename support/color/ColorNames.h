#pragma once

#include <cstdint>
#include <span>

namespace qpt {

// A colour in the layout 0x00BBGGRR. A skin colour may carry alpha in the top
// byte; 0xFF0000xx is a system colour that follows the palette.
using TColor = std::uint32_t;

inline constexpr TColor clNone = 0x1FFFFFFF;
inline constexpr TColor clDefault = 0x20000000;
inline constexpr TColor clSystemColor = 0xFF000000;

inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clGray = 0x808080;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clWhite = 0xFFFFFF;

// The system colours that controls take as defaults.
inline constexpr TColor clBackground = clSystemColor | 1;
inline constexpr TColor clWindow = clSystemColor | 5;
inline constexpr TColor clWindowFrame = clSystemColor | 6;
inline constexpr TColor clWindowText = clSystemColor | 8;
inline constexpr TColor clBtnFace = clSystemColor | 15;
inline constexpr TColor clHighlight = clSystemColor | 13;
inline constexpr TColor clHighlightText = clSystemColor | 14;
inline constexpr TColor clGrayText = clSystemColor | 17;

struct StandardColor {
    const char16_t* name;
    TColor value;
};

// The 52 colour names every colour property understands, from clBlack to
// clWindowText, the system colours among them.
std::span<const StandardColor> StandardColors();

// The current value of a system colour index (the low byte of 0xFF0000xx),
// from the application's palette when one exists.
TColor SystemColor(int index);

constexpr bool IsSystemColor(TColor value) {
    return (value >> 24) == 0xFF && (value & 0xFFFFFF) <= 0xFF;
}

// A system colour as its current plain value; any other colour as it is.
TColor ResolveSystemColor(TColor value);

}  // namespace qpt
