#include "skin/RdImageButton.h"

#include <QEvent>

#include "skin/RdGraphic.h"

namespace qpt {

TRdImageButton::TRdImageButton(QWidget* parent)
    : TRdGraphicControl(parent),
      imageOption_(new TDesignRectProperty(this)),
      subCaptionFont_(new TRdFont(this)),
      subCaptionDataFont_(new TRdFont(this)),
      fade_(this) {
    // Hover and the icon's own states follow the pointer with no button down.
    setMouseTracking(true);
    MakePictures();
    connect(imageOption_, &TDesignRectProperty::Changed, this, [this] {
        UpdateHitMask();
        update();
    });
    for (TRdFont* font : {subCaptionFont_, subCaptionDataFont_})
        connect(font, &TRdFont::Changed, this, &TRdImageButton::LayoutChanged);
    fade_.CanRun = [this] { return CanFade(); };
    fade_.OnStep = [this] { update(); };
}

void TRdImageButton::MakePictures() {
    for (int i = 0; i < piCount; ++i) {
        auto* picture = new TRdPictureProperty(this);
        pictures_[size_t(i)] = picture;
        if (i == piImageRange)
            connect(picture, &TRdPictureProperty::Changed, this, &TRdImageButton::UpdateHitMask);
        else if (i < piImageRange)
            connect(picture, &TRdPictureProperty::Changed, this, &TRdImageButton::LayoutChanged);
        else
            connect(picture, &TRdPictureProperty::Changed, this, qOverload<>(&QWidget::update));
    }
}

TRdGraphic* TRdImageButton::Present(TPicture picture) const {
    TRdGraphic* graphic = pictures_[size_t(picture)]->Graphic();
    return graphic && !graphic->Empty() ? graphic : nullptr;
}

void TRdImageButton::SetCheckState(int value) {
    if (value < 0 || value > 2 || value == checkState_) return;
    checkState_ = value;
    update();
    if (OnCheckedChanged) OnCheckedChanged(*this);
}

void TRdImageButton::SetCaption(const QString& value) {
    if (value == caption_) return;
    caption_ = value;
    LayoutChanged();
    if (OnCaptionChanged) OnCaptionChanged(*this);
}

void TRdImageButton::SetTextLeftMargin(int value) {
    Relayout(text_.Margins,
             QMargins(value, TextTopMargin(), TextRightMargin(), TextBottomMargin()));
}
void TRdImageButton::SetTextRightMargin(int value) {
    Relayout(text_.Margins, QMargins(TextLeftMargin(), TextTopMargin(), value, TextBottomMargin()));
}
void TRdImageButton::SetTextTopMargin(int value) {
    Relayout(text_.Margins,
             QMargins(TextLeftMargin(), value, TextRightMargin(), TextBottomMargin()));
}
void TRdImageButton::SetTextBottomMargin(int value) {
    Relayout(text_.Margins, QMargins(TextLeftMargin(), TextTopMargin(), TextRightMargin(), value));
}

void TRdImageButton::SetState(int state) {
    if (state < bsNormal || state > bsSelected) return;
    const int old = buttonState_;
    bool changed = old != state;
    buttonState_ = state;
    const bool iconFollowsSelection = iconLockBySelected_ && iconFullClick_;
    if (state == bsSelected) {
        changed = changed || mouseIn_;
        mouseIn_ = false;
        if (iconFollowsSelection && iconState_ != isDisabled) SetIconState(isSelected);
    }
    if (state == bsNormal && old == bsSelected && iconFollowsSelection && iconState_ == isSelected)
        SetIconState(isNormal);
    if (changed) update();
}

void TRdImageButton::SetIconState(int state) {
    if (state == iconState_) return;
    TRdGraphic* before = IconGraphic();
    iconState_ = state;
    if (IconGraphic() != before) update();
}

TRdGraphic* TRdImageButton::IconGraphic() const {
    const int first = expand_ ? piUpIcons : piDnIcons;
    const int state = Disabled() ? isDisabled : iconState_;
    if (TRdGraphic* graphic = Present(TPicture(first + state))) return graphic;
    return Present(TPicture(first + isNormal));
}

TRdGraphic* TRdImageButton::CheckBoxGraphic() const {
    return PickCheckBoxPicture(CheckPicture(checkState_, cbPlain)->Graphic(),
                               CheckPicture(checkState_, cbHover)->Graphic(),
                               CheckPicture(checkState_, cbGrayed)->Graphic(), !Disabled(),
                               checkHot_);
}

TButtonIconStyle TRdImageButton::IconStyle() const {
    TButtonIconStyle style = icon_;
    TRdGraphic* graphic = iconVisible_ ? IconGraphic() : nullptr;
    style.Size = graphic ? QSize(graphic->Width(), graphic->Height()) : QSize();
    return style;
}

TButtonLayout TRdImageButton::CurrentLayout() const {
    return LayoutButtonText(rect(), caption_, CaptionFont(), text_, IconStyle());
}

QRect TRdImageButton::CheckBoxRect() const {
    TRdGraphic* graphic = CheckBoxGraphic();
    if (!showCheckBox_ || !graphic || graphic->Empty()) return {};
    const QSize size(graphic->Width(), graphic->Height());
    return qpt::CheckBoxRect(rect(), CurrentLayout().Text, size, CaptionFont(), check_);
}

// The caption is measured when it is painted or asked about, not here: a
// form full of buttons that are not on the screen yet loads no font.
void TRdImageButton::LayoutChanged() {
    FitToText();
    update();
}

// The width follows the caption, the height too when it wraps; the edge the
// caption is aligned to stays where it is.
void TRdImageButton::FitToText() {
    if (!autoSizeByText_ || fitting_) return;
    fitting_ = true;
    TButtonLayout layout = CurrentLayout();
    const int width =
        std::min(layout.FullText.width() + this->width() - layout.Room.width(), maximumWidth());
    QRect target = geometry();
    target.setWidth(std::max(width, 0));
    if (text_.Align == TImageButtonTypes::taRightJustify) target.moveRight(geometry().right());
    if (text_.WordWrap) {
        layout = LayoutButtonText(QRect(QPoint(), target.size()), caption_, CaptionFont(), text_,
                                  IconStyle());
        target.setHeight(layout.FullText.height() + height() - layout.Room.height());
        if (text_.AlignY == TImageButtonTypes::tlBottom) target.moveBottom(geometry().bottom());
    }
    setGeometry(target);
    fitting_ = false;
}

void TRdImageButton::UpdateHitMask() {
    hitMask_.Update(ImageRange()->Graphic(), imageOption_->Rect(), size());
    if (!hitMask_.Active()) {
        clearMask();
        return;
    }
    const QRegion region = hitMask_.Region(size());
    // An empty region would mean no mask at all; one outside takes every click away.
    setMask(region.isEmpty() ? QRegion(-1, -1, 1, 1) : region);
}

void TRdImageButton::resizeEvent(QResizeEvent* event) {
    TRdGraphicControl::resizeEvent(event);
    UpdateHitMask();
    LayoutChanged();
}

void TRdImageButton::FontChanged() {
    TRdGraphicControl::FontChanged();
    LayoutChanged();
}

void TRdImageButton::changeEvent(QEvent* event) {
    TRdGraphicControl::changeEvent(event);
    if (event->type() != QEvent::EnabledChange) return;
    if (!isEnabled()) {
        fade_.Stop();
        SetState(bsDisabled);
    } else if (buttonState_ == bsDisabled) {
        SetState(bsNormal);
    }
}

}  // namespace qpt
