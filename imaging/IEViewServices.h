#pragma once

#include <QPoint>
#include <QRect>

#include "imaging/IEInteractionTypes.h"
#include "imaging/IELayerTypes.h"

namespace qpt {

class TIEImageLayer;
class TIEImageProc;
class TIELayerList;

// What the mouse tools need of the view that owns them. The tools work in
// bitmap pixels; the view keeps the screen side (zoom tables, cursors,
// repaint) and its events behind this interface, so the tools run without a
// widget.
class TIEViewServices {
public:
    virtual ~TIEViewServices() = default;

    virtual TIELayerList& Layers() = 0;
    // The undo store, or null while the view has none.
    virtual TIEImageProc* Proc() = 0;
    virtual TIELayerOptions LayerOptions() const = 0;
    virtual TIEMouseInteractLayers MouseInteractLayers() const = 0;

    // View pixels per bitmap pixel (zoom / 100).
    virtual double ZoomD100() const { return 1.0; }
    // The client area in bitmap pixels; drags are held inside it.
    virtual QRect ClientBitmapRect() const = 0;
    // The view's fixed-aspect flag: Shift without the key.
    virtual bool FixedAspect() const { return false; }

    // The cursor property that the application set (65514 means the picture
    // is being dragged and the tools leave the cursor alone).
    virtual int Cursor() const { return crDefault; }
    // Shows a cursor over the property's one; -1 shows the property again.
    virtual void ShowCursor(int cursor) { (void)cursor; }
    // A tool's own cursor changed shape (the brush ring its size).
    virtual void ToolCursorChanged() {}

    // The layers changed: recompose what is stale and repaint.
    virtual void Update() = 0;
    // Only the preview of a tool changed, inside this bitmap rectangle.
    virtual void RepaintBitmapRect(const QRect& rect) { (void)rect; }

    // OnNewLayer: the application styles a layer just made by the mouse.
    virtual void NewLayer(int index, TIELayerKind kind) { (void)index, (void)kind; }
    // OnUserInteraction.
    virtual void UserInteraction(TIEUserInteractionEvent event) { (void)event; }
    // OnLayerMoveSize: may change the box that a move, resize or creation is
    // about to give the layer.
    virtual void LayerMoveSize(int index, TIELayerEvent event, QRectF& box) {
        (void)index, (void)event, (void)box;
    }
    // Asks for the picture of a new image layer; false cancels the layer.
    virtual bool PromptForImage(int index) { return (void)index, true; }
    // Opens the in-place text editor over a layer.
    virtual void ActivateTextEditor(int index) { (void)index; }
};

// Whether a change by the mouse is to save an undo step first: the store
// is there, saves by itself and the view asks for steps of user changes.
bool IEUserUndoWanted(TIEViewServices& view);
// Saves a step of source when IEUserUndoWanted; returns whether it did.
bool IESaveUserUndo(TIEViewServices& view, uint8_t source);

// The layer that image tools work on: the current layer when it carries
// pixels, else the background.
TIEImageLayer& IEWorkingLayer(TIEViewServices& view);

}  // namespace qpt
