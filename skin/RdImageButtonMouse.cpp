#include <QHelpEvent>
#include <QToolTip>

#include "skin/ControlCursor.h"
#include "skin/RdGraphic.h"
#include "skin/RdImageButton.h"

namespace qpt {

bool TRdImageButton::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return TRdGraphicControl::event(event);
    ShowHint(static_cast<QHelpEvent*>(event));
    return true;
}

void TRdImageButton::enterEvent(QEnterEvent* event) {
    lastMouse_ = event->position().toPoint();
    MouseEnter();
    if (OnMouseEnter) OnMouseEnter(*this);
}

void TRdImageButton::leaveEvent(QEvent*) {
    MouseLeave();
}

void TRdImageButton::mouseMoveEvent(QMouseEvent* event) {
    lastMouse_ = event->position().toPoint();
    MouseMove(lastMouse_);
}

void TRdImageButton::mousePressEvent(QMouseEvent* event) {
    if (OnMouseDown) OnMouseDown(*this, event->button());
    if (event->button() != Qt::LeftButton) return TRdGraphicControl::mousePressEvent(event);
    lastMouse_ = event->position().toPoint();
    pressed_ = true;
    MouseDown(lastMouse_);
}

// A click is a release inside the button after a press on it, and it comes
// before the release's own handling, which finds the button let go already.
void TRdImageButton::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        if (OnMouseUp) OnMouseUp(*this, event->button());
        return TRdGraphicControl::mouseReleaseEvent(event);
    }
    lastMouse_ = event->position().toPoint();
    const bool click = pressed_ && rect().contains(lastMouse_);
    pressed_ = false;
    if (click) Click();
    if (OnMouseUp) OnMouseUp(*this, event->button());
    MouseUp(lastMouse_);
}

bool TRdImageButton::OverIcon(const QPoint& point) const {
    return iconVisible_ && IconGraphic() && CurrentLayout().Icon.contains(point);
}

bool TRdImageButton::HasCheckBoxHover() const {
    for (int state = 0; state < 3; ++state)
        if (!CheckPicture(state, cbHover)->Empty()) return true;
    return false;
}

void TRdImageButton::SetHover(bool mouseIn) {
    if (mouseIn_ == mouseIn) return;
    mouseIn_ = mouseIn;
    update();
}

void TRdImageButton::MouseEnter() {
    if (!mouseIn_ && !Selected() && CanFade()) fade_.Start(TButtonFade::fmIn);
    if (showCheckBox_ && checkBoxFullClick_) {
        overCheckArea_ = false;
        checkHot_ = true;
    }
    if (!isEnabled()) return SetHover(false);
    const bool began = !mouseIn_ && !Selected();
    if (Selected()) {
        mouseIn_ = false;
        if (iconFullClick_ && iconState_ == isNormal) SetIconState(isHover);
        return;
    }
    mouseIn_ = true;
    if (!began) return;
    if (iconFullClick_) SetIconState(isHover);
    if (Present(piImageOver) || fontHoverColor_ != clDefault || HasCheckBoxHover()) update();
}

void TRdImageButton::MouseMove(const QPoint& point) {
    const bool wasOverCheck = overCheckArea_;
    const bool wasOverIcon = iconHot_;
    CheckBoxMouse(point, true);
    iconHot_ = OverIcon(point);
    if (wasOverCheck != overCheckArea_ || wasOverIcon != iconHot_) {
        ShowPartCursor();
        // The hint of the part just left must not stay up over another.
        if (!iconHint_.isEmpty() || !checkBoxHint_.isEmpty()) QToolTip::hideText();
    }
    if (LockedBySelection()) return;
    if (iconState_ == isDown || iconState_ == isDisabled || iconState_ == isSelected) return;
    if (iconHot_)
        SetIconState(isHover);
    else if (!iconFullClick_)
        SetIconState(isNormal);
}

void TRdImageButton::MouseDown(const QPoint& point) {
    if (CheckBoxMouse(point, false)) return;
    if (LockedBySelection()) return;
    if (iconState_ != isDisabled && iconState_ != isSelected &&
        (iconFullClick_ || OverIcon(point))) {
        SetIconState(isDown);
        // Without full click a press on the icon belongs to the icon alone.
        if (!iconFullClick_) return;
    }
    if (buttonState_ == bsNormal) SetState(bsDown);
}

void TRdImageButton::ReleaseButton() {
    if (buttonState_ == bsDown) {
        SetState(bsNormal);
        if (iconFullClick_ && iconState_ == isDown) SetIconState(mouseIn_ ? isHover : isNormal);
    } else if (Selected() && iconFullClick_ && iconState_ == isDown) {
        SetIconState(isHover);
    }
}

// The icon's own click was told by Click; here the icon only lets go.
void TRdImageButton::MouseUp(const QPoint& point) {
    if (LockedBySelection()) return;
    if (!rect().contains(point)) SetHover(false);
    ReleaseButton();
    if (iconVisible_ && iconState_ == isDown)
        SetIconState(OverIcon(lastMouse_) ? isHover : isNormal);
}

void TRdImageButton::Click() {
    if (buttonState_ == bsDown) ReleaseButton();
    if (iconVisible_ && iconState_ != isDisabled && !iconFullClick_) {
        if (OverIcon(lastMouse_)) {
            if (IconOnClick) IconOnClick(*this);
            return;
        }
        SetIconState(isNormal);
    }
    if (OnClick) OnClick(*this);
}

void TRdImageButton::MouseLeave() {
    if (mouseIn_ && !Selected() && CanFade()) fade_.Start(TButtonFade::fmOut);
    RestoreCursor();
    if (iconState_ != isDown && iconState_ != isDisabled && iconState_ != isSelected)
        SetIconState(isNormal);
    const bool checkWasHot = checkHot_ || overCheckArea_;
    checkHot_ = overCheckArea_ = iconHot_ = false;
    if (checkWasHot && showCheckBox_) update();
    SetHover(false);
    if (OnMouseExit) OnMouseExit(*this);
}

// Whether the point works the check box; with CheckBoxFullClick the whole
// button does, except its icon.
bool TRdImageButton::InCheckBoxArea(const QPoint& point) {
    if (CheckBoxRect().contains(point)) {
        checkHot_ = overCheckArea_ = true;
        return true;
    }
    overCheckArea_ = false;
    checkHot_ = checkBoxFullClick_ && rect().contains(point);
    if (!checkBoxFullClick_) return false;
    const QWidget* parent = parentWidget();
    const bool foldPanel =
        parent && QByteArray(parent->metaObject()->className()).endsWith("TRdFoldPanel");
    if (!foldPanel && OverIcon(point)) return false;
    return checkHot_;
}

bool TRdImageButton::CheckBoxMouse(const QPoint& point, bool moveOnly) {
    const bool wasHot = checkHot_;
    const bool wasOver = overCheckArea_;
    bool result = false;
    if (showCheckBox_) {
        result = InCheckBoxArea(point);
    } else {
        overCheckArea_ = checkHot_ = false;
    }
    if (result && !moveOnly) {
        if (CheckBoxBeforeClick) CheckBoxBeforeClick(*this);
        SetCheckState(NextCheckState(checkState_));
        if (CheckBoxOnClick) CheckBoxOnClick(*this);
    }
    if (wasHot != checkHot_ || wasOver != overCheckArea_) update();
    return result;
}

void TRdImageButton::ShowPartCursor() {
    int id = 0;
    if (overCheckArea_ && checkBoxCursor_ != 0)
        id = checkBoxCursor_;
    else if (iconHot_ && iconCursor_ != 0)
        id = iconCursor_;
    if (id == 0) return RestoreCursor();
    if (!partCursor_) {
        partCursor_ = true;
        hadOwnCursor_ = testAttribute(Qt::WA_SetCursor);
        ownCursor_ = cursor();
    }
    setCursor(ControlCursorShape(id));
}

void TRdImageButton::RestoreCursor() {
    if (!partCursor_) return;
    partCursor_ = false;
    if (hadOwnCursor_)
        setCursor(ownCursor_);
    else
        unsetCursor();
}

void TRdImageButton::ShowHint(QHelpEvent* event) {
    QString hint = Hint();
    const QPoint point = event->pos();
    if (!checkBoxHint_.isEmpty() && CheckBoxRect().contains(point))
        hint = checkBoxHint_;
    else if (!iconHint_.isEmpty() && OverIcon(point))
        hint = iconHint_;
    else if (hint.isEmpty() && autoShowHint_ && CurrentLayout().Ellipsis)
        hint = ShownCaption(caption_, text_.ShowAccelChar);
    if (OnShowHint) OnShowHint(*this, hint);
    if (hint.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), hint, this);
}

}  // namespace qpt
