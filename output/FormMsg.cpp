#include "output/FormMsg.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <cmath>

#include "app/session/FirstPaint.h"
#include "app/session/SessionForms.h"
#include "skin/RdImageButton.h"
#include "skin/RdLabel.h"
#include "skin/RdPanel.h"
#include "skin/ScaleForm.h"
#include "skin/SkinImageText.h"
#include "support/QptMessages.h"
#include "support/Scale.h"
#include "support/TickCount.h"

namespace qpt {

namespace {

constexpr uint32_t kExitTipShownMs = 3000;
// A caption longer than this wraps onto a second line.
constexpr int kOneLineCaption = 45;
constexpr int kSecondLineRoom = 10;

}  // namespace

QString ExitTipCaption(const QString& languageText) {
    return FormatText(languageText, QStringLiteral("\"ESC\""));
}

TFormMsg::TFormMsg(QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool |
                          Qt::WindowDoesNotAcceptFocus) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(11);
    setFont(font);
    resize(300, 49);

    Panel_ExitTip = new TRdPanel(this);
    Panel_ExitTip->setGeometry(0, 0, 300, 49);
    Panel_ExitTip->SetColor(clNone);
    Panel_ExitTip->hide();
    RdBtn_ExitTipBg = new TRdImageButton(Panel_ExitTip);
    RdBtn_ExitTipBg->setGeometry(0, 0, 300, 49);
    RdBtn_ExitTipBg->ImageNormal()->SetText(SkinImageText(QStringLiteral("bg_window")));
    lbl_ExitTipCap = new TRdLabel(Panel_ExitTip);
    // Wrapping the caption loads the font database, which waits until the
    // picture is on the screen or the hint is first shown.
    lbl_ExitTipCap->BeginLoad();
    // The width stays; the height follows the lines of the caption.
    lbl_ExitTipCap->SetAutoSize(false);
    lbl_ExitTipCap->setGeometry(0, 15, 270, 19);
    lbl_ExitTipCap->SetAlignment(TRdLabel::taCenter);
    lbl_ExitTipCap->SetWordWrap(true);
    lbl_ExitTipCap->Font()->SetName(QStringLiteral("Segoe UI"));
    lbl_ExitTipCap->Font()->SetHeight(-14);
    lbl_ExitTipCap->Font()->SetColor(NamedSkinColor(QStringLiteral("text_color.cl_text_b")));
    lbl_ExitTipCap->SetTransparent(true);

    // Running from the start: its first tick finds the hint long expired.
    tmr_ExitTip = new QTimer(this);
    tmr_ExitTip->setInterval(1000);
    connect(tmr_ExitTip, &QTimer::timeout, this, &TFormMsg::tmr_ExitTipTimer);
    tmr_ExitTip->start();
    RegisterForm(qpt::FormMsg, this);
}

TFormMsg::~TFormMsg() = default;

void TFormMsg::FormCreate() {
    const QString caption =
        ExitTipCaption(QptMessages().Text(QStringLiteral("M_Screen_ExitTipCap")));
    lbl_ExitTipCap->SetCaption(caption);
    if (caption.length() > kOneLineCaption)
        lbl_ExitTipCap->move(lbl_ExitTipCap->x(), lbl_ExitTipCap->y() - kSecondLineRoom);
    ScaleSkinnedForm(this);
    SetUpAfterFirstPaint(this, [this] { MeasureTexts(); });
}

void TFormMsg::MeasureTexts() {
    if (textsMeasured_) return;
    textsMeasured_ = true;
    lbl_ExitTipCap->EndLoad();
}

void TFormMsg::setVisible(bool visible) {
    if (visible) MeasureTexts();
    QWidget::setVisible(visible);
}

void TFormMsg::ShowExitTip() {
    Panel_ExitTip->show();
    ShowTick = GetTickCount();
    tmr_ExitTip->start();
    PlaceOverPinnedWindow();
    show();
    raise();
}

void TFormMsg::tmr_ExitTipTimer() {
    if (GetTickCount() - ShowTick <= kExitTipShownMs) return;
    tmr_ExitTip->stop();
    Panel_ExitTip->hide();
    hide();
}

void TFormMsg::PlaceOverPinnedWindow() {
    QRect over;
    if (qpt::FormPinned)
        over = qpt::FormPinned->frameGeometry();
    else if (QScreen* screen = QGuiApplication::primaryScreen())
        over = screen->geometry();
    QRect place(QPoint(0, 0), size());
    place.moveCenter(over.center());
    move(place.topLeft());
}

}  // namespace qpt
