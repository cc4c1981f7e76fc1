#include "annotate/ToolMachine.h"

#include <array>

namespace qpt {

namespace {

constexpr TIEMouseInteractLayers kMoveAndResize = mlMoveLayers | mlResizeLayers;
constexpr TIELayerOptions kCommonOptions = kIEDefaultLayerOptions;
constexpr TIELayerOptions kTextOptions = kCommonOptions | loAutoTextEditing;

const std::array<TToolRow, 7>& Rows() {
    static const std::array<TToolRow, 7> rows = {{
        {kToolRectangle, &RectOpen, "a302", kMoveAndResize | mlCreateShapeLayers, kCommonOptions,
         TStyleArrangement::Shape, true},
        {kToolOval, &EllipOpen, "a303", kMoveAndResize | mlCreateShapeLayers, kCommonOptions,
         TStyleArrangement::Shape, true},
        {kToolLine, &LineOpen, nullptr, kMoveAndResize | mlClickCreateLineLayers, kCommonOptions,
         TStyleArrangement::Shape, true},
        {kToolArrow, &ArrowOpen, nullptr, kMoveAndResize | mlCreateShapeLayers, kCommonOptions,
         TStyleArrangement::Shape, true},
        {kToolPaintbrush, &BrushOpen, "a304", kMoveAndResize | mlDrawCreatePolylineLayers,
         kCommonOptions, TStyleArrangement::Shape, true},
        {kToolPixelation, &MosaicOpen, nullptr, 0, 0, TStyleArrangement::Mosaic, false},
        {kToolText, &FontOpen, "a305", kMoveAndResize | mlCreateTextLayers, kTextOptions,
         TStyleArrangement::Text, false},
    }};
    return rows;
}

}  // namespace

std::span<const TToolRow> ToolRows() {
    return Rows();
}

const TToolRow& ToolRowOf(ToolId id) {
    for (const TToolRow& row : Rows())
        if (row.Id == id) return row;
    return Rows().front();
}

bool ToggleTool(ToolId id) {
    const TToolRow& tool = ToolRowOf(id);
    ToolArmed = 1;
    CurrentTool = tool.Id;
    for (const TToolRow& row : Rows())
        if (&row != &tool) *row.Toggle = 0;
    const bool opens = *tool.Toggle == 0;
    *tool.Toggle = opens ? 1 : 0;
    if (!opens) ToolArmed = 0;
    return opens;
}

ToolId OpenTool() {
    for (const TToolRow& row : Rows())
        if (*row.Toggle) return row.Id;
    return kToolNone;
}

}  // namespace qpt
