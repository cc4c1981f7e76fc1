#include "output/TipForm.h"

#include <QMouseEvent>
#include <QTimer>
#include <QWindow>
#include <cmath>

#include "skin/RdImageButton.h"
#include "skin/RdLabel.h"
#include "skin/RdPanel.h"
#include "skin/ScaleForm.h"
#include "skin/SkinImageText.h"
#include "support/MainIni.h"
#include "support/QptMessages.h"
#include "support/Scale.h"

namespace qpt {

namespace {

constexpr int kCloseAfterMs = 10000;

int Scaled(int designPixels) {
    return ScaleActive() ? int(std::lround(designPixels * GetScaleFactor())) : designPixels;
}

void DressText(TRdFont& font, int height) {
    font.SetName(QStringLiteral("Segoe UI"));
    font.SetHeight(height);
    font.SetColor(NamedSkinColor(QStringLiteral("text_color.cl_text_b")));
}

TRdImageButton* MakeOkButton(QWidget* parent) {
    auto* button = new TRdImageButton(parent);
    button->setGeometry(285, 76, 85, 34);
    button->ImageNormal()->SetText(SkinImageText(QStringLiteral("btn_gray_normal")));
    button->ImageOver()->SetText(SkinImageText(QStringLiteral("btn_gray_over")));
    button->ImageDown()->SetText(SkinImageText(QStringLiteral("btn_gray_press")));
    button->ImageDisabled()->SetText(SkinImageText(QStringLiteral("btn_gray_disable")));
    button->SetButtonCaptionAlignment(TImageButtonTypes::taCenter);
    DressText(*button->Font(), -12);
    button->SetFontHoverColor(NamedSkinColor(QStringLiteral("text_color.cl_text_a")));
    button->SetCaption(QStringLiteral("OK"));
    return button;
}

TRdImageButton* MakeCheckBox(QWidget* parent) {
    auto* check = new TRdImageButton(parent);
    check->setGeometry(15, 86, 202, 17);
    check->SetShowCheckBox(true);
    check->CheckBoxNormalImage()->SetText(
        SkinImageText(QStringLiteral("checkbox_unchecked_normal")));
    check->CheckBoxUnCheckedHoverImage()->SetText(
        SkinImageText(QStringLiteral("checkbox_unchecked_over")));
    check->CheckBoxCheckedImage()->SetText(
        SkinImageText(QStringLiteral("checkbox_checked_normal")));
    check->CheckBoxCheckedHoverImage()->SetText(
        SkinImageText(QStringLiteral("checkbox_checked_over")));
    check->SetChecked(true);
    check->SetTextLeftMargin(21);
    check->SetTextOffset(10);
    DressText(*check->Font(), -11);
    check->SetCaption(QStringLiteral("Don't show this message again"));
    check->SetAutoSizeByText(true);
    return check;
}

}  // namespace

TTipForm::TTipForm(QWidget* parent) : QDialog(parent, Qt::FramelessWindowHint) {
    setModal(true);
    setAutoFillBackground(true);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    QFont font(QStringLiteral("Segoe UI"));
    font.setPixelSize(11);
    setFont(font);
    resize(380, 120);

    pnlMain = new TRdPanel(this);
    pnlMain->setGeometry(0, 0, 380, 120);
    pnlMain->SetColor(1840146);
    RdBtn_MainBg = new TRdImageButton(pnlMain);
    RdBtn_MainBg->setGeometry(0, 0, 380, 120);
    RdBtn_MainBg->ImageNormal()->SetText(SkinImageText(QStringLiteral("bg_window")));
    Rd_btnOk = MakeOkButton(pnlMain);
    Rd_btnOk->OnClick = [this](TRdImageButton&) { Rd_btnOkClick(); };
    Label_Tip = new TRdLabel(pnlMain);
    Label_Tip->SetAutoSize(false);
    Label_Tip->setGeometry(15, 15, 348, 38);
    Label_Tip->SetWordWrap(true);
    Label_Tip->SetTransparent(true);
    DressText(*Label_Tip->Font(), -14);
    Label_Tip->SetCaption(QStringLiteral(
        "The screenshot has been saved to clipboard. You can use Ctrl + V to paste."));
    RdBtn_Check = MakeCheckBox(pnlMain);

    for (QObject* handle : {static_cast<QObject*>(pnlMain), static_cast<QObject*>(RdBtn_MainBg),
                            static_cast<QObject*>(Label_Tip)})
        handle->installEventFilter(this);

    tmrClose = new QTimer(this);
    tmrClose->setInterval(kCloseAfterMs);
    connect(tmrClose, &QTimer::timeout, this, &TTipForm::tmrCloseTimer);
    ScaleSkinnedForm(this);
}

TTipForm::~TTipForm() = default;

int TTipForm::ShowModal() {
    return exec();
}

void TTipForm::showEvent(QShowEvent* event) {
    FormShow();
    QDialog::showEvent(event);
}

void TTipForm::FormShow() {
    tmrClose->start();
    Label_Tip->SetCaption(QptMessages().Text(QStringLiteral("M_Screen_TipInfo")));
    RdBtn_Check->SetCaption(QptMessages().Text(QStringLiteral("M_TipShow")));
    Rd_btnOk->SetCaption(QptMessages().Text(QStringLiteral("M_OK")));
    LayOut();
}

void TTipForm::LayOut() {
    const int margin = Scaled(15);
    Label_Tip->move(margin, margin);
    if (ScaleActive()) Label_Tip->resize(width() - 2 * Label_Tip->x(), Label_Tip->height());
    RdBtn_Check->move(margin, height() - margin - RdBtn_Check->height());
    const int okMargin = Scaled(10);
    Rd_btnOk->move(width() - okMargin - Rd_btnOk->width(),
                   height() - okMargin - Rd_btnOk->height());
    // A long translation of the check box's caption must not run under OK.
    if (RdBtn_Check->geometry().right() + 1 >= Rd_btnOk->x())
        RdBtn_Check->setMaximumWidth(width() - okMargin - Rd_btnOk->width() - 10);
    else
        RdBtn_Check->setMaximumWidth(QWIDGETSIZE_MAX);
}

void TTipForm::Rd_btnOkClick() {
    if (RdBtn_Check->Checked())
        WriteMainIni(QStringLiteral("Screenshot"), QStringLiteral("ClipboardShow"),
                     QStringLiteral("1"));
    tmrClose->stop();
    accept();
}

bool TTipForm::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Enter:
            // The time-out waits while the mouse rests on the tip.
            if (watched == pnlMain) tmrClose->stop();
            break;
        case QEvent::Leave:
            if (watched == pnlMain) tmrClose->start();
            break;
        case QEvent::MouseButtonPress: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() == Qt::LeftButton) StartMove(mouse->globalPosition().toPoint());
            break;
        }
        case QEvent::MouseMove:
            return FollowMouse(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        case QEvent::MouseButtonRelease:
            moving_ = false;
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

void TTipForm::StartMove(const QPoint& globalPress) {
    // The window manager moves the window when it can; otherwise the window
    // follows the mouse itself until the button is released.
    if (windowHandle() && windowHandle()->startSystemMove()) return;
    moving_ = true;
    moveOffset_ = globalPress - pos();
}

bool TTipForm::FollowMouse(const QPoint& global) {
    if (!moving_) return false;
    move(global - moveOffset_);
    return true;
}

}  // namespace qpt
