// Undo, the exit button and the keys: the ways back and out that the
// toolbar offers while it is up.
#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include "annotate/AppEventMsg.h"
#include "annotate/FormTools.h"
#include "app/session/SessionEnd.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "imaging/IEImageProc.h"
#include "imaging/view/IEImageView.h"
#include "output/FormMsg.h"
#include "skin/RdImageButton.h"
#include "skin/RdSkinMenu.h"

namespace qpt {

void TFormTools::Btn_Rd_ReturnClick() {
    if (FolderDialogHoldsClicks()) return;
    // Held off while the step is read back, so that a second press cannot
    // run into the first.
    Btn_Rd_Return->setEnabled(false);
    Rd_Save->SetState(TRdImageButton::bsNormal);
    if (Image_Front) Image_Front->Proc()->Undo(true);
    Btn_Rd_Return->setEnabled(true);
}

void TFormTools::Btn_Rd_DelClick() {
    if (FolderDialogHoldsClicks()) return;
    EndSession(QStringLiteral("a313"));
}

// The undo count tells whether anything would be lost: with none, the first
// Esc leaves; with some, the first shows the tip and the second leaves.
// Auto-repeat counts, so holding Esc leaves too.
void TFormTools::EscPressed() {
    if (SaveInProgress || !isVisible()) return;
    if (!Image_Front || Image_Front->Proc()->UndoCount() < 1) EndSession();
    ++EscCount;
    if (EscCount >= 2) EndSession();
    if (auto* msg = qobject_cast<TFormMsg*>(FormMsg)) msg->ShowExitTip();
}

void TFormTools::AppEvent_MsgMessage(int key, Qt::KeyboardModifiers modifiers) {
    if (key == Qt::Key_Escape) {
        EscPressed();
        return;
    }
    if (!(modifiers & Qt::ControlModifier) || !isVisible()) return;
    switch (key) {
        case Qt::Key_Z:
            if (!Btn_Rd_Return->isEnabled()) return;
            Menu_Share->CloseMenu();
            Btn_Rd_ReturnClick();
            break;
        case Qt::Key_C:
            Menu_Share->CloseMenu();
            Btn_Rd_CopyClick();
            break;
        case Qt::Key_S:
            Menu_Share->CloseMenu();
            Rd_SaveClick();
            break;
        default:
            break;
    }
}

TAppEventMsg::TAppEventMsg(TFormTools& tools) : QObject(&tools), tools_(tools) {
    qApp->installEventFilter(this);
}

// A key reaches its window first and then the widget with the focus; it is
// looked at once, on the window, and always goes on.
bool TAppEventMsg::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched->isWindowType()) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        tools_.AppEvent_MsgMessage(key->key(), key->modifiers());
    }
    return false;
}

}  // namespace qpt
