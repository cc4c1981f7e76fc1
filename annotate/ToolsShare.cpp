// The share menu and the image search: each burns the marks into the
// picture, writes it to a private temporary file, hides the session's forms
// and hands the file to the upload window, which reports back when the share
// page has been opened. Then the process ends.
#include <QFile>
#include <QFileInfo>

#include "annotate/FormTools.h"
#include "app/session/SessionEnd.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionMessages.h"
#include "app/session/SessionState.h"
#include "output/FmUpload.h"
#include "output/SaveNewBitmap.h"
#include "output/share/ShareKind.h"
#include "skin/RdImageButton.h"
#include "skin/RdPictureProperty.h"
#include "support/HostWindow.h"
#include "support/MainIni.h"
#include "support/Paths.h"
#include "support/ProductStat.h"
#include "support/QptMessages.h"

namespace qpt {

namespace {

// One fixed name: the next share overwrites the last one's file.
constexpr char kShareFileName[] = "QPTShareTemp.png";

// The host learns that a link waits on the clipboard.
constexpr std::int32_t kHostNoticeShared = 3;

}  // namespace

void TFormTools::MenuFacebookClick() {
    ShareBy(skFacebook);
}
void TFormTools::MenuTwitterClick() {
    ShareBy(skTwitter);
}
void TFormTools::MenuPinterestClick() {
    ShareBy(skPinterest);
}
void TFormTools::MenuImgurClick() {
    ShareBy(skImageHost);
}
void TFormTools::Btn_Rd_GoogleClick() {
    ShareBy(skImageSearch);
}

void TFormTools::ShareBy(int kind) {
    const QString usageCode = ShareUsageCode(kind);
    if (!usageCode.isEmpty()) SendUsageCode(usageCode);
    const QString folder = GetTempFolder();
    if (folder.isEmpty() || !QFileInfo(folder).isDir()) return;
    const QString path = folder + QLatin1StringView(kShareFileName);
    if (kind == skImageSearch) TakeOffSearchDot();
    InitPicSave();
    for (QWidget* form : {FormTools, FormPinned, FormSmallTools, FormSavePath})
        if (form) form->hide();
    // The last share's file goes first: a picture that cannot be written now
    // must leave no file, so that the upload window ends at once instead of
    // posting an older picture to a public host.
    QFile::remove(path);
    if (Image_Front) SaveNewBitmap(*Image_Front, path);
    const TQptMessages& texts = QptMessages();
    StartUpload(path, kind, texts.Text(ShareTitleKey(kind)), this, kMsgShareFinished,
                texts.Text(QStringLiteral("M_Close")));
}

void TFormTools::TakeOffSearchDot() {
    TRdPictureProperty* dot = Btn_Rd_Google->DnNormalIcon();
    if (dot->Empty()) return;
    dot->Clear();
    WriteMainIni(QStringLiteral("Main"), QStringLiteral("GsearchRed"), QStringLiteral("1"));
}

void TFormTools::ShareFinished(int wParam) {
    if (wParam == 1) PostHostNotice(HostWindow, kHostNoticeShared, 1);
    EndSession();
}

}  // namespace qpt
