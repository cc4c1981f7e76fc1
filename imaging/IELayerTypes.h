#pragma once

#include <cstdint>

#include "support/color/ColorNames.h"

namespace qpt {

inline constexpr uint8_t ColorR(TColor c) {
    return uint8_t(c & 0xFF);
}
inline constexpr uint8_t ColorG(TColor c) {
    return uint8_t((c >> 8) & 0xFF);
}
inline constexpr uint8_t ColorB(TColor c) {
    return uint8_t((c >> 16) & 0xFF);
}

enum TIELayerKind : uint8_t {
    ielkImage = 0,
    ielkShape = 1,
    ielkLine = 2,
    ielkPolyline = 3,
    ielkText = 4,
};
inline constexpr int IELayerKindCount = 5;

// Only these four are set by the application; the rest of the outline table
// is never shown and is not carried.
enum TIEShape : uint8_t {
    iesArrow = 0,
    iesLine = 1,
    iesEllipse = 2,
    iesRectangle = 6,
    iesRoundRect = 7,
};

enum TIELayerEvent : uint8_t {
    ielSelected,
    ielMoved,
    ielResized,
    ielMoving,
    ielResizing,
    ielRotating,
    ielRotated,
    ielBeginResizing,
    ielBeginRotating,
    ielBeginMoving,
    ielDeselected,
    ielEdited,
    ielBeginCreating,
    ielCreating,
    ielCreated,
    ielAction,
    ielLeftClicked,
    ielRightClicked,
    ielDblClicked,
    ielMouseOver,
    ielEditedPoints,
    ielAddedPoint,
    ielMovedPoint,
    ielArranged,
    ielBeforeRemove,
    ielRemoved,
    ielEditedProps,
    ielTextEditorClick,
    ielTextEditorChange,
};

enum TResampleFilter : uint8_t {
    rfNone,
    rfTriangle,
    rfHermite,
    rfBell,
    rfBSpline,
    rfLanczos3,
    rfMitchell,
    rfNearest,
    rfLinear,
    rfFastLinear,
    rfBilinear,
    rfBicubic,
    rfProjectBW,
    rfProjectWB,
    rfWICNearestNeighbor,
    rfWICLinear,
    rfWICCubic,
    rfWICFant,
};

}  // namespace qpt
