#pragma once

#include <QPoint>

#include "imaging/IERetouchStroke.h"
#include "imaging/IEUserInteraction.h"

namespace qpt {

// The mosaic brush: what the stroke covers turns into coarse squares. The
// stroke is kept aside and shown as a preview; the picture changes once, at
// the release, and one stroke is one undo step.
class TIERetouchToolInteraction : public TIEUserInteraction {
public:
    static constexpr uint8_t kPixelateMode = 7;

    explicit TIERetouchToolInteraction(TIEViewServices& owner) : TIEUserInteraction(owner) {}

    int32_t BrushWidth = 20;
    int32_t BrushHeight = 20;
    TIECursorShape BrushShape = iecsCircle;
    int32_t Feather = 2;
    int32_t Opacity = 255;
    int32_t PixelSize = 10;
    int32_t LastX = 0;
    int32_t LastY = 0;

    uint8_t RetouchMode() const { return mode_; }
    // A new mode ends the stroke under way.
    void SetRetouchMode(uint8_t mode);
    // Values of 10000 and more carry the width above and the height below
    // 10000; smaller ones give a square brush.
    void SetBrushSize(int32_t size);
    bool Started() const { return started_; }
    const TIERetouchStroke& Stroke() const { return stroke_; }
    // Side of the ring cursor on screen.
    int ZoneCursorSize() const { return int(BrushWidth * Owner().ZoomD100()); }

    bool MouseDown(TIEMouseButton button, TIEShiftState shift, int x, int y) override;
    void MouseMove(TIEShiftState shift, int x, int y) override;
    void MouseUp(TIEMouseButton button, TIEShiftState shift, int x, int y) override;
    // Shows the stroke pixelated over the back buffer, within clip; the
    // picture stays.
    void PaintArea(TIEBitmap& backBuffer, const TIEViewMapping& mapping,
                   const QRect& clip) override;
    bool IsActive() const override { return started_; }
    // Drops the stroke; the undo step taken at its start stays.
    void Cancel() override;

private:
    QSize Brush() const { return QSize(BrushWidth, BrushHeight); }
    QPoint SnapToStep(QPoint p) const;
    // Keeps the preview, the stroke's pixels as they will land (pixelated,
    // edge feathered), up to date after the stroke grew from box before by
    // the footprints in touched, and asks for the repaint of what changed.
    void UpdatePreview(const QRect& before, const QRect& touched);
    bool PreviewCurrent() const;
    void RenderAll();
    void GrowPreview(QSize size);
    // Renders area (stroke coordinates) widened to whole cells; returns it.
    QRect RenderArea(const QRect& area);
    void Merge();

    uint8_t mode_ = 0;
    bool started_ = false;
    bool hadStroke_ = false;
    TIERetouchStroke stroke_;
    TIEBitmap preview_;
    // What the preview was rendered for; a null box when there is none.
    QRect previewBox_;
    int previewCell_ = 0;
    int previewFeather_ = 0;
};

}  // namespace qpt
