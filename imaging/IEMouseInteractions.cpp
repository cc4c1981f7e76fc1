#include "imaging/IEMouseInteractions.h"

#include <Qt>

#include "imaging/IELayerHitTest.h"
#include "imaging/IELayerList.h"

namespace qpt {

namespace {

struct TItemKind {
    TIEMouseInteractLayerItem item;
    TIELayerKind kind;
};

constexpr TItemKind kCreateItems[] = {
    {mlCreateImageLayers, ielkImage}, {mlCreateShapeLayers, ielkShape},
    {mlCreateLineLayers, ielkLine},   {mlCreatePolylineLayers, ielkPolyline},
    {mlCreateTextLayers, ielkText},
};

constexpr TItemKind kPointItems[] = {
    {mlClickCreateLineLayers, ielkLine},
    {mlClickCreatePolylineLayers, ielkPolyline},
    {mlDrawCreatePolylineLayers, ielkPolyline},
};

// Tools that work on the picture and want no layer selected.
constexpr TIEMouseInteractGeneral kDeselectingTools =
    miCropTool | miBrushTool | miCloneTool | miRotateTool;

constexpr TIEShiftState kButtons = ssLeft | ssRight | ssMiddle;
constexpr TIEShiftState kModifiers = ssShift | ssAlt | ssCtrl;

}  // namespace

TIEMouseInteractions::TIEMouseInteractions(TIEViewServices& view)
    : view_(view),
      create_(view),
      points_(view),
      retouch_(view),
      tools_{&create_, &points_, &retouch_},
      move_(view),
      resize_(view) {}

void TIEMouseInteractions::ClearSelection() {
    TIELayerList& layers = view_.Layers();
    for (int i = 0; i < layers.LayersCount(); ++i) {
        TIELayer& layer = *layers.GetLayer(i);
        if (!layer.Selected) continue;
        layer.Selected = false;
        layers.Notify(i, ielDeselected);
    }
    layers.SetLayersCurrent(-1);
}

void TIEMouseInteractions::SetMouseInteractLayers(TIEMouseInteractLayers items) {
    create_.SetEnabled(false);
    points_.SetEnabled(false);
    // A layer tool and the retouch brush exclude one another: arming one
    // ends the pixelation, and its stroke under way goes unmerged.
    if (items != 0 && (general_ & miRetouchTool)) {
        general_ &= ~TIEMouseInteractGeneral(miRetouchTool);
        retouch_.SetEnabled(false);
    }
    layers_ = items;
    for (const TItemKind& c : kCreateItems)
        if (items & c.item) {
            create_.LayerKind = c.kind;
            create_.SetEnabled(true);
            break;
        }
    for (const TItemKind& p : kPointItems)
        if (items & p.item) {
            points_.LayerKind = p.kind;
            points_.Drawing = p.item == mlDrawCreatePolylineLayers;
            points_.SetEnabled(true);
            break;
        }
    if (create_.Enabled() || points_.Enabled()) ClearSelection();
}

void TIEMouseInteractions::SetMouseInteractGeneral(TIEMouseInteractGeneral items) {
    if (items & miRetouchTool) {
        items &= miZoom | miMovingScroll | miRetouchTool;
        SetMouseInteractLayers(0);
    }
    general_ = items;
    retouch_.SetEnabled(items & miRetouchTool);
    if (items & kDeselectingTools) ClearSelection();
}

void TIEMouseInteractions::MouseDown(TIEMouseButton button, TIEShiftState shift, int x, int y) {
    for (TIEUserInteraction* tool : tools_)
        if (tool->Enabled() && tool->MouseDown(button, shift, x, y)) return;
    if (button == mbLeft) LayerMouseDown(shift, QPoint(x, y));
}

void TIEMouseInteractions::LayerMouseDown(TIEShiftState shift, QPoint p) {
    if (!(layers_ & (mlMoveLayers | mlResizeLayers | mlRotateLayers))) return;
    TIELayerList& layers = view_.Layers();
    if (layers_ & mlResizeLayers) {
        const TIEGripHit hit =
            IEFindGrip(layers, p, view_.ZoomD100(), layers_, view_.LayerOptions());
        if (hit.Grip != ieNone && hit.Grip != ieRotate && hit.Grip != ieRotationCenter) {
            resize_.Begin(hit.Layer, hit.Grip);
            layers.Notify(hit.Layer, ielBeginResizing);
            return;
        }
    }
    if (!(layers_ & mlMoveLayers)) return;
    const int index = IEFindLayerAt(layers, p, view_.ZoomD100());
    if (index < 0) {
        if (!(shift & kModifiers)) {
            ClearSelection();
            view_.Update();
        }
        return;
    }
    if (!layers.GetLayer(index)->Selected || layers.LayersCurrent() != index)
        layers.SetLayersCurrent(index);
    layers.Notify(index, ielBeginMoving);
    if (!layers.GetLayer(index)->Locked) move_.Begin(index, p);
}

void TIEMouseInteractions::MouseMove(TIEShiftState shift, int x, int y) {
    bool toolActive = false;
    for (TIEUserInteraction* tool : tools_)
        if (tool->Enabled()) {
            tool->MouseMove(shift, x, y);
            toolActive = toolActive || tool->IsActive();
        }
    const QPoint p(x, y);
    if (resize_.Active())
        resize_.Move(p, shift);
    else if (move_.Active())
        move_.Move(p);
    else if (!toolActive && !(shift & kButtons))
        Hover(p);
}

void TIEMouseInteractions::Hover(QPoint p) {
    // The window-drag cursor belongs to the application.
    if (view_.Cursor() == crSizeAll) return;
    const TIELayerList& layers = view_.Layers();
    int cursor = -1;
    if (layers_ & mlResizeLayers)
        cursor = IEGripCursor(
            IEFindGrip(layers, p, view_.ZoomD100(), layers_, view_.LayerOptions()).Grip);
    if (cursor < 0 && (layers_ & mlMoveLayers) && IEFindLayerAt(layers, p, view_.ZoomD100()) >= 0)
        cursor = crIEMoveLayer;
    view_.ShowCursor(cursor);
}

void TIEMouseInteractions::MouseUp(TIEMouseButton button, TIEShiftState shift, int x, int y) {
    for (TIEUserInteraction* tool : tools_)
        if (tool->Enabled()) tool->MouseUp(button, shift, x, y);
    resize_.End();
    move_.End();
}

void TIEMouseInteractions::Paint(TIEBitmap& backBuffer, const TIEViewMapping& mapping,
                                 const QRegion& area) {
    for (TIEUserInteraction* tool : tools_)
        if (tool->Enabled())
            for (const QRect& r : area)
                tool->PaintArea(backBuffer, mapping, r);
}

bool TIEMouseInteractions::KeyDown(int key) {
    const bool escape = key == Qt::Key_Escape;
    if (escape && retouch_.IsActive()) {
        retouch_.Cancel();
        return true;
    }
    if (!escape && key != Qt::Key_Delete) return false;
    if (!(view_.LayerOptions() & loKeyboardShortcuts)) return false;
    bool used = false;
    for (TIEUserInteraction* tool :
         {static_cast<TIEUserInteraction*>(&create_), static_cast<TIEUserInteraction*>(&points_)})
        if (tool->IsActive()) {
            tool->Cancel();
            used = true;
        }
    return used;
}

void TIEMouseInteractions::Abandon() {
    for (TIEUserInteraction* tool : tools_)
        tool->Abandon();
    resize_.End();
    move_.End();
}

}  // namespace qpt
