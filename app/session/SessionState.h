#pragma once

#include <QString>
#include <cstdint>

#include "support/color/ColorNames.h"

// The state of the one annotation session this process serves. The forms read
// and write these values directly; they start from their defaults at load time
// and are never persisted.
namespace qpt {

// Tool ids: 1 rectangle, 2 oval, 3 paintbrush, 4 text, 6 line, 7 arrow,
// 8 pixelation; 9 means nothing has been chosen yet.
enum ToolId : std::int32_t {
    kToolRectangle = 1,
    kToolOval = 2,
    kToolPaintbrush = 3,
    kToolText = 4,
    kToolLine = 6,
    kToolArrow = 7,
    kToolPixelation = 8,
    kToolNone = 9,
};

inline std::int32_t CurrentTool = kToolNone;
inline std::uint8_t ToolArmed = 0;
inline std::int32_t PenWidth = 4;  // 1, 4 or 8
inline TColor ShapeColor = 255;    // pure red
inline TColor TextColor = 255;
inline QString TextFontName = QStringLiteral("Tahoma");
inline std::int32_t TextFontSize = 12;
inline std::int32_t PixelSize = 10;
inline std::int32_t MosaicBrushSize = 20;  // 10, 20 or 40

// The style bar is open for that tool, so the next click on it closes the bar.
// At most one of them is 1.
inline std::uint8_t RectOpen = 0;
inline std::uint8_t EllipOpen = 0;
inline std::uint8_t LineOpen = 0;
inline std::uint8_t ArrowOpen = 0;
inline std::uint8_t BrushOpen = 0;
inline std::uint8_t FontOpen = 0;
inline std::uint8_t MosaicOpen = 0;

// Gates that hold input back while the folder browser or a save runs.
inline std::uint8_t FolderDialogOpen = 0;
inline std::uint8_t SaveInProgress = 0;
inline std::uint8_t UseSavePanel = 1;

// The host's main window (an X11 window id), 0 when it was not found.
inline std::uint32_t HostWindow = 0;
inline std::int32_t ZoomStep = 0;  // tenths; the pinned window sets 10 at creation
inline QString DefaultImageExt;
inline std::int32_t JpegQuality = 0;
inline QString LastSavedFile;

// Clears the seven tool toggles at once.
void ClearToolToggles();

}  // namespace qpt
