#pragma once

#include <QTemporaryDir>
#include <vector>

#include "imaging/IEImageLayer.h"
#include "imaging/IEImageProc.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerUndoTarget.h"
#include "imaging/IEMouseInteractions.h"
#include "imaging/IEViewServices.h"

namespace qpt::testing {

// A view without a window: a picture of the given size as layer 0, an undo
// store that keeps steps in memory, and a record of what the tools asked.
class TInteractionTestView : public TIEViewServices {
public:
    explicit TInteractionTestView(int width = 400, int height = 300) {
        proc_.SetUndoLimit(100);
        proc_.SetUndoLocation(ieMemory);
        layers_.OnSaveObjectsUndo = [this] { proc_.SaveUndo(ieuObjectsAndLayers); };
        TIEBitmap* picture = layers_.Background().Bitmap();
        picture->Allocate(width, height, ie24RGB);
        picture->Fill(0x00808080);
        layers_.Background().FitToBitmap();
        layers_.Background().Selectable = false;
        layers_.ClientSize = QSizeF(width, height);
    }

    TIELayerList& Layers() override { return layers_; }
    TIEImageProc* Proc() override { return &proc_; }
    TIELayerOptions LayerOptions() const override { return options; }
    TIEMouseInteractLayers MouseInteractLayers() const override {
        return router ? router->MouseInteractLayers() : interactLayers;
    }
    double ZoomD100() const override { return zoom; }
    QRect ClientBitmapRect() const override {
        const TIEBitmap& p = layers_.Background().Picture();
        return QRect(0, 0, p.Width(), p.Height());
    }
    bool FixedAspect() const override { return fixedAspect; }
    int Cursor() const override { return cursor; }
    void ShowCursor(int value) override { shownCursor = value; }
    void Update() override { ++updates; }
    void RepaintBitmapRect(const QRect& rect) override { repainted |= rect; }
    void NewLayer(int index, TIELayerKind kind) override {
        newLayers.push_back(index);
        (void)kind;
        if (TIELayer* layer = layers_.GetLayer(index)) layer->SetBorderColor(clRed);
    }
    void UserInteraction(TIEUserInteractionEvent event) override { events.push_back(event); }
    void ActivateTextEditor(int index) override { editorFor = index; }

    TIEBitmap& Picture() { return *layers_.Background().Bitmap(); }
    TIEImageProc& UndoStore() { return proc_; }

    TIELayerOptions options = kIEDefaultLayerOptions;
    TIEMouseInteractLayers interactLayers = 0;
    const TIEMouseInteractions* router = nullptr;  // when set, its set counts
    double zoom = 1.0;
    bool fixedAspect = false;
    int cursor = crDefault;
    int shownCursor = -1;
    int updates = 0;
    int editorFor = -1;
    QRect repainted;
    std::vector<int> newLayers;
    std::vector<TIEUserInteractionEvent> events;

private:
    TIELayerList layers_;
    TIELayerUndoTarget target_{layers_, [this] { ++updates; }};
    TIEImageProc proc_{&target_};
};

}  // namespace qpt::testing
