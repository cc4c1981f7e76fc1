#include "output/CopyFlow.h"

#include <QWidget>

#include "app/session/SessionEnd.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "imaging/view/IEImageView.h"
#include "output/FlattenPicture.h"
#include "output/TipForm.h"
#include "support/HostWindow.h"
#include "support/MainIni.h"
#include "support/ProductStat.h"

namespace qpt {

namespace {

void HideIfShowing(QWidget* form) {
    if (FormShowing(form)) form->hide();
}

// "1" means the user ticked never to see the tip again.
bool TipWanted() {
    return ReadMainIni(QStringLiteral("Screenshot"), QStringLiteral("ClipboardShow"),
                       QStringLiteral("0")) != QLatin1StringView("1");
}

void ShowTip() {
    HideIfShowing(FormPinned);
    HideIfShowing(FormSmallTools);
    HideIfShowing(FormSavePath);
    auto* tip = new TTipForm;
    TipForm = tip;
    tip->ShowModal();
    delete tip;
    TipForm = nullptr;
}

}  // namespace

void CopyToClipboard(const QString& holder) {
    if (SaveInProgress == 1) return;
    if (FolderDialogOpen == 1) {
        if (FormShowing(FormSavePath)) FormSavePath->raise();
        return;
    }
    SendUsageCode(QStringLiteral("a311"));
    if (!Image_Front) return;
    FlattenPicture(*Image_Front);
    const TIEBitmap* picture = Image_Front->IEBitmap();
    if (!picture || !HandPictureToClipboard(*picture, holder)) return;
    HideIfShowing(FormTools);
    if (TipWanted()) ShowTip();
    PostHostNotice(HostWindow, 1, 1);
    EndSession();
}

}  // namespace qpt
