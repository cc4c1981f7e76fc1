#pragma once

#include <QPointF>
#include <QRectF>

#include "imaging/IEInteractionTypes.h"

namespace qpt {

class TIELayer;
class TIELayerList;

// Slack around a layer's outline, in view pixels: a thin line is hard to hit.
inline constexpr double kIEOutlineTolerance = 4;
// Half the side of a grip square, in view pixels; the rotation grip is
// twice as large and sits kIERotateGripDistance above the top side.
inline constexpr double kIEGripRadius = 5;
inline constexpr double kIERotateGripDistance = 30;

// Whether a bitmap point lies on the layer, found from its geometry: inside
// a layer with pixels, a filled shape or a text box; within the pen plus
// tolerance (bitmap pixels) of a hollow shape, a line or a stroke.
bool IELayerHit(const TIELayer& layer, QPointF p, double tolerance);

// The topmost layer that is visible, selectable (unless ignoreSelectable)
// and hit at p; -1 when none. zoomD100 turns the view tolerance into
// bitmap pixels.
int IEFindLayerAt(const TIELayerList& layers, QPointF p, double zoomD100,
                  bool ignoreSelectable = false);

struct TIEGripHit {
    TIEGrip Grip = ieNone;
    int Layer = -1;
};

// The grip under p: those of the current layer first, in their fixed order,
// then, with multi-selection, those of the other selected layers. A locked
// or unselectable layer has none.
TIEGripHit IEFindGrip(const TIELayerList& layers, QPointF p, double zoomD100,
                      TIEMouseInteractLayers interact, TIELayerOptions options);

// Centre of a grip in bitmap pixels, in the layer's unrotated frame.
QPointF IEGripPoint(const QRectF& box, TIEGrip grip, double zoomD100);

// The size cursor that matches a grip, the rotate cursor for the rotation
// grip, -1 for none.
int IEGripCursor(TIEGrip grip);

}  // namespace qpt
