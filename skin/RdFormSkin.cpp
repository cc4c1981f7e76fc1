#include "skin/RdFormSkin.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <stdexcept>

#include "skin/FillSkinRect.h"
#include "skin/RdFormShadowBg.h"
#include "skin/RdTimer.h"
#include "skin/X11Window.h"

namespace qpt {

namespace {

TRdFormSkin* FindSkin(const QWidget* form, const QObject* except) {
    if (!form) return nullptr;
    for (QObject* child : form->children())
        if (child != except && child->metaObject() == &TRdFormSkin::staticMetaObject)
            return static_cast<TRdFormSkin*>(child);
    return nullptr;
}

// A rectangle with each corner cut by a quarter of an ellipse of the given
// size, built from whole rows so that the edges stay exact.
QRegion RoundedRegion(const QSize& size, int ellipseWidth, int ellipseHeight) {
    const int w = qMin(ellipseWidth, size.width()), h = qMin(ellipseHeight, size.height());
    const int W = size.width(), H = size.height();
    QRegion region(QRect(w / 2, 0, W - w / 2 * 2, H));
    region += QRegion(QRect(0, h / 2, W, H - h / 2 * 2));
    for (const QPoint corner :
         {QPoint(0, 0), QPoint(W - w, 0), QPoint(0, H - h), QPoint(W - w, H - h)})
        region += QRegion(QRect(corner, QSize(w, h)), QRegion::Ellipse);
    return region;
}

}  // namespace

TRdFormSkin::TRdFormSkin(QWidget* form)
    : QObject(form),
      form_(form),
      picShadow_(new TRdPictureProperty(this)),
      picShadowOption_(new TDesignRectProperty(this)),
      ellipseSize_(new TEllipseSize(this)),
      borderLines_(new TBorderLines(this)),
      shadowFrame_(new TShadowFrame(this)),
      allSkin_(new TRdSkinClass(this)),
      flashTimer_(new TRdTimer(this)),
      shadow_(nullptr) {
    if (const TRdFormSkin* existing = FindSkin(form, this))
        throw std::runtime_error("can not create 2rd TRdFormSkin, exists: " +
                                 existing->objectName().toStdString());
    shadow_ = new TRdFormShadowBg(this);
    if (form_) shadow_->SetAlphaBlendValue(FormAlphaBlend(form_));
    flashTimer_->SetEnabled(false);
    flashTimer_->SetInterval(kFlashDelay);
    flashTimer_->OnTimer = [this] {
        flashTimer_->SetEnabled(false);
        SetFormAlphaBlend(form_, flashAlpha_);
    };
    connect(picShadow_, &TRdPictureProperty::Changed, this, &TRdFormSkin::ShadowPictureChanged);
    connect(picShadowOption_, &TDesignRectProperty::Changed, this,
            &TRdFormSkin::ShadowPictureChanged);
    connect(shadowFrame_, &TShadowFrame::Changed, this, [this] {
        ApplyFrameless();
        UpdateShadow();
    });
    connect(ellipseSize_, &TEllipseSize::Changed, this, &TRdFormSkin::ApplyRegion);
    connect(borderLines_, &TBorderLines::Changed, this, [this] {
        if (form_) form_->update();
    });
    if (form_) form_->installEventFilter(this);
}

TRdFormSkin::~TRdFormSkin() {
    delete shadow_;
}

TRdFormSkin* TRdFormSkin::SkinOf(const QWidget* form) {
    return FindSkin(form, nullptr);
}

void TRdFormSkin::SetFormColor(quint32 value) {
    if (formColor_ == value) return;
    formColor_ = value;
    if (form_) form_->update();
}

void TRdFormSkin::SetHideShadow(bool value) {
    hideShadow_ = value;
    UpdateShadow();
}

QRect TRdFormSkin::ShadowRect() const {
    if (!form_) return {};
    return form_->geometry().marginsAdded(shadowFrame_->Margins());
}

bool TRdFormSkin::ShadowWanted(bool forceHide, bool forceShow) const {
    if (!form_ || forceHide || hideShadow_ || !shadowFrame_->Enabled()) return false;
    if (form_->width() < 1 || form_->height() < 1) return false;
    if (form_->isHidden() || form_->isMinimized()) return false;
    if (!forceShow && !form_->isVisible()) return false;
    // An empty shadow, or one that would come out black, is better not shown.
    return !picShadow_->Empty() && TranslucentWindowsShow();
}

void TRdFormSkin::UpdateShadow(bool forceHide, bool forceShow) {
    if (!form_ || !shadow_) return;
    const bool wanted = ShadowWanted(forceHide, forceShow);
    SyncTopmost();
    shadow_->setGeometry(ShadowRect());
    shadow_->SetAlphaBlendValue(FormAlphaBlend(form_));
    shadow_->ApplyAlpha(wanted);
    if (!wanted) {
        shadow_->hide();
        return;
    }
    shadow_->Compose();
    if (shadow_->isVisible()) return;
    shadow_->show();
    Restack(true);
}

void TRdFormSkin::SyncTopmost() {
    const bool topmost = form_->windowFlags() & Qt::WindowStaysOnTopHint;
    if (bool(shadow_->windowFlags() & Qt::WindowStaysOnTopHint) != topmost)
        shadow_->setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
}

// Just below the form. Where the window system cannot be told that, the
// form is raised over a shadow that has just come up above it.
void TRdFormSkin::Restack(bool justShown) {
    if (!shadow_->isVisible()) return;
    if (!X11StackBelow(shadow_->winId(), form_->winId()) && justShown) form_->raise();
}

void TRdFormSkin::ApplyFrameless() {
    if (!form_ || !shadowFrame_->Enabled()) return;
    if (form_->windowFlags() & Qt::FramelessWindowHint) return;
    const bool visible = form_->isVisible();
    form_->setWindowFlag(Qt::FramelessWindowHint);
    if (visible) form_->show();
}

void TRdFormSkin::ApplyRegion() {
    if (!form_) return;
    if (ellipseSize_->Rounded())
        form_->setMask(RoundedRegion(form_->size(), ellipseSize_->Width(), ellipseSize_->Height()));
    else if (!form_->mask().isEmpty())
        form_->clearMask();
}

void TRdFormSkin::ShadowPictureChanged() {
    shadow_->Invalidate();
    UpdateShadow();
}

void TRdFormSkin::FormShown() {
    if (!shownOnce_ && fixFlashBlack_) {
        flashAlpha_ = FormAlphaBlend(form_);
        SetFormAlphaBlend(form_, 0);
        flashTimer_->SetEnabled(true);
    }
    shownOnce_ = true;
    UpdateShadow(false, true);
}

bool TRdFormSkin::eventFilter(QObject* watched, QEvent* event) {
    if (watched != form_) return false;
    switch (event->type()) {
        case QEvent::Paint:
            if (painting_) return false;
            PaintForm(static_cast<QPaintEvent*>(event));
            return true;
        case QEvent::Resize:
            ApplyRegion();
            UpdateShadow();
            break;
        case QEvent::Show:
            FormShown();
            break;
        case QEvent::Hide:
            UpdateShadow(true);
            break;
        case QEvent::Move:
        case QEvent::WindowStateChange:
            UpdateShadow();
            break;
        case QEvent::ActivationChange:
            UpdateShadow();
            Restack(false);
            break;
        default:
            break;
    }
    return false;
}

// The colour goes under the form's own painting and the lines over it.
void TRdFormSkin::PaintForm(QPaintEvent* event) {
    if (formColor_ != clNone) {
        QPainter painter(form_);
        FillSkinRect(painter, event->rect(), formColor_, formColor_,
                     TGradientDirection::gdHorizontal);
    }
    painting_ = true;
    static_cast<QObject*>(form_.data())->event(event);
    painting_ = false;
    if (borderLines_->Enabled()) {
        QPainter painter(form_);
        PaintBorderLines(painter);
    }
}

void TRdFormSkin::PaintBorderLines(QPainter& painter) const {
    const int w = form_->width(), h = form_->height(), line = borderLines_->Width();
    const quint32 color = borderLines_->Color();
    const auto fill = [&](bool on, const QRect& rect) {
        if (on) FillSkinRect(painter, rect, color, color, TGradientDirection::gdHorizontal);
    };
    fill(borderLines_->Left(), QRect(0, 0, line, h));
    fill(borderLines_->Right(), QRect(w - line, 0, line, h));
    fill(borderLines_->Top(), QRect(0, 0, w, line));
    fill(borderLines_->Bottom(), QRect(0, h - line, w, line));
}

void SetFormAlphaBlend(QWidget* form, int alpha) {
    if (!form) return;
    form->setWindowOpacity(qBound(0, alpha, 255) / 255.0);
    if (TRdFormSkin* skin = TRdFormSkin::SkinOf(form)) skin->UpdateShadow();
}

int FormAlphaBlend(const QWidget* form) {
    return form ? qRound(form->windowOpacity() * 255) : 255;
}

}  // namespace qpt
