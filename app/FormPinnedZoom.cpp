// The zoom request the toolbar posts after each click on its zoom buttons:
// the window grows or shrinks with the picture, keeps the corner next to the
// bar, and the bar is laid out again for the new size.
#include <QScrollBar>

#include "app/FormPinned.h"
#include "app/PinnedZoom.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "imaging/IEImageLayer.h"
#include "imaging/view/IEImageView.h"

namespace qpt {

void TFormPinned::PinnedZoomStep(int wParam) {
    if (wParam == 0 || wParam == 1) ResizeForZoom(wParam == 1);
    if (!Bars.ToolsExist()) return;
    // An open style bar keeps its tool armed; without it the window can be
    // dragged again.
    if (TPinnedBars::Ask(Bars.SmallToolsVisible)) {
        Image_Front->SetCursor(crDefault);
    } else {
        TPinnedBars::Call(Bars.HideSmallTools);
        TPinnedBars::Call(Bars.ResetToolButtons);
        Image_Front->SetCursor(crSizeAll);
    }
    if (Bars.UpdateBarLayout) Bars.UpdateBarLayout(PinnedRect());
    Bars.ShowTools();
}

void TFormPinned::ResizeForZoom(bool up) {
    const TIEBitmap& picture = *Image_Front->Layers().Background().Bitmap();
    const TZoomSizes now{geometry(), RdSB_ImageFont->size(), Image_Front->size(), ZoomBaseWidth};
    const TZoomStepInput step{QSize(picture.Width(), picture.Height()),
                              InitialWidth,
                              InitialHeight,
                              ZoomStep,
                              up,
                              qpt::FormTools ? qpt::FormTools->geometry() : QRect(),
                              CurrentScreenLayout()};
    const TZoomSizes next = ZoomStepSizes(now, step);
    ZoomBaseWidth = next.zoomBaseWidth;
    // The picture is composed once, at its new zoom and size.
    Image_Front->LockPaint();
    Image_Front->SetZoom(ZoomStep * 10.0);
    Image_Front->resize(next.view);
    Image_Front->UnlockPaint();
    setGeometry(next.window);
    // The box spans the window, so that its bar stands in the room the
    // window keeps for it at the right.
    RdSB_ImageFont->setGeometry(0, 0, next.window.width(), next.box.height());
    RdSB_ImageFont->VScroll()->setVisible(next.view.height() > next.box.height());
}

}  // namespace qpt
