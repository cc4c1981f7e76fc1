#include "imaging/IERetouchToolInteraction.h"

#include <algorithm>
#include <cmath>

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
    stroke_.Stamp(picture, at, Brush(), BrushShape);
    Owner().UserInteraction(ieiRetouchStart);
    Owner().RepaintBitmapRect(stroke_.Rect());
    return true;
}

void TIERetouchToolInteraction::MouseMove(TIEShiftState, int x, int y) {
    if (!started_ || (x == LastX && y == LastY)) return;
    const TIEBitmap& picture = *IEWorkingLayer(Owner()).Bitmap();
    stroke_.StampLine(picture, QPoint(LastX, LastY), QPoint(x, y), Brush(), BrushShape);
    LastX = x;
    LastY = y;
    Owner().UserInteraction(ieiRetouching);
    Owner().RepaintBitmapRect(stroke_.Rect());
}

void TIERetouchToolInteraction::MouseUp(TIEMouseButton button, TIEShiftState, int, int) {
    if (started_ && button == mbLeft) Merge();
}

void TIERetouchToolInteraction::Render(TIEBitmap& stroke) const {
    Pixelize(stroke, nullptr, PixelSize, 0, 0, stroke.Width() - 1, stroke.Height() - 1);
    if (Feather > 0) IEFeatherAlpha(*stroke.AlphaChannel(), Feather);
}

void TIERetouchToolInteraction::Merge() {
    SetBusy(true);
    started_ = false;
    TIEImageLayer& layer = IEWorkingLayer(Owner());
    TIEBitmap& stroke = stroke_.Bitmap();
    if (!stroke_.Empty()) {
        Render(stroke);
        TIEBitmap::MergeAlpha(stroke, 0, 0, stroke.Width(), stroke.Height(), *layer.Bitmap(),
                              stroke_.X(), stroke_.Y(), stroke.Width(), stroke.Height(), Opacity);
        layer.Changed(true);
    }
    stroke_.Clear();
    Owner().Update();
    Owner().UserInteraction(ieiRetouchEnd);
    SetBusy(false);
}

void TIERetouchToolInteraction::Cancel() {
    if (!started_) return;
    const QRect shown = stroke_.Rect();
    started_ = false;
    stroke_.Clear();
    Owner().RepaintBitmapRect(shown);
}

void TIERetouchToolInteraction::Paint(TIEBitmap& backBuffer, const TIEViewMapping& mapping) {
    if (!started_ || stroke_.Empty() || backBuffer.PixelFormat() != ie24RGB) return;
    const QRect place(QPoint(mapping.XBmp2Scr(stroke_.X()), mapping.YBmp2Scr(stroke_.Y())),
                      QPoint(mapping.XBmp2Scr(stroke_.Rect().right() + 1) - 1,
                             mapping.YBmp2Scr(stroke_.Rect().bottom() + 1) - 1));
    const QRect clip = place & QRect(0, 0, backBuffer.Width(), backBuffer.Height());
    if (clip.isEmpty()) return;
    preview_.Assign(stroke_.Bitmap());
    Render(preview_);
    const auto xs =
        IESampleTable(clip.x() - place.x(), clip.width(), preview_.Width(), place.width());
    const auto ys =
        IESampleTable(clip.y() - place.y(), clip.height(), preview_.Height(), place.height());
    IEComposeImage(preview_, backBuffer, clip.x(), clip.y(), xs, ys, std::clamp(Opacity, 0, 255),
                   false);
}

}  // namespace qpt
