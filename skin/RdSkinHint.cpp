#include "skin/RdSkinHint.h"

#include <QGuiApplication>
#include <QScreen>

#include "skin/RdSkinHintWindow.h"

namespace qpt {

namespace {

constexpr quint32 kClInfoBk = 0xFF000018;
// Below the mouse pointer, clear of its arrow.
constexpr int kBelowCursor = 20;
constexpr int kAboveCursor = 4;

}  // namespace

TRdSkinHint::TRdSkinHint(QObject* parent)
    : QObject(parent),
      font_(new TRdFont(this)),
      fontTitle_(new TRdFont(this)),
      backgroundOption_(new TDesignRectProperty(this)),
      backgroundImage_(new TRdPictureProperty(this)),
      hintColor_(kClInfoBk),
      allSkin_(new TRdSkinClass(this)),
      window_(new TRdSkinHintWindow(this)),
      fadeTimer_(new TRdTimer(this)),
      hideTimer_(new TRdTimer(this)) {
    fontTitle_->SetStyle(TRdFont::fsBold);
    allSkin_->AddChild(font_->AllSkin());
    allSkin_->AddChild(fontTitle_->AllSkin());
    // A skin change while the hint is up shows at once.
    for (TRdFont* font : {font_, fontTitle_})
        connect(font, &TRdFont::Changed, window_, qOverload<>(&QWidget::update));
    connect(backgroundImage_, &TRdPictureProperty::Changed, window_, qOverload<>(&QWidget::update));
    connect(backgroundOption_, &TDesignRectProperty::Changed, window_,
            qOverload<>(&QWidget::update));
    for (TRdTimer* timer : {fadeTimer_, hideTimer_})
        timer->SetEnabled(false);
    fadeTimer_->OnTimer = [this] { FadeStep(); };
    hideTimer_->OnTimer = [this] { HideHint(); };
}

TRdSkinHint::~TRdSkinHint() {
    delete window_;
}

int TRdSkinHint::TargetAlpha() const {
    return alphaBlend_ ? qBound(0, alphaBlendValue_, 255) : 255;
}

// A fade with no steps or no time between them would never end.
bool TRdSkinHint::Animated() const {
    return alphaBlendAnimation_ && animationTimes_ > 0 && animationInterval_ > 0;
}

bool TRdSkinHint::Showing() const {
    return window_->isVisible() && !fadingOut_;
}

void TRdSkinHint::SetAlpha(int value) {
    alpha_ = value;
    window_->setWindowOpacity(value / 255.0);
}

// Under the pointer when there is room, otherwise above it; always on the
// screen the pointer is on.
QRect TRdSkinHint::PlaceWindow(const QPoint& cursorPos, QSize size) const {
    QRect rect(cursorPos + QPoint(0, kBelowCursor), size);
    const QScreen* screen = QGuiApplication::screenAt(cursorPos);
    if (!screen) screen = QGuiApplication::primaryScreen();
    if (!screen) return rect;
    const QRect area = screen->availableGeometry();
    if (rect.bottom() > area.bottom()) rect.moveBottom(cursorPos.y() - kAboveCursor);
    rect.moveLeft(qBound(area.left(), rect.left(), area.right() - rect.width() + 1));
    rect.moveTop(qMax(rect.top(), area.top()));
    return rect;
}

bool TRdSkinHint::ActivateHint(const QPoint& cursorPos, const QString& text, QWidget* control) {
    if (!active_) return false;
    bool allow = true;
    if (OnBeforeActive) OnBeforeActive(*this, control, allow);
    QString shown = text;
    if (allow && OnBeforeCalcHint) OnBeforeCalcHint(*this, shown);
    if (!allow || shown.isEmpty()) {
        HideHint();
        return false;
    }
    control_ = control;
    window_->SetHintText(shown);
    QRect rect = PlaceWindow(cursorPos, window_->CalcHintSize());
    if (OnCalcPosHint) OnCalcPosHint(*this, rect);
    window_->setGeometry(rect);
    const bool fadeIn = Animated() && !Showing();
    fadingOut_ = false;
    SetAlpha(fadeIn ? 0 : TargetAlpha());
    fadeTimer_->SetInterval(animationInterval_);
    fadeTimer_->SetEnabled(fadeIn);
    window_->show();
    window_->update();
    hideTimer_->SetEnabled(false);
    hideTimer_->SetInterval(hintHidePause_);
    hideTimer_->SetEnabled(hintHidePause_ > 0);
    if (OnActiveHint) OnActiveHint(*this);
    return true;
}

void TRdSkinHint::HideHint() {
    hideTimer_->SetEnabled(false);
    if (!window_->isVisible()) return;
    if (Animated()) {
        fadingOut_ = true;
        fadeTimer_->SetInterval(animationInterval_);
        fadeTimer_->SetEnabled(true);
        return;
    }
    fadeTimer_->SetEnabled(false);
    window_->hide();
}

// Each step moves the opacity by an equal share of the target, so a fade
// takes AlphaBlendAnimationTimes steps either way.
void TRdSkinHint::FadeStep() {
    const int times = qMax(1, animationTimes_);
    const int step = qMax(1, (TargetAlpha() + times - 1) / times);
    if (!fadingOut_) {
        SetAlpha(qMin(TargetAlpha(), alpha_ + step));
        if (alpha_ >= TargetAlpha()) fadeTimer_->SetEnabled(false);
        return;
    }
    SetAlpha(qMax(0, alpha_ - step));
    if (alpha_ > 0) return;
    fadeTimer_->SetEnabled(false);
    fadingOut_ = false;
    window_->hide();
}

}  // namespace qpt
