#include "skin/ColorTable.h"
#include "skin/RdGraphic.h"
#include "skin/RdImageButton.h"
#include "skin/SkinDraw.h"

namespace qpt {

namespace {

QColor PaintColor(quint32 value, int alpha) {
    const quint32 bgr = ColorToRGB(value);
    return QColor(int(bgr & 0xFF), int(bgr >> 8 & 0xFF), int(bgr >> 16 & 0xFF), alpha);
}

Qt::Alignment HorizontalFlag(TAlignment align) {
    if (align == TImageButtonTypes::taLeftJustify) return Qt::AlignLeft;
    if (align == TImageButtonTypes::taRightJustify) return Qt::AlignRight;
    return Qt::AlignHCenter;
}

}  // namespace

bool TRdImageButton::CanFade() const {
    return isEnabled() && hoverEffect_ != TImageButtonTypes::ibeNone && !showCheckBox_ &&
           !expand_ && Present(piImageNormal) && Present(piImageOver);
}

bool TRdImageButton::FadeTakesOver() const {
    return fade_.Running() && CanFade();
}

TRdGraphic* TRdImageButton::BackgroundGraphic() const {
    TRdGraphic* graphic = nullptr;
    if (buttonState_ == bsDown && mouseIn_ && (graphic = Present(piImageDown))) return graphic;
    if (mouseIn_ && isEnabled() && !FadeTakesOver() && (graphic = Present(piImageOver)))
        return graphic;
    if (buttonState_ == bsDisabled && (graphic = Present(piImageDisabled))) return graphic;
    if (buttonState_ == bsSelected && (graphic = Present(piImageSelected))) return graphic;
    if (expand_ && (graphic = Present(piExpandImage))) return graphic;
    return Present(piImageNormal);
}

// clDefault when the state keeps the font's own colour.
quint32 TRdImageButton::StateFontColor() const {
    auto chosen = [](quint32 first, quint32 second) { return first != clDefault ? first : second; };
    const quint32 checked = Checked() ? fontCheckedColor_ : clDefault;
    switch (buttonState_) {
        case bsNormal:
            return chosen(mouseIn_ ? fontHoverColor_ : clDefault, checked);
        case bsDown:
            return fontDownColor_;
        case bsDisabled:
            return fontDisabledColor_;
        default:
            return chosen(fontSelectedColor_, checked);
    }
}

QFont TRdImageButton::CaptionFont() const {
    QFont font = Font()->ToQFont();
    if (!fontAntialiased_) font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

void TRdImageButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(DrawAlpha() / 255.0);
    PaintBackground(painter);
    if (OnPaintImage) OnPaintImage(*this, painter);
    const TButtonLayout layout = CurrentLayout();
    PaintCaption(painter, layout);
    PaintSubCaptions(painter, layout);
    PaintParts(painter, layout);
    if (OnPaintEnd) OnPaintEnd(*this, painter);
}

void TRdImageButton::PaintBackground(QPainter& painter) {
    const TDesignRect* slicing = &imageOption_->Rect();
    if (FadeTakesOver())
        fade_.Draw(painter, rect(), Present(piImageNormal), Present(piImageOver), slicing,
                   hoverEffect_);
    else
        SkinDraw(painter, rect(), BackgroundGraphic(), slicing);
}

void TRdImageButton::PaintCaption(QPainter& painter, const TButtonLayout& layout) {
    const quint32 color = StateFontColor();
    painter.setFont(CaptionFont());
    painter.setPen(color == clDefault ? Font()->ToQColor() : PaintColor(color, Font()->Alpha()));
    const Qt::Alignment align =
        HorizontalFlag(text_.WordWrap ? text_.WrapAlign : text_.Align) | Qt::AlignVCenter;
    QRect line(layout.Text.topLeft(), QSize(layout.Text.width(), layout.LineHeight));
    for (const QString& text : layout.Lines) {
        painter.drawText(line, int(align | Qt::TextDontClip | Qt::TextSingleLine), text);
        line.translate(0, layout.LineHeight);
    }
}

// The sub-caption starts at its offset from the caption's left edge on the
// caption's first line, and its data follows it after a space.
void TRdImageButton::PaintSubCaptions(QPainter& painter, const TButtonLayout& layout) {
    if (subCaption_.isEmpty() && subCaptionData_.isEmpty()) return;
    QRect line(layout.Text.left() + subCaptionOffset_, layout.Text.top(), width(),
               layout.LineHeight);
    for (auto [text, font] : {std::pair{subCaption_, subCaptionFont_},
                              std::pair{subCaptionData_, subCaptionDataFont_}}) {
        if (text.isEmpty()) continue;
        painter.setFont(font->ToQFont());
        painter.setPen(font->ToQColor());
        painter.drawText(line, int(Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip), text);
        const QFontMetrics metrics(font->ToQFont());
        line.setLeft(line.left() + metrics.horizontalAdvance(text + QLatin1Char(' ')));
    }
}

void TRdImageButton::PaintParts(QPainter& painter, const TButtonLayout& layout) {
    TRdGraphic* icon = iconVisible_ ? IconGraphic() : nullptr;
    if (icon && !layout.Icon.isEmpty()) icon->Draw(painter, layout.Icon);
    const QRect box = CheckBoxRect();
    if (!box.isEmpty()) CheckBoxGraphic()->Draw(painter, box);
}

}  // namespace qpt
