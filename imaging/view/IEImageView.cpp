#include "imaging/view/IEImageView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "imaging/IEImageLayer.h"
#include "imaging/IETextLayer.h"
#include "imaging/view/IETextControl.h"
#include "imaging/view/IEViewCursors.h"

namespace qpt {

namespace {

TIEMouseButton ToolButton(Qt::MouseButton button) {
    if (button == Qt::RightButton) return mbRight;
    if (button == Qt::MiddleButton) return mbMiddle;
    return mbLeft;
}

TIEShiftState ShiftOf(const QMouseEvent* event) {
    TIEShiftState shift = 0;
    const Qt::KeyboardModifiers keys = event->modifiers();
    if (keys & Qt::ShiftModifier) shift |= ssShift;
    if (keys & Qt::AltModifier) shift |= ssAlt;
    if (keys & Qt::ControlModifier) shift |= ssCtrl;
    const Qt::MouseButtons buttons = event->buttons() | event->button();
    if (buttons & Qt::LeftButton) shift |= ssLeft;
    if (buttons & Qt::RightButton) shift |= ssRight;
    if (buttons & Qt::MiddleButton) shift |= ssMiddle;
    return shift;
}

}  // namespace

TIEImageView::TIEImageView(QWidget* parent)
    : QWidget(parent), undoTarget_(layers_, [this] { Update(); }) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    compositor_.ZoomFilter = zoomFilter_;
    ApplyBackground();
    layers_.AutoFixBorders = layerOptions_ & loAutoFixBorders;
    layers_.OnSaveObjectsUndo = [this] { Proc()->SaveUndo(ieuObjectsAndLayers); };
    layers_.OnLayerNotifyEx = [this](int index, TIELayerEvent event) {
        if (OnLayerNotifyEx) OnLayerNotifyEx(index, event);
    };
    layers_.Background().VisibleBox = false;

    ApplyCursor();
}

TIEImageView::~TIEImageView() {
    // Tools may still ask the view for an update while they go.
    ++paintLock_;
}

void TIEImageView::SetBackground(TColor color) {
    background_ = color;
    ApplyBackground();
    compositor_.Invalidate();
    Update();
}

// The engine paints plain colours; a system colour is looked up here.
void TIEImageView::ApplyBackground() {
    const TColor plain = ResolveSystemColor(background_);
    compositor_.Background = plain;
    layers_.BackgroundColor = plain;
}

void TIEImageView::SetCenter(bool center) {
    center_ = center;
    Update();
}

void TIEImageView::SetZoomFilter(TResampleFilter filter) {
    zoomFilter_ = filter;
    compositor_.ZoomFilter = filter;
    compositor_.Invalidate();
    Update();
}

void TIEImageView::SetZoom(double percent) {
    if (percent <= 0 || (percent == mapping().ZoomX() && percent == mapping().ZoomY())) return;
    compositor_.Mapping.SetZoom(percent);
    Update();
    if (EditingLayer() >= 0) LayersCancelEditors(true);
}

void TIEImageView::ZoomAt(int x, int y, double percent, bool center) {
    if (percent <= 0 || (percent == mapping().ZoomX() && percent == mapping().ZoomY())) return;
    LockPaint();
    const int bx = XScr2Bmp(x), by = YScr2Bmp(y);
    SetZoom(percent);
    const double z = mapping().ZoomD100X();
    int viewX, viewY;
    if (center) {
        viewX = int(std::lround(bx * z - width() / 2.0));
        viewY = int(std::lround(by * z - height() / 2.0));
    } else {
        // The percent / 100 term has always been part of this placement.
        viewX = int(std::lround(OffsetX() + (bx * z - x) + percent / 100));
        viewY = int(std::lround(OffsetY() + (by * z - y) + percent / 100));
    }
    SetViewXY(viewX, viewY);
    UnlockPaint();
}

void TIEImageView::SetViewXY(int x, int y) {
    const int oldX = ViewX(), oldY = ViewY();
    compositor_.Mapping.SetViewXY(x, y);
    if (ViewX() == oldX && ViewY() == oldY) return;
    compositor_.Invalidate();
    Update();
}

void TIEImageView::Layout() {
    const TIEViewMapping before = mapping();
    const TIEBitmap& picture = layers_.Background().Picture();
    compositor_.Mapping.SetLayout(picture.Width(), picture.Height(), width(), height(), center_);
    const TIEViewMapping& now = mapping();
    layers_.ClientSize = QSizeF(width() * now.Zoom100DX(), height() * now.Zoom100DY());
    if (now.OffsetX() != before.OffsetX() || now.OffsetY() != before.OffsetY() ||
        now.ViewX() != before.ViewX() || now.ViewY() != before.ViewY() ||
        now.ZoomX() != before.ZoomX() || now.BitmapWidth() != before.BitmapWidth() ||
        now.BitmapHeight() != before.BitmapHeight())
        compositor_.Invalidate();
}

void TIEImageView::Update() {
    if (paintLock_ > 0) return;
    Layout();
    Invalidate();
}

void TIEImageView::UnlockPaint() {
    if (paintLock_ > 0 && --paintLock_ == 0) Update();
}

// The back buffer is brought up to date at once, so that only what changed
// goes to the window; a hidden view waits for its first paint.
void TIEImageView::Invalidate() {
    stale_ = true;
    if (isVisible()) QWidget::update(Compose());
}

QRegion TIEImageView::Compose() {
    // Inside a scroll box only what the box shows is composed now; the rest
    // when it is scrolled into view and painted.
    compositor_.ShownArea = visibleRegion().boundingRect();
    const QRegion damage = compositor_.Compose(layers_);
    mouse_.Paint(BackBuffer(), mapping(), damage);
    stale_ = false;
    return damage;
}

void TIEImageView::paintEvent(QPaintEvent* event) {
    if (stale_) Compose();
    mouse_.Paint(BackBuffer(), mapping(), compositor_.ComposePending(layers_, event->region()));
    QPainter painter(this);
    TIEBitmap& back = BackBuffer();
    const QRect backRect(0, 0, back.Width(), back.Height());
    for (const QRect& r : event->region()) {
        blit_.Paint(painter, back, r & backRect);
        for (const QRect& rest : QRegion(r) - backRect)
            painter.fillRect(rest, IETextQColor(compositor_.Background));
    }
}

void TIEImageView::resizeEvent(QResizeEvent*) {
    Update();
}

TIEBitmap* TIEImageView::IEBitmap() {
    return IEWorkingLayer(*this).Bitmap();
}

QImage* TIEImageView::Bitmap() {
    SetLegacyBitmap(true);
    return IEBitmap()->VclBitmap();
}

void TIEImageView::SetLegacyBitmap(bool on) {
    if (on == legacyBitmap_) return;
    legacyBitmap_ = on;
    IEBitmap()->SetLocation(on ? ieTBitmap : ieMemory);
    compositor_.Invalidate();
    Update();
}

TIEImageProc* TIEImageView::Proc() {
    if (!proc_) proc_ = std::make_unique<TIEImageProc>(&undoTarget_);
    return proc_.get();
}

TIEImageIO& TIEImageView::IO() {
    if (!io_) {
        io_ = std::make_unique<TIEImageIO>(layers_.Background().Bitmap());
        io_->OnLoaded = [this] {
            layers_.Background().FitToBitmap();
            layers_.Background().Changed();
            compositor_.Invalidate();
            Update();
        };
    }
    return *io_;
}

void TIEImageView::SetLayersCurrent(int index) {
    layers_.SetLayersCurrent(index);
    Update();
}

void TIEImageView::LayersDeselectAll() {
    for (int i = 0; i < layers_.LayersCount(); ++i)
        layers_.GetLayer(i)->Selected = false;
    Update();
}

void TIEImageView::SetLayerOptions(TIELayerOptions options) {
    const TIELayerOptions changed = layerOptions_ ^ options;
    layerOptions_ = options;
    layers_.AllowMultiSelect = options & loAllowMultiSelect;
    layers_.AutoFixBorders = options & loAutoFixBorders;
    if ((changed & loAllowMultiSelect) && !(options & loAllowMultiSelect)) {
        for (int i = 0; i < layers_.LayersCount(); ++i)
            if (i != LayersCurrent()) layers_.GetLayer(i)->Selected = false;
        Update();
    }
    if (changed & loDynamicCanvas) Update();
}

void TIEImageView::SetMouseInteractLayers(TIEMouseInteractLayers items) {
    mouse_.SetMouseInteractLayers(items);
    ToolsChanged();
}

void TIEImageView::SetMouseInteractGeneral(TIEMouseInteractGeneral items) {
    mouse_.SetMouseInteractGeneral(items);
    ToolsChanged();
}

void TIEImageView::ToolsChanged() {
    // A change of tool ends the text being typed.
    if (EditingLayer() >= 0) LayersCancelEditors(true);
    // The grip pass runs only while a layer interaction is armed.
    compositor_.ShowGrips = MouseInteractLayers() != 0;
    ApplyCursor();
    Update();
}

void TIEImageView::SetCursor(int cursor) {
    if (OnSetCursor) OnSetCursor(cursor);
    cursor_ = cursor;
    ApplyCursor();
}

void TIEImageView::ShowCursor(int cursor) {
    shownCursor_ = cursor;
    ApplyCursor();
}

void TIEImageView::ApplyCursor() {
    const TIERetouchToolInteraction& retouch = mouse_.RetouchTool();
    const bool ring = retouch.Enabled() && shownCursor_ < 0 && cursor_ != crSizeAll;
    if (ring)
        setCursor(IERingCursor(retouch.ZoneCursorSize()));
    else
        setCursor(IEQtCursorShape(ShownCursor()));
}

QRect TIEImageView::ClientBitmapRect() const {
    return QRect(BitmapPos(QPoint(0, 0)), BitmapPos(QPoint(width() - 1, height() - 1)));
}

void TIEImageView::RepaintBitmapRect(const QRect& rect) {
    // The preview is drawn over the composed layers, so what lies under the
    // changed part is composed anew; a pixel more on each side covers the
    // rounding of the zoomed place.
    const QRect r = rect.adjusted(-1, -1, 1, 1);
    compositor_.InvalidateArea(QRect(QPoint(XBmp2Scr(r.left()), YBmp2Scr(r.top())),
                                     QPoint(XBmp2Scr(r.right() + 1), YBmp2Scr(r.bottom() + 1))));
    Invalidate();
}

void TIEImageView::NewLayer(int index, TIELayerKind kind) {
    if (OnNewLayer) OnNewLayer(index, kind);
}

void TIEImageView::UserInteraction(TIEUserInteractionEvent event) {
    if (OnUserInteraction) OnUserInteraction(event);
}

// Positions come from the global pointer and the control's own idea of its
// place, so that they stay right while the window is being moved.
QPoint TIEImageView::ClientPos(const QMouseEvent* event) const {
    return mapFromGlobal(event->globalPosition().toPoint());
}

void TIEImageView::mousePressEvent(QMouseEvent* event) {
    const QPoint at = ClientPos(event);
    if (OnMouseDown) OnMouseDown(event->button(), at.x(), at.y());
    if (window()->isVisible() && focusPolicy() != Qt::NoFocus) setFocus(Qt::MouseFocusReason);
    if (EditingLayer() >= 0 && event->button() == Qt::LeftButton) LayersCancelEditors(true);
    const QPoint b = BitmapPos(at);
    mouse_.MouseDown(ToolButton(event->button()), ShiftOf(event), b.x(), b.y());
}

void TIEImageView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = ClientPos(event);
    if (OnMouseMove) OnMouseMove(event->buttons(), at.x(), at.y());
    const QPoint b = BitmapPos(at);
    mouse_.MouseMove(ShiftOf(event), b.x(), b.y());
}

void TIEImageView::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint at = ClientPos(event);
    if (OnMouseUp) OnMouseUp(event->button(), at.x(), at.y());
    const QPoint b = BitmapPos(at);
    mouse_.MouseUp(ToolButton(event->button()), ShiftOf(event), b.x(), b.y());
}

// The wheel belongs to whatever holds the view (a scroll box scrolls it).
void TIEImageView::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

// Esc and Delete drop what a tool is drawing; any other key, and these when
// no tool used them, go on to the parent.
void TIEImageView::keyPressEvent(QKeyEvent* event) {
    if (mouse_.KeyDown(event->key())) {
        Update();
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

// A window that is no longer active has lost the mouse: a two-click line or
// a stroke under way is dropped rather than left hanging.
void TIEImageView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && !isActiveWindow()) {
        mouse_.Abandon();
        Update();
    }
    QWidget::changeEvent(event);
}

void TIEImageView::LayersActivateTextEditor(int index) {
    auto* layer = dynamic_cast<TIETextLayer*>(layers_.GetLayer(index));
    if (!layer) return;
    if (EditingLayer() >= 0) LayersCancelEditors(true);
    compositor_.EditingLayer = index;
    Update();
    // Made at first use: an editor loads the font system, which a session
    // without text never needs.
    if (!editor_) editor_ = new TIETextControl(this);
    editor_->Load(*layer, Zoom(), compositor_.LayerRect(*layer));
    if (OnActivateTextEditor) OnActivateTextEditor();
}

void TIEImageView::LayersCancelEditors(bool accept) {
    const int index = EditingLayer();
    auto* layer = dynamic_cast<TIETextLayer*>(layers_.GetLayer(index));
    if (!layer || !editor_) return;
    const QString text = editor_->Text();
    if (accept) {
        IESaveUserUndo(*this, ieuLayer);
        layer->SetText(text);
        layer->Changed();
    }
    editor_->hide();
    compositor_.EditingLayer = -1;
    if (OnDeactivateTextEditor) OnDeactivateTextEditor();
    // A click with the text tool and nothing typed leaves nothing behind.
    if (text.isEmpty() && index == LayersCurrent()) layers_.LayersRemove(index);
    compositor_.Invalidate();
    Update();
}

void TIEImageView::LayersUpdateTextEditor() {
    auto* layer = dynamic_cast<TIETextLayer*>(layers_.GetLayer(EditingLayer()));
    if (!layer || !editor_) return;
    IESaveUserUndo(*this, ieuLayer);
    layer->SetText(editor_->Text());
    Update();
    editor_->Load(*layer, Zoom(), compositor_.LayerRect(*layer));
}

}  // namespace qpt
