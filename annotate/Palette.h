#pragma once

#include <array>

#include "support/color/ColorNames.h"

namespace qpt {

// One cell of the style bar's palette: its component number (the cells are
// numbered in the program's own order, not the layout's) and its colour.
struct TPaletteCell {
    int Number;
    TColor Color;
};

// The twenty cells, the top row left to right and then the bottom row.
inline constexpr std::array<TPaletteCell, 20> kPalette = {{
    {19, 0x000000}, {1, 0x7F7F7F},  {2, 0x150088},  {3, 0x241CED},  {17, 0x277FFF},
    {4, 0x00F2FF},  {5, 0x4CB122},  {6, 0xE8A200},  {7, 0xCC483F},  {8, 0xA449A3},
    {9, 0xFFFFFF},  {18, 0xC3C3C3}, {10, 0x577AB9}, {11, 0xC9AEFF}, {20, 0x0EC9FF},
    {12, 0xB0E4EF}, {13, 0x1DE6B5}, {14, 0xEAD999}, {15, 0xBE9270}, {16, 0xC8BFE7},
}};
inline constexpr int kPaletteRowLength = 10;

}  // namespace qpt
