#pragma once

#include <cstdint>

namespace qpt {

// Bits of MouseInteractLayers, in the order the application stores them.
enum TIEMouseInteractLayerItem : uint16_t {
    mlMoveLayers = 1u << 0,
    mlResizeLayers = 1u << 1,
    mlRotateLayers = 1u << 2,
    mlCreateImageLayers = 1u << 3,
    mlCreateShapeLayers = 1u << 4,
    mlCreateLineLayers = 1u << 5,
    mlCreatePolylineLayers = 1u << 6,
    mlCreateAngleLayers = 1u << 7,
    mlCreateTextLayers = 1u << 8,
    mlClickCreateLineLayers = 1u << 9,
    mlClickCreatePolylineLayers = 1u << 10,
    mlDrawCreatePolylineLayers = 1u << 11,
    mlClickCreateAngleLayers = 1u << 12,
    mlEditLayerPoints = 1u << 13,
};
using TIEMouseInteractLayers = uint16_t;

// Bits of MouseInteractGeneral.
enum TIEMouseInteractGeneralItem : uint32_t {
    miZoom = 1u << 0,
    miScroll = 1u << 1,
    miMovingScroll = 1u << 2,
    miSelect = 1u << 3,
    miSelectPolygon = 1u << 4,
    miSelectCircle = 1u << 5,
    miSelectZoom = 1u << 6,
    miSelectMagicWand = 1u << 7,
    miSelectLasso = 1u << 8,
    miSelectChromaKey = 1u << 9,
    miCropTool = 1u << 10,
    miBrushTool = 1u << 11,
    miCloneTool = 1u << 12,
    miRotateTool = 1u << 13,
    miColorFill = 1u << 14,
    miAlphaFill = 1u << 15,
    miMeasureLength = 1u << 16,
    miMeasureRect = 1u << 17,
    miMeasureEllipse = 1u << 18,
    miMeasureAngle = 1u << 19,
    miColorPicker = 1u << 20,
    miRetouchTool = 1u << 21,
};
using TIEMouseInteractGeneral = uint32_t;

// Bits of LayerOptions; the default set of a view is kIEDefaultLayerOptions.
enum TIELayerOption : uint32_t {
    loAllowMultiSelect = 1u << 0,
    loAutoUndoChangesByCode = 1u << 1,
    loAutoUndoChangesByUser = 1u << 2,
    loPreventOutOfBounds = 1u << 3,
    loAutoPromptForImage = 1u << 4,
    loAutoFixBorders = 1u << 5,
    loStampMode = 1u << 6,
    loAutoTextEditing = 1u << 7,
    loKeyboardShortcuts = 1u << 8,
    loDynamicCanvas = 1u << 9,
    loResizeOnRotate = 1u << 12,
    loDragSelection = 1u << 13,
    loSwapBackgroundProps = 1u << 15,
    loShowRichTextToolbar = 1u << 18,
    loAllowReturnsInRichText = 1u << 19,
    loShowRotationGrip = 1u << 20,
};
using TIELayerOptions = uint32_t;
inline constexpr TIELayerOptions kIEDefaultLayerOptions = 1880373;

// Modifier keys and buttons held during a mouse event.
enum TIEShiftStateItem : uint8_t {
    ssShift = 1u << 0,
    ssAlt = 1u << 1,
    ssCtrl = 1u << 2,
    ssLeft = 1u << 3,
    ssRight = 1u << 4,
    ssMiddle = 1u << 5,
};
using TIEShiftState = uint8_t;

enum TIEMouseButton : uint8_t { mbLeft, mbRight, mbMiddle };

// The handles of the current layer's frame, in the order they are tested.
enum TIEGrip : uint8_t {
    ieNone,
    ieTopLeft,
    ieTopRight,
    ieBottomRight,
    ieBottomLeft,
    ieLeftSide,
    ieRightSide,
    ieTopSide,
    ieBottomSide,
    ieRotationCenter,
    ieRotate,
};

// Shape of a brush footprint and of its ring cursor; a round rectangle
// counts as a rectangle, since only painting brushes round their corners.
enum TIECursorShape : uint8_t { iecsDefault, iecsCircle, iecsRectangle, iecsRoundRect };

// What the tools report to OnUserInteraction.
enum TIEUserInteractionEvent : uint8_t {
    ieiLayerCreateStart,
    ieiLayerCreating,
    ieiLayerCreateEnacted,
    ieiRetouchStart,
    ieiRetouching,
    ieiRetouchEnd,
};

// Cursor ids are 16-bit values that the program compares, so they are kept
// as numbers; the view maps them to platform cursors.
inline constexpr int crDefault = 0;
inline constexpr int crSizeNESW = 65530;
inline constexpr int crSizeNS = 65529;
inline constexpr int crSizeNWSE = 65528;
inline constexpr int crSizeWE = 65527;
inline constexpr int crSizeAll = 65514;  // the picture-drag state of the window
inline constexpr int crIEArrow = 1785;   // the view's own default arrow
inline constexpr int crIEMoveLayer = 1786;
inline constexpr int crIERotate = 1787;

}  // namespace qpt
