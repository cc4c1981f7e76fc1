#include "imaging/IERetouchToolInteraction.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "imaging/IEImageCompose.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IEPixelize.h"
#include "imaging/IEUndoStore.h"
#include "imaging/IEViewMapping.h"

namespace qpt {

void TIERetouchToolInteraction::SetRetouchMode(uint8_t mode) {
    if (mode == mode_) return;
    Reset();
    mode_ = mode;
}

void TIERetouchToolInteraction::SetBrushSize(int32_t size) {
    const QSize before = Brush();
    if (size >= 10000) {
        BrushWidth = std::max(1, size / 10000);
        BrushHeight = std::max(1, size % 10000);
    } else {
        BrushWidth = BrushHeight = std::max(1, size);
    }
    // The ring on the screen shows the brush; it is drawn anew for a new size.
    if (Brush() != before) Owner().ToolCursorChanged();
}

QPoint TIERetouchToolInteraction::SnapToStep(QPoint p) const {
    const double step = double(std::max(10, std::max(BrushWidth, BrushHeight)));
    auto snap = [step](int v, int last) {
        return last + int(double(std::lround((v - last) / step)) * step);
    };
    return QPoint(snap(p.x(), LastX), snap(p.y(), LastY));
}

bool TIERetouchToolInteraction::MouseDown(TIEMouseButton button, TIEShiftState shift, int x,
                                          int y) {
    if (!Enabled() || button != mbLeft || mode_ != kPixelateMode) return false;
    if (started_) Merge();  // a release we never saw
    const TIEBitmap& picture = *IEWorkingLayer(Owner()).Bitmap();
    if (picture.PixelFormat() != ie24RGB || !picture.IsAllocated()) return false;
    QPoint at(x, y);
    if (hadStroke_ && ((shift & ssShift) || Owner().FixedAspect())) at = SnapToStep(at);
    LastX = at.x();
    LastY = at.y();
    started_ = hadStroke_ = true;
    IESaveUserUndo(Owner(), ieuImage);
    stroke_.Clear();
    previewBox_ = QRect();
    stroke_.Stamp(picture, at, Brush(), BrushShape);
    Owner().UserInteraction(ieiRetouchStart);
    UpdatePreview(QRect(), QRect());
    return true;
}

void TIERetouchToolInteraction::MouseMove(TIEShiftState, int x, int y) {
    if (!started_ || (x == LastX && y == LastY)) return;
    const TIEBitmap& picture = *IEWorkingLayer(Owner()).Bitmap();
    const QPoint from(LastX, LastY), to(x, y);
    const QRect before = stroke_.Rect();
    stroke_.StampLine(picture, from, to, Brush(), BrushShape);
    LastX = x;
    LastY = y;
    Owner().UserInteraction(ieiRetouching);
    UpdatePreview(before, TIERetouchStroke::BrushBox(from, Brush()) |
                              TIERetouchStroke::BrushBox(to, Brush()));
}

void TIERetouchToolInteraction::MouseUp(TIEMouseButton button, TIEShiftState, int, int) {
    if (started_ && button == mbLeft) Merge();
}

bool TIERetouchToolInteraction::PreviewCurrent() const {
    // The cells are counted from the stroke's corner, so when the stroke
    // grows to the left or upward every cell moves and all is done again.
    return !previewBox_.isNull() && previewBox_.topLeft() == stroke_.Rect().topLeft() &&
           previewCell_ == PixelSize && previewFeather_ == Feather;
}

void TIERetouchToolInteraction::RenderAll() {
    preview_.Assign(stroke_.Bitmap());
    previewBox_ = stroke_.Rect();
    previewCell_ = PixelSize;
    previewFeather_ = Feather;
    RenderArea(QRect(QPoint(0, 0), previewBox_.size()));
}

void TIERetouchToolInteraction::GrowPreview(QSize size) {
    TIEBitmap next;
    if (!next.Allocate(size.width(), size.height(), ie24RGB)) {
        previewBox_ = QRect();
        return;
    }
    // The corner stays, so the old rows keep their place; what is new is
    // rendered by the caller.
    const TIEBitmap& oldAlpha = *preview_.AlphaChannelIfAny();
    TIEBitmap& alpha = *next.AlphaChannel();
    for (int y = 0; y < preview_.Height(); ++y) {
        std::memcpy(next.Scanline(y), preview_.Scanline(y), size_t(preview_.Width()) * 3);
        std::memcpy(alpha.Scanline(y), oldAlpha.Scanline(y), size_t(preview_.Width()));
    }
    preview_ = std::move(next);
    previewBox_.setSize(size);
}

QRect TIERetouchToolInteraction::RenderArea(const QRect& area) {
    const int cell = std::max(1, PixelSize);
    auto down = [cell](int v) { return std::max(0, v) / cell * cell; };
    const QRect cells =
        QRect(QPoint(down(area.left()), down(area.top())),
              QPoint(down(area.right()) + cell - 1, down(area.bottom()) + cell - 1)) &
        QRect(QPoint(0, 0), previewBox_.size());
    if (cells.isEmpty()) return cells;
    const TIEBitmap& stroke = stroke_.Bitmap();
    const TIEBitmap& strokeAlpha = *stroke.AlphaChannelIfAny();
    TIEBitmap& alpha = *preview_.AlphaChannel();
    for (int y = cells.top(); y <= cells.bottom(); ++y) {
        std::memcpy(preview_.Scanline(y) + cells.left() * 3, stroke.Scanline(y) + cells.left() * 3,
                    size_t(cells.width()) * 3);
        if (Feather <= 0)
            std::memcpy(alpha.Scanline(y) + cells.left(), strokeAlpha.Scanline(y) + cells.left(),
                        size_t(cells.width()));
    }
    Pixelize(preview_, nullptr, cell, cells.left(), cells.top(), cells.right(), cells.bottom());
    if (Feather > 0)
        IEFeatherAlphaArea(strokeAlpha, alpha, Feather, cells.left(), cells.top(), cells.right(),
                           cells.bottom());
    alpha.SetFull(false);
    return cells;
}

void TIERetouchToolInteraction::UpdatePreview(const QRect& before, const QRect& touched) {
    if (stroke_.Empty()) return;
    const QRect box = stroke_.Rect();
    if (!PreviewCurrent()) {
        RenderAll();
        Owner().RepaintBitmapRect(box);
        return;
    }
    if (box.size() != previewBox_.size()) GrowPreview(box.size());
    if (previewBox_.isNull()) return;  // no memory: the stroke shows at its end
    // Besides what the footprints touched, feathered as far as the blur
    // reaches, a box grown to the right or down changes its old edge: the
    // cells cut there take in the new pixels, and the blur no longer
    // extends the old edge outward.
    const int reach = std::max(0, Feather) + 1, cell = std::max(1, PixelSize);
    std::vector<QRect> areas{
        touched.translated(-box.topLeft()).adjusted(-reach, -reach, reach, reach)};
    if (box.width() > before.width()) {
        const int x = std::min(before.width() / cell * cell, before.width() - reach);
        areas.emplace_back(x, 0, box.width() - x, box.height());
    }
    if (box.height() > before.height()) {
        const int y = std::min(before.height() / cell * cell, before.height() - reach);
        areas.emplace_back(0, y, box.width(), box.height() - y);
    }
    for (const QRect& area : areas) {
        const QRect done = RenderArea(area);
        if (!done.isEmpty()) Owner().RepaintBitmapRect(done.translated(box.topLeft()));
    }
}

void TIERetouchToolInteraction::Merge() {
    SetBusy(true);
    started_ = false;
    TIEImageLayer& layer = IEWorkingLayer(Owner());
    if (!stroke_.Empty() && !PreviewCurrent()) RenderAll();
    if (!stroke_.Empty() && PreviewCurrent()) {
        TIEBitmap::MergeAlpha(preview_, 0, 0, preview_.Width(), preview_.Height(), *layer.Bitmap(),
                              stroke_.X(), stroke_.Y(), preview_.Width(), preview_.Height(),
                              Opacity);
        layer.Changed(true);
    }
    stroke_.Clear();
    preview_.Free();
    previewBox_ = QRect();
    Owner().Update();
    Owner().UserInteraction(ieiRetouchEnd);
    SetBusy(false);
}

void TIERetouchToolInteraction::Cancel() {
    if (!started_) return;
    const QRect shown = stroke_.Rect();
    started_ = false;
    stroke_.Clear();
    preview_.Free();
    previewBox_ = QRect();
    Owner().RepaintBitmapRect(shown);
}

void TIERetouchToolInteraction::PaintArea(TIEBitmap& backBuffer, const TIEViewMapping& mapping,
                                          const QRect& clip) {
    if (!started_ || previewBox_.isNull() || backBuffer.PixelFormat() != ie24RGB) return;
    const QRect place(QPoint(mapping.XBmp2Scr(previewBox_.x()), mapping.YBmp2Scr(previewBox_.y())),
                      QPoint(mapping.XBmp2Scr(previewBox_.right() + 1) - 1,
                             mapping.YBmp2Scr(previewBox_.bottom() + 1) - 1));
    // Only inside clip: the back buffer elsewhere may already hold the
    // preview, and blending it twice would darken the feathered edge.
    const QRect area = place & clip & QRect(0, 0, backBuffer.Width(), backBuffer.Height());
    if (area.isEmpty()) return;
    const auto xs =
        IESampleTable(area.x() - place.x(), area.width(), preview_.Width(), place.width());
    const auto ys =
        IESampleTable(area.y() - place.y(), area.height(), preview_.Height(), place.height());
    IEComposeImage(preview_, backBuffer, area.x(), area.y(), xs, ys, std::clamp(Opacity, 0, 255),
                   false);
}

}  // namespace qpt
