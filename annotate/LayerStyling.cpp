#include "annotate/LayerStyling.h"

#include <optional>

#include "annotate/StyleRules.h"
#include "app/session/SessionState.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"

namespace qpt {

namespace {

std::optional<TIEShape> ShapeOfTool(int32_t tool) {
    switch (tool) {
        case kToolRectangle:
            return iesRectangle;
        case kToolOval:
            return iesEllipse;
        case kToolLine:
            return iesLine;
        case kToolArrow:
            return iesArrow;
        default:
            return std::nullopt;
    }
}

void DressShape(TIEShapeLayer& shape) {
    const std::optional<TIEShape> kind = ShapeOfTool(CurrentTool);
    if (kind == iesArrow) {
        // A filled figure without an outline, its head sized by the pen.
        shape.SetFillColor(ShapeColor);
        shape.SetBorderWidth(0);
        shape.ArrowSize = ArrowSizeClass(PenWidth);
    } else {
        shape.SetFillColor(clNone);
        shape.SetBorderWidth(PenWidth);
    }
    if (kind) shape.Shape = *kind;
    shape.SetBorderColor(ShapeColor);
    shape.VisibleBox = false;
}

void DressStroke(TIELayer& layer) {
    layer.SetBorderWidth(PenWidth);
    layer.SetBorderColor(ShapeColor);
    layer.SetFillColor(clNone);
    layer.VisibleBox = false;
}

void DressText(TIETextLayer& text) {
    text.SetText(QStringLiteral(" "));
    text.SetAutoSize(true);
    text.EnableFormatting = true;
    text.SetFillColor(clNone);
    TIEFont font = text.Font;
    font.Color = TextColor;
    font.Size = TextFontSize;
    font.Name = TextFontName;
    text.SetFont(font);
}

}  // namespace

void DressNewLayer(TIELayer& layer, TIELayerKind kind) {
    switch (kind) {
        case ielkShape:
            if (auto* shape = dynamic_cast<TIEShapeLayer*>(&layer)) DressShape(*shape);
            break;
        case ielkLine:
        case ielkPolyline:
            DressStroke(layer);
            break;
        case ielkText:
            if (auto* text = dynamic_cast<TIETextLayer*>(&layer)) DressText(*text);
            break;
        default:
            break;
    }
    layer.Changed();
}

}  // namespace qpt
