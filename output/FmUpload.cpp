#include "output/FmUpload.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>

#include "app/session/SessionMessages.h"
#include "output/ClipboardHandOver.h"
#include "output/share/ShareKind.h"
#include "output/share/UploadImage.h"
#include "output/share/UploadSettings.h"
#include "skin/RdImageButton.h"
#include "skin/RdLabel.h"
#include "skin/RdProgressBar.h"
#include "skin/RdStretchImage.h"
#include "skin/ScaleForm.h"
#include "skin/SkinImageText.h"
#include "support/DebugOutput.h"
#include "support/Paths.h"
#include "support/ScreenRecordSettingsData.h"

namespace qpt {

namespace {

// The bar is never seen empty.
constexpr int kFirstPosition = 2;

TUploadSettings CurrentUploadSettings() {
    const TScreenRecordSettingsData* data = SettingsData();
    return data ? UploadSettingsOf(*data) : TUploadSettings();
}

}  // namespace

QPoint UploadWindowPlace(const QRect& workArea, QSize windowSize) {
    return QPoint(workArea.x() + workArea.width() - windowSize.width(),
                  workArea.y() + workArea.height() - windowSize.height());
}

TFmUpload::TFmUpload()
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("FmUpload"));
    setWindowRole(objectName());
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(11);
    setFont(font);
    resize(kWidth, kHeight);
    MakeControls();
    FormCreate();
}

TFmUpload::~TFmUpload() {
    // The worker may still run; it must not call back into a form that went.
    if (UploadThread) UploadThread->Cancel();
}

void TFmUpload::MakeControls() {
    RdStretchImage1 = new TRdStretchImage(this);
    RdStretchImage1->setGeometry(0, 0, kWidth, kHeight);
    RdStretchImage1->Picture()->SetText(SkinImageText(QStringLiteral("bg_window")));
    RdStretchImage1->StretchOption()->Rect().Set(3, 3, 3, 3, TSuperStretchMode::sdmDefault);

    ProUpload = new TRdProgressBar(this);
    ProUpload->setGeometry(20, 47, 261, 10);
    ProUpload->ImgBackground()->SetText(SkinImageText(QStringLiteral("Upload_bg")));
    ProUpload->ImgBackgroundOption()->Rect().Set(4, 4, 4, 4, TSuperStretchMode::sdmDefault);
    ProUpload->ImgBar()->SetText(SkinImageText(QStringLiteral("Upload_bar")));
    ProUpload->ImgBarOption()->Rect().Set(4, 4, 4, 4, TSuperStretchMode::sdmDefault);

    Btn_Close = new TRdImageButton(this);
    Btn_Close->setGeometry(295, 47, 10, 10);
    Btn_Close->ImageNormal()->SetText(SkinImageText(QStringLiteral("btn_delete_normal")));
    Btn_Close->ImageOver()->SetText(SkinImageText(QStringLiteral("btn_delete_over")));
    Btn_Close->ImageDown()->SetText(SkinImageText(QStringLiteral("btn_delete_press")));
    Btn_Close->OnClick = [this](TRdImageButton&) { Btn_CloseClick(); };

    Lbl_Title = new TRdLabel(this);
    Lbl_Title->setGeometry(20, 20, 116, 17);
    Lbl_Title->Font()->SetName(QStringLiteral("Tahoma"));
    Lbl_Title->Font()->SetHeight(-14);
    Lbl_Title->Font()->SetColor(NamedSkinColor(QStringLiteral("text_color.cl_text_b")));
    Lbl_Title->SetTransparent(true);
}

void TFmUpload::FormCreate() {
    DebugOutput(QStringLiteral("FmUpload.FormCreate1"));
    FinishFlag = 0;
    ScaleSkinnedForm(this);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(UploadWindowPlace(screen->availableGeometry(), size()));
    Active = 1;
    DebugOutput(QStringLiteral("FmUpload.FormCreate2"));
}

void TFmUpload::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (shown_) return;
    shown_ = true;
    FormShow();
}

void TFmUpload::FormShow() {
    DebugOutput(QStringLiteral("FmUpload.FormShow1"));
    ProUpload->SetPosition(kFirstPosition);
    UploadThread = TUploadImage::Create();
    UploadThread->Kind = std::uint8_t(ShareKind);
    UploadThread->FilePath = FilePath;
    UploadThread->Settings = CurrentUploadSettings();
    UploadThread->OnTerminate = [this](TUploadImage& sender) { OnUploadDone(sender); };
    UploadThread->OnProgress = [this](TUploadImage& sender) { OnUploadProgress(sender); };
    UploadThread->Start();
    DebugOutput(QStringLiteral("FmUpload.FormShow2"));
}

void TFmUpload::OnUploadProgress(TUploadImage& sender) {
    ShowProgress(sender.Progress());
}

void TFmUpload::ShowProgress(int percent) {
    if (percent >= 101)
        ProUpload->SetPosition(100);
    else if (percent > ProUpload->Position())
        ProUpload->SetPosition(percent);
}

void TFmUpload::OnUploadDone(TUploadImage& sender) {
    if (Active == 1) {
        const QString link = sender.Link();
        ProUpload->SetPosition(ProUpload->Max());
        hide();
        const QString address = BuildShareAddress(ShareKind, link);
        if (ShareKind == skTwitter) {
            FinishFlag = 1;
            // The process ends right after; the holder keeps the link for the
            // user to paste into the post. An empty link would only wipe what
            // the clipboard held before.
            if (!link.isEmpty()) HandTextToClipboard(link);
        }
        DebugOutput(link);
        if (!address.trimmed().isEmpty()) OpenUrlViaShell(address);
    }
    close();
}

void TFmUpload::Btn_CloseClick() {
    Active = 0;
    close();
}

void TFmUpload::closeEvent(QCloseEvent* event) {
    event->accept();
    // A close request that comes again while the first is handled is the same one.
    if (closed_) return;
    closed_ = true;
    FormClose();
}

void TFmUpload::FormClose() {
    if (FinishWindow) SendSessionMessage(FinishWindow, FinishMessage, FinishFlag ? 1 : 0, 0);
}

void StartUpload(const QString& filePath, int kind, const QString& title, QObject* finishWindow,
                 int finishMessage, const QString& closeHint) {
    if (!QFileInfo(filePath).isFile()) {
        if (finishWindow) SendSessionMessage(finishWindow, finishMessage, 0, 0);
        return;
    }
    auto* form = new TFmUpload;
    form->FilePath = filePath;
    form->FinishMessage = finishMessage;
    form->FinishWindow = finishWindow;
    form->ShareKind = kind;
    form->ProUpload->SetMax(100);
    form->Lbl_Title->SetCaption(title);
    form->Btn_Close->SetHint(closeHint);
    form->show();
}

}  // namespace qpt
