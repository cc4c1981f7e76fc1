#include "skin/RdEdit.h"

#include <QEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QValidator>

#include "skin/RdGraphic.h"
#include "skin/SkinDraw.h"
#include "skin/SkinQColor.h"

namespace qpt {

namespace {

// The platform field shows a password with the style's character; this
// style answers with the edit's own.
class TPasswordCharStyle : public QProxyStyle {
public:
    explicit TPasswordCharStyle(const TRdEdit& edit) : edit_(edit) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override {
        if (hint == SH_LineEdit_PasswordCharacter && !edit_.PasswordChar().isEmpty())
            return edit_.PasswordChar()[0].unicode();
        return QProxyStyle::styleHint(hint, option, widget, answer);
    }

private:
    const TRdEdit& edit_;
};

// Case is changed as the text comes in, typed or pasted, so that the
// caret and the undo steps stay those of the platform field.
class TCharCaseValidator : public QValidator {
public:
    TCharCaseValidator(TRdEdit::TEditCharCase charCase, QObject* parent)
        : QValidator(parent), charCase_(charCase) {}

    State validate(QString& input, int&) const override {
        input = charCase_ == TRdEdit::ecUpperCase ? input.toUpper() : input.toLower();
        return Acceptable;
    }

private:
    TRdEdit::TEditCharCase charCase_;
};

}  // namespace

TRdEdit::TRdEdit(QWidget* parent)
    : QLineEdit(parent),
      allSkin_(new TRdSkinClass(this)),
      fontError_(MakeFont()),
      fontNormal_(MakeFont()),
      fontDisabled_(MakeFont()),
      imageOption_(new TDesignRectProperty(this)) {
    // An error shows in red until a skin says otherwise.
    fontError_->SetColor(0x000000FF);
    for (TRdPictureProperty*& image : images_) {
        image = new TRdPictureProperty(this);
        connect(image, &TRdPictureProperty::Changed, this, qOverload<>(&QWidget::update));
    }
    connect(imageOption_, &TDesignRectProperty::Changed, this, qOverload<>(&QWidget::update));
    imageOption_->Rect().OnDefaultRequested = [this] {
        const TRdGraphic* graphic = ImageNormal()->Graphic();
        const int w = graphic ? graphic->Width() / 3 : 0, h = graphic ? graphic->Height() / 3 : 0;
        imageOption_->Rect().Set(w, h, w, h, imageOption_->Rect().StretchMode());
    };
    connect(allSkin_->Draw(), &TRdSkinClassDraw::Changed, this, qOverload<>(&QWidget::update));
    connect(this, &QLineEdit::textChanged, this, &TRdEdit::ApplyLook);

    auto* style = new TPasswordCharStyle(*this);
    style->setParent(this);
    setStyle(style);
    setFrame(false);
    setAutoFillBackground(false);
    setAttribute(Qt::WA_Hover);
    ApplyLook();
    FitHeight();
}

TRdFont* TRdEdit::MakeFont() {
    auto* font = new TRdFont(this);
    allSkin_->AddChild(font->AllSkin());
    connect(font, &TRdFont::Changed, this, [this] {
        ApplyLook();
        FitHeight();
    });
    return font;
}

bool TRdEdit::StateHolds(TEditState state) const {
    switch (state) {
        case esDisabled:
            return !isEnabled();
        case esError:
            return errorMode_;
        case esSelected:
            return hasFocus();
        case esOver:
            return over_;
        case esEmpty:
            return text().isEmpty();
        case esNormal:
            return true;
    }
    return false;
}

TRdEdit::TEditState TRdEdit::PictureState() const {
    for (int state = esDisabled; state < esNormal; ++state) {
        const auto which = TEditState(state);
        if (StateHolds(which) && !images_[which]->Empty()) return which;
    }
    return esNormal;
}

TRdFont* TRdEdit::StateFont() const {
    if (!isEnabled()) return fontDisabled_;
    return errorMode_ ? fontError_ : fontNormal_;
}

void TRdEdit::ApplyLook() {
    const TRdFont* font = StateFont();
    setFont(font->ToQFont());
    QPalette colours = palette();
    const QColor text = font->ToQColor();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        colours.setColor(group, QPalette::Text, text);
        colours.setColor(group, QPalette::Base, Qt::transparent);
        colours.setColor(group, QPalette::Window, Qt::transparent);
        colours.setColor(group, QPalette::PlaceholderText, SkinQColor(fontEmptyColor_));
    }
    setPalette(colours);
    update();
}

void TRdEdit::ApplyMargins() {
    setTextMargins(leftMargin_ + borderWidth_, borderWidth_, rightMargin_ + borderWidth_,
                   borderWidth_);
    FitHeight();
}

// The field is as high as a line of its font and the border around it.
void TRdEdit::FitHeight() {
    if (!autoSize_) return;
    const int frame = borderStyle_ == bsSingle ? 1 : 0;
    resize(width(), fontMetrics().height() + 2 * (borderWidth_ + frame) + 2);
}

void TRdEdit::SetAutoSize(bool value) {
    autoSize_ = value;
    FitHeight();
}

void TRdEdit::SetBorderStyle(TBorderStyle value) {
    if (borderStyle_ == value) return;
    borderStyle_ = value;
    FitHeight();
    update();
}

void TRdEdit::SetBorderWidth(int value) {
    borderWidth_ = qBound(0, value, 64);
    ApplyMargins();
}

void TRdEdit::SetTextLeftMargin(int value) {
    leftMargin_ = qMax(value, 0);
    ApplyMargins();
}

void TRdEdit::SetTextRightMargin(int value) {
    rightMargin_ = qMax(value, 0);
    ApplyMargins();
}

void TRdEdit::SetCharCase(TEditCharCase value) {
    if (charCase_ == value) return;
    charCase_ = value;
    delete dynamic_cast<const TCharCaseValidator*>(validator());
    if (value == ecNormal) {
        setValidator(nullptr);
        return;
    }
    setValidator(new TCharCaseValidator(value, this));
    setText(value == ecUpperCase ? text().toUpper() : text().toLower());
}

void TRdEdit::SetPasswordChar(const QString& value) {
    passwordChar_ = value.left(1);
    // The platform field reads its password character from the style only
    // when the style changes.
    QEvent styleChange(QEvent::StyleChange);
    QLineEdit::changeEvent(&styleChange);
    setEchoMode(passwordChar_.isEmpty() ? Normal : Password);
    update();
}

void TRdEdit::SetErrorMode(bool value) {
    if (errorMode_ == value) return;
    errorMode_ = value;
    ApplyLook();
}

void TRdEdit::SetFontEmptyColor(quint32 value) {
    fontEmptyColor_ = value;
    ApplyLook();
}

void TRdEdit::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setOpacity(allSkin_->Draw()->DrawAlpha() / 255.0);
        const TRdPictureProperty* image = images_[PictureState()];
        if (!image->Empty()) {
            SkinDraw(painter, rect(), image->Graphic(), &imageOption_->Rect());
        } else if (borderStyle_ == bsSingle) {
            painter.setPen(palette().color(QPalette::Mid));
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        }
    }
    QLineEdit::paintEvent(event);
}

void TRdEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    update();
}

void TRdEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    update();
}

void TRdEdit::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) ApplyLook();
}

bool TRdEdit::event(QEvent* event) {
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        over_ = event->type() == QEvent::Enter;
        update();
    }
    return QLineEdit::event(event);
}

}  // namespace qpt
