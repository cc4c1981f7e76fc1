#pragma once

#include <cstdint>
#include <span>

#include "app/session/SessionState.h"
#include "imaging/IEInteractionTypes.h"

namespace qpt {

// How the style bar arranges itself for a tool.
enum class TStyleArrangement : uint8_t { Shape, Text, Mosaic };

// What choosing a tool does: its toggle, its report, what the view does with
// the mouse, and the look of the style bar.
struct TToolRow {
    ToolId Id;
    std::uint8_t* Toggle;
    const char* UsageCode;  // null: the tool reports nothing
    // The layer interaction; 0 for the pixelation, which is a retouch tool
    // on the picture and leaves the layer options as they are.
    TIEMouseInteractLayers Interaction;
    TIELayerOptions Options;
    TStyleArrangement Arrangement;
    // The pen buttons show the tool's line width.
    bool MirrorsPen;

    bool Retouches() const { return Interaction == 0; }
};

// The view with no tool armed: only the grips of a layer answer the mouse.
inline constexpr TIEMouseInteractLayers kIdleInteraction = mlResizeLayers;

// The seven tools, in the order of the toolbar.
std::span<const TToolRow> ToolRows();
// The row of a tool id; the rectangle's for an id that is no tool.
const TToolRow& ToolRowOf(ToolId id);

// The session side of a click on a tool: the tool becomes the current and
// armed one, the other toggles clear and its own flips. Returns whether its
// style bar is open afterwards; when it is not (the same tool clicked twice
// in a row), nothing is armed any more.
bool ToggleTool(ToolId id);

// The tool whose style bar is open, or kToolNone.
ToolId OpenTool();

}  // namespace qpt
