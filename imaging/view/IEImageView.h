#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "imaging/IEImageIO.h"
#include "imaging/IEImageProc.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerUndoTarget.h"
#include "imaging/IEMouseInteractions.h"
#include "imaging/IEViewCompositor.h"
#include "imaging/IEViewServices.h"
#include "imaging/view/IEViewBlit.h"

namespace qpt {

class TIETextControl;

// The control that shows the picture with its layers. It owns the layer
// list, the undo store and the picture input, maps the mouse between the
// screen and the bitmap, and hands the mouse to its tools in bitmap pixels.
class TIEImageView : public QWidget, public TIEViewServices {
    Q_OBJECT
public:
    explicit TIEImageView(QWidget* parent = nullptr);
    ~TIEImageView() override;

    // The face colour of buttons and forms by default.
    TColor Background() const { return background_; }
    void SetBackground(TColor color);
    bool Center() const { return center_; }
    void SetCenter(bool center);
    TResampleFilter ZoomFilter() const { return zoomFilter_; }
    TResampleFilter ZoomFilterCurrent() const { return compositor_.ZoomFilter; }
    void SetZoomFilter(TResampleFilter filter);

    // Zoom in percent; both axes always move together.
    double Zoom() const { return mapping().ZoomX(); }
    void SetZoom(double percent);
    // Zooms keeping the bitmap point under client point (x, y) in place, or
    // bringing it to the middle with center.
    void ZoomAt(int x, int y, double percent, bool center);
    void SetViewXY(int x, int y);
    int ViewX() const { return mapping().ViewX(); }
    int ViewY() const { return mapping().ViewY(); }
    int OffsetX() const { return mapping().OffsetX(); }
    int OffsetY() const { return mapping().OffsetY(); }
    int ExtentX() const { return mapping().ExtentX(); }
    int ExtentY() const { return mapping().ExtentY(); }
    int XScr2Bmp(int x) const { return mapping().XScr2Bmp(x); }
    int YScr2Bmp(int y) const { return mapping().YScr2Bmp(y); }
    int XBmp2Scr(int x) const { return mapping().XBmp2Scr(x); }
    int YBmp2Scr(int y) const { return mapping().YBmp2Scr(y); }
    const TIEViewMapping& mapping() const { return compositor_.Mapping; }

    // The update protocol: Update rebuilds what is stale and repaints;
    // Invalidate marks the back buffer stale and asks for a paint.
    void Update() override;
    void Invalidate();
    void LockPaint() { ++paintLock_; }
    void UnlockPaint();
    bool Stale() const { return stale_; }
    TIEBitmap& BackBuffer() { return compositor_.BackBuffer(); }
    // The client area not composed yet, since it has not shown.
    const QRegion& PendingArea() const { return compositor_.PendingArea(); }

    // The bitmap of the current layer.
    TIEBitmap* IEBitmap();
    // Moves the current bitmap into a QImage-backed store and returns that
    // image, so that its size can be read as a platform picture.
    QImage* Bitmap();
    bool LegacyBitmap() const { return legacyBitmap_; }
    void SetLegacyBitmap(bool on);

    TIELayerList& Layers() override { return layers_; }
    TIEImageProc* Proc() override;
    TIEImageIO& IO();
    int LayersCurrent() const { return layers_.LayersCurrent(); }
    void SetLayersCurrent(int index);
    void LayersDeselectAll();

    TIELayerOptions LayerOptions() const override { return layerOptions_; }
    void SetLayerOptions(TIELayerOptions options);
    TIEMouseInteractLayers MouseInteractLayers() const override {
        return mouse_.MouseInteractLayers();
    }
    void SetMouseInteractLayers(TIEMouseInteractLayers items);
    TIEMouseInteractGeneral MouseInteractGeneral() const { return mouse_.MouseInteractGeneral(); }
    void SetMouseInteractGeneral(TIEMouseInteractGeneral items);
    // The tool objects and the view's own moving and resizing of layers.
    TIEMouseInteractions& Interactions() { return mouse_; }

    // The numeric cursor: OnSetCursor may change the value first.
    int Cursor() const override { return cursor_; }
    void SetCursor(int cursor);
    void ShowCursor(int cursor) override;
    void ToolCursorChanged() override { ApplyCursor(); }
    // The cursor on screen right now: the property, or a tool's over it.
    int ShownCursor() const { return shownCursor_ >= 0 ? shownCursor_ : cursor_; }

    // The in-place text editor over a text layer.
    void LayersActivateTextEditor(int index);
    void LayersCancelEditors(bool accept);
    // The style of the layer under edit changed: what was typed goes back
    // to the layer (an undo step first) and the editor shows the new style.
    void LayersUpdateTextEditor();
    int EditingLayer() const { return compositor_.EditingLayer; }
    TIETextControl* TextEditor() const { return editor_; }

    // Events. Mouse positions are client pixels of this control.
    std::function<void(int index, TIELayerKind kind)> OnNewLayer;
    std::function<void(int index, TIELayerEvent event)> OnLayerNotifyEx;
    std::function<void()> OnActivateTextEditor;
    std::function<void()> OnDeactivateTextEditor;
    std::function<void(int& cursor)> OnSetCursor;
    std::function<void(Qt::MouseButton button, int x, int y)> OnMouseDown;
    std::function<void(Qt::MouseButtons buttons, int x, int y)> OnMouseMove;
    std::function<void(Qt::MouseButton button, int x, int y)> OnMouseUp;
    std::function<void(TIEUserInteractionEvent event)> OnUserInteraction;

    // TIEViewServices for the tools.
    double ZoomD100() const override { return mapping().ZoomD100X(); }
    QRect ClientBitmapRect() const override;
    void RepaintBitmapRect(const QRect& rect) override;
    void NewLayer(int index, TIELayerKind kind) override;
    void UserInteraction(TIEUserInteractionEvent event) override;
    void ActivateTextEditor(int index) override { LayersActivateTextEditor(index); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QPoint ClientPos(const QMouseEvent* event) const;
    QPoint BitmapPos(QPoint client) const { return {XScr2Bmp(client.x()), YScr2Bmp(client.y())}; }
    void Layout();
    QRegion Compose();
    void ApplyCursor();
    void ToolsChanged();
    void ApplyBackground();

    TIELayerList layers_;
    TIELayerUndoTarget undoTarget_;
    std::unique_ptr<TIEImageProc> proc_;
    std::unique_ptr<TIEImageIO> io_;
    TIEViewCompositor compositor_;
    TIEViewBlit blit_;
    TIEMouseInteractions mouse_{*this};
    TIETextControl* editor_ = nullptr;

    TColor background_ = clBtnFace;
    TResampleFilter zoomFilter_ = rfNone;
    bool center_ = true;
    bool legacyBitmap_ = false;
    TIELayerOptions layerOptions_ = kIEDefaultLayerOptions;
    int cursor_ = crIEArrow;
    int shownCursor_ = -1;
    int paintLock_ = 0;
    bool stale_ = true;
};

}  // namespace qpt
