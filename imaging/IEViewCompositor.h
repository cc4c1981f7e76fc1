#pragma once

#include <QRect>
#include <QRegion>
#include <vector>

#include "imaging/IEBitmap.h"
#include "imaging/IELayerTypes.h"
#include "imaging/IEViewMapping.h"

namespace qpt {

class TIELayer;
class TIELayerList;

// Composes all visible layers into the view's ie24RGB back buffer. It keeps
// what it drew last, so after a change only the area that differs is done
// again; the buffer lives as long as the client size holds.
class TIEViewCompositor {
public:
    TIEViewMapping Mapping;
    TColor Background = clWhite;
    TResampleFilter ZoomFilter = rfLinear;
    int EditingLayer = -1;   // a layer under the text editor is not drawn
    bool ShowGrips = false;  // the grip pass, on while a layer tool is armed

    // The part of the client that shows, where a view lies in a smaller
    // window; a null rectangle for all of it. Only this part is composed at
    // once, the rest once it is asked for, so that a view much larger than
    // what shows of it costs what shows.
    QRect ShownArea;

    // Brings the back buffer up to date where it shows; returns the client
    // area that changed there.
    QRegion Compose(TIELayerList& layers);
    // Brings the parts of `wanted` up to date that were left for later;
    // returns them.
    QRegion ComposePending(TIELayerList& layers, const QRegion& wanted);
    // What was left for later.
    const QRegion& PendingArea() const { return pending_; }
    // The next Compose redraws everything.
    void Invalidate() { fullRedraw_ = true; }
    // The next Compose redraws at least area (client coordinates).
    void InvalidateArea(const QRegion& area) { stale_ += area; }
    TIEBitmap& BackBuffer() { return back_; }

    // The layer's place in client coordinates, through the mapping tables.
    QRect LayerRect(const TIELayer& layer) const;

    static constexpr int kGripRadius = 5;
    // Damage is tracked in tiles of this size: fine enough that an outline
    // or a stroke does not redraw the box it spans.
    static constexpr int kCoverTile = 32;

private:
    struct Shown {
        const TIELayer* layer;
        QRect rect;  // including the frame and grips it carries
        bool drawn;
        uint64_t generation;
        int opacity;
        QRegion cover;  // what of rect it really paints: the damage when it goes or comes
        bool SameAs(const Shown& o) const {
            return layer == o.layer && rect == o.rect && drawn == o.drawn &&
                   generation == o.generation && opacity == o.opacity;
        }
    };
    QRegion Cover(TIELayer& layer, const Shown& shown) const;
    std::vector<Shown> Snapshot(TIELayerList& layers) const;
    bool Drawn(TIELayerList& layers, int index) const;
    bool HasFrame(TIELayerList& layers, int index) const;
    bool HasGrips(TIELayerList& layers, int index) const;
    QRegion BackgroundArea(TIELayerList& layers, const QRect& area) const;
    void ComposeArea(TIELayerList& layers, const QRect& area);
    void ComposeLayer(TIELayer& layer, const QRect& area);
    void ComposeImageLayer(TIELayer& layer, const QRect& clip);
    void DrawFrames(TIELayerList& layers, const QRect& area);
    void DrawGrips(const QRect& layerRect, const QRect& area);

    TIEBitmap back_;
    QRegion pending_;
    QRegion stale_;
    std::vector<Shown> shown_;
    bool fullRedraw_ = true;
};

}  // namespace qpt
