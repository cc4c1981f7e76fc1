// A wide blue button and the word picture laid on it (and, on Save, the drop
// arrow) press and light up together, so that they act as one control.
#include "annotate/FormTools.h"
#include "skin/RdImageButton.h"

namespace qpt {

namespace {

using TState = TRdImageButton::TState;
using TIconState = TRdImageButton::TIconState;

// Down on press, back at release, whatever the button.
void WhilePressed(TRdImageButton* source, std::function<void(bool down)> follow) {
    source->OnMouseDown = [follow](TRdImageButton&, Qt::MouseButton) { follow(true); };
    source->OnMouseUp = [follow](TRdImageButton&, Qt::MouseButton) { follow(false); };
}

void PressButton(TRdImageButton* button, bool down) {
    button->SetState(down ? TRdImageButton::bsDown : TRdImageButton::bsNormal);
}

void PressIcon(TRdImageButton* button, bool down) {
    button->SetIconState(down ? TRdImageButton::isDown : TRdImageButton::isNormal);
}

void LightOnEnter(TRdImageButton* source, TRdImageButton* lit) {
    source->OnMouseEnter = [lit](TRdImageButton&) { lit->SetMouseIn(true); };
}

}  // namespace

void TFormTools::ConnectOverlays() {
    WhilePressed(Btn_Rd_Copy, [this](bool down) { PressIcon(Rd_WordCopy, down); });
    WhilePressed(Rd_WordCopy, [this](bool down) { PressButton(Btn_Rd_Copy, down); });
    LightOnEnter(Rd_WordCopy, Btn_Rd_Copy);
    WhilePressed(Rd_Save, [this](bool down) {
        PressIcon(Rd_WordSave, down);
        PressIcon(btn_save_drop, down);
    });
    WhilePressed(Rd_WordSave, [this](bool down) {
        PressButton(Rd_Save, down);
        PressIcon(Rd_Save, down);
        PressIcon(btn_save_drop, down);
    });
    WhilePressed(btn_save_drop, [this](bool down) {
        PressButton(Rd_Save, down);
        PressIcon(Rd_Save, down);
        PressIcon(Rd_WordSave, down);
    });
    LightOnEnter(Rd_WordSave, Rd_Save);
    LightOnEnter(btn_save_drop, Rd_Save);
}

}  // namespace qpt
