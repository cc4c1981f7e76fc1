// The bar laid out from left to right before each show: every control's
// left edge follows from the one before it, so that the bar closes up
// around what is there at its current size.
#include <QFontMetrics>
#include <QLabel>
#include <cmath>

#include "annotate/FormTools.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "imaging/view/IEImageView.h"
#include "skin/RdImage.h"
#include "skin/RdImageButton.h"
#include "support/MainIni.h"
#include "support/Scale.h"

namespace qpt {

namespace {

int Scaled(int designPixels) {
    return ScaleActive() ? int(std::lround(designPixels * GetScaleFactor())) : designPixels;
}

int RightEdge(const QWidget* control) {
    return control->x() + control->width();
}

void MoveLeft(QWidget* control, int left) {
    control->move(left, control->y());
}

}  // namespace

void TFormTools::UpdateBarLayout(const QRect& pinned) {
    // The path panel opens only while the always-save setting is off.
    btn_save_drop->setVisible(ReadMainIni(QStringLiteral("Screenshot"),
                                          QStringLiteral("CaptureSave"),
                                          QStringLiteral("0")) == QLatin1StringView("0"));
    UpdateLabels();
    const std::pair<QWidget*, int> afterPrevious[] = {
        {Btn_Rd_Rect, 19},   {Btn_Rd_Ellip, 12},  {Btn_Rd_Line, 12},   {Btn_Rd_Arrow, 12},
        {Btn_Rd_Brush, 12},  {Btn_Rd_Mosaic, 12}, {Btn_Rd_Font, 12},   {Image_BarDiv2, 19},
        {Btn_Rd_Return, 19}, {Btn_Rd_Del, 12},    {Image_BarDiv3, 19}, {Btn_Rd_Share, 19},
        {Btn_Rd_Google, 12}, {Btn_Rd_Copy, 12},
    };
    MoveLeft(lbl_Porportion, RightEdge(Rdbtn_shrink) + Scaled(9));
    const QWidget* previous = Image_BarDiv1;
    for (const auto& [control, gap] : afterPrevious) {
        MoveLeft(control, RightEdge(previous) + Scaled(gap));
        previous = control;
    }
    MoveLeft(Rd_WordCopy, Btn_Rd_Copy->x() + Scaled(32));
    MoveLeft(Rd_Save, RightEdge(Btn_Rd_Copy) + Scaled(1));
    MoveLeft(Rd_WordSave, Rd_Save->x() + Scaled(32));
    MoveLeft(btn_save_drop, Rd_Save->x() + Scaled(62));
    Panel_Tools->resize(RightEdge(Rd_Save), Panel_Tools->height());
    resize(Panel_Tools->width(), height());
    PictureRect = pinned;
}

// The size label tells the view's size, which follows the zoom, not the
// stored picture's; the zoom label grows with its text up to its limit.
void TFormTools::UpdateLabels() {
    MakeLabels();
    if (Image_Front)
        lbl_WinSize->setText(
            QStringLiteral("%1 x %2").arg(Image_Front->width()).arg(Image_Front->height()));
    lbl_Porportion->setText(QString::number(ZoomStep * 10) + '%');
    const int textWidth = lbl_Porportion->fontMetrics().horizontalAdvance(lbl_Porportion->text());
    lbl_Porportion->resize(std::max(Scaled(36), textWidth + Scaled(4)), lbl_Porportion->height());
}

}  // namespace qpt
