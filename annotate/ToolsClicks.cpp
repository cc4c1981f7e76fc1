// Which handler each control's click runs. The word pictures and the drop
// arrow are icons only: a click on the icon is their click.
#include "annotate/FormTools.h"
#include "skin/RdImageButton.h"

namespace qpt {

void TFormTools::ConnectClicks() {
    const std::pair<TRdImageButton*, void (TFormTools::*)()> clicks[] = {
        {Btn_Rd_Rect, &TFormTools::Btn_Rd_RectClick},
        {Btn_Rd_Ellip, &TFormTools::Btn_Rd_EllipClick},
        {Btn_Rd_Line, &TFormTools::Btn_Rd_LineClick},
        {Btn_Rd_Arrow, &TFormTools::Btn_Rd_ArrowClick},
        {Btn_Rd_Brush, &TFormTools::Btn_Rd_BrushClick},
        {Btn_Rd_Mosaic, &TFormTools::Btn_Rd_MosaicClick},
        {Btn_Rd_Font, &TFormTools::Btn_Rd_FontClick},
        {Btn_Rd_Return, &TFormTools::Btn_Rd_ReturnClick},
        {Btn_Rd_Del, &TFormTools::Btn_Rd_DelClick},
        {Btn_Rd_Share, &TFormTools::Btn_Rd_ShareClick},
        {Btn_Rd_Google, &TFormTools::Btn_Rd_GoogleClick},
        {Btn_Rd_Copy, &TFormTools::Btn_Rd_CopyClick},
        {Rd_WordCopy, &TFormTools::Btn_Rd_CopyClick},
        {Rd_Save, &TFormTools::Rd_SaveClick},
        {Rd_WordSave, &TFormTools::Rd_SaveClick},
        {btn_save_drop, &TFormTools::btn_save_dropClick},
        {Rdbtn_enlarge, &TFormTools::Rdbtn_enlargeClick},
        {Rdbtn_shrink, &TFormTools::Rdbtn_shrinkClick},
    };
    for (const auto& [button, handler] : clicks) {
        const auto run = [this, handler = handler](TRdImageButton&) { (this->*handler)(); };
        button->OnClick = run;
        button->IconOnClick = run;
    }
    Image_BarBg->OnMouseDown = [this](TRdImageButton&, Qt::MouseButton) { Image_BarBgMouseDown(); };
}

}  // namespace qpt
