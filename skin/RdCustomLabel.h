#pragma once

#include <QPointer>
#include <functional>

#include "skin/DesignRectProperty.h"
#include "skin/LabelText.h"
#include "skin/RdGraphicControl.h"
#include "skin/RdPictureProperty.h"
#include "support/color/ColorNames.h"

namespace qpt {

// Skinned static text: an optional fill, the picture BkgNormal sliced by
// BkgOption, and the caption inside TextBorder. With AutoSize, WordWrap or
// an ellipsis the label fits its bounds to the text (see AdjustBounds); the
// widget's minimum and maximum sizes are the constraints of that fit.
class TRdCustomLabel : public TRdGraphicControl {
    Q_OBJECT
    Q_PROPERTY(bool AutoSize READ AutoSize WRITE SetAutoSize)
    Q_PROPERTY(qpt::TRdPictureProperty* BkgNormal READ BkgNormal)
    Q_PROPERTY(qpt::TDesignRectProperty* BkgOption READ BkgOption)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(quint32 Color READ Color WRITE SetColor)
    Q_PROPERTY(TEllipsis EllipsisPosition READ EllipsisPosition WRITE SetEllipsisPosition)
    Q_PROPERTY(QWidget* FocusControl READ FocusControl WRITE SetFocusControl)
    Q_PROPERTY(quint32 FontHoverColor READ FontHoverColor WRITE SetFontHoverColor)
    Q_PROPERTY(quint32 FontDownColor READ FontDownColor WRITE SetFontDownColor)
    Q_PROPERTY(quint32 FontDisabledColor READ FontDisabledColor WRITE SetFontDisabledColor)
    Q_PROPERTY(bool FontAntialiased READ FontAntialiased WRITE SetFontAntialiased STORED false)
    Q_PROPERTY(int GlowSize READ GlowSize WRITE SetGlowSize)
    Q_PROPERTY(bool ShowAccelChar READ ShowAccelChar WRITE SetShowAccelChar)
    Q_PROPERTY(bool ShowHint READ ShowHint WRITE SetShowHint)
    Q_PROPERTY(bool AutoShowHint READ AutoShowHint WRITE SetAutoShowHint)
    Q_PROPERTY(bool Transparent READ Transparent WRITE SetTransparent)
    Q_PROPERTY(TTextLayout Layout READ Layout WRITE SetLayout)
    Q_PROPERTY(TAlignment Alignment READ Alignment WRITE SetAlignment)
    Q_PROPERTY(bool WordWrap READ WordWrap WRITE SetWordWrap)
    Q_PROPERTY(QString WrapChar READ WrapChar WRITE SetWrapChar)
    Q_PROPERTY(qpt::TDesignRectProperty* TextBorder READ TextBorder)

public:
    enum TEllipsis { epNone, epPathEllipsis, epEndEllipsis, epWordEllipsis };
    Q_ENUM(TEllipsis)
    enum TTextLayout { tlTop, tlCenter, tlBottom };
    Q_ENUM(TTextLayout)
    enum TAlignment { taLeftJustify, taRightJustify, taCenter };
    Q_ENUM(TAlignment)

    explicit TRdCustomLabel(QWidget* parent = nullptr);
    ~TRdCustomLabel() override;

    bool AutoSize() const { return autoSize_; }
    void SetAutoSize(bool value) { ChangeAndFit(autoSize_, value); }
    TRdPictureProperty* BkgNormal() const { return bkgNormal_; }
    TDesignRectProperty* BkgOption() const { return bkgOption_; }
    QString Caption() const { return caption_; }
    void SetCaption(const QString& value);
    quint32 Color() const { return color_; }
    void SetColor(quint32 value) { Change(color_, value); }
    TEllipsis EllipsisPosition() const { return ellipsis_; }
    void SetEllipsisPosition(TEllipsis value) { ChangeAndFit(ellipsis_, value); }
    QWidget* FocusControl() const { return focusControl_; }
    void SetFocusControl(QWidget* value) { focusControl_ = value; }
    // clDefault: the font's own colour.
    quint32 FontHoverColor() const { return fontHoverColor_; }
    void SetFontHoverColor(quint32 value) { Change(fontHoverColor_, value); }
    quint32 FontDownColor() const { return fontDownColor_; }
    void SetFontDownColor(quint32 value) { Change(fontDownColor_, value); }
    quint32 FontDisabledColor() const { return fontDisabledColor_; }
    void SetFontDisabledColor(quint32 value) { Change(fontDisabledColor_, value); }
    bool FontAntialiased() const { return Font()->Antialiased(); }
    void SetFontAntialiased(bool value) { Font()->SetAntialiased(value); }
    // Pixels of light halo around the letters, for text on busy pictures.
    int GlowSize() const { return glowSize_; }
    void SetGlowSize(int value) { Change(glowSize_, qBound(0, value, 8)); }
    bool ShowAccelChar() const { return showAccelChar_; }
    void SetShowAccelChar(bool value);
    bool ShowHint() const { return showHint_; }
    void SetShowHint(bool value) { showHint_ = value; }
    // A caption that does not show whole becomes the hint when there is none.
    bool AutoShowHint() const { return autoShowHint_; }
    void SetAutoShowHint(bool value) { autoShowHint_ = value; }
    bool Transparent() const { return transparent_; }
    void SetTransparent(bool value) { Change(transparent_, value); }
    TTextLayout Layout() const { return layout_; }
    void SetLayout(TTextLayout value) { ChangeAndFit(layout_, value); }
    TAlignment Alignment() const { return alignment_; }
    void SetAlignment(TAlignment value) { ChangeAndFit(alignment_, value); }
    bool WordWrap() const { return wordWrap_; }
    void SetWordWrap(bool value) { ChangeAndFit(wordWrap_, value); }
    QString WrapChar() const { return wrapChar_.isNull() ? QString() : QString(wrapChar_); }
    void SetWrapChar(const QString& value);
    TDesignRectProperty* TextBorder() const { return textBorder_; }

    // Asked before a hint shows: may change the text or refuse it.
    std::function<void(TRdCustomLabel& sender, QString& hint, bool& show)> OnShowHint;

    // While loading, the fit waits for EndLoad.
    void BeginLoad() { ++loading_; }
    void EndLoad();

    // Sets the bounds so that the text and TextBorder fit, when AutoSize,
    // WordWrap or an ellipsis asks for it.
    void AdjustBounds();
    // The caption's lines as they are drawn at the present size.
    TLabelText ShownText() const;
    // The space inside TextBorder.
    QRect TextRect() const;
    bool Hovered() const { return hovered_; }
    bool Pressed() const { return pressed_; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void FontChanged() override;

    // The colour of the caption in the present state.
    QColor TextColor() const;
    // Draws the fill and the background picture.
    void PaintBackground(QPainter& painter);
    virtual void PaintText(QPainter& painter);
    // Measures the content for a text area of the given width (0: no limit)
    // and height (0: no limit); TRdHtmLabel measures its markup instead.
    virtual QSize MeasureText(int width, int height) const;
    // The text drawn does not show whole: AutoShowHint offers the caption.
    virtual bool TextCut() const;
    virtual QString AutoHintText() const { return caption_; }
    // Told before the fit, so that a derived label can read the new caption.
    virtual void CaptionChanged() {}

    template <typename T>
    void Change(T& field, const T& value);
    template <typename T>
    void ChangeAndFit(T& field, const T& value);

private:
    TLabelTextOptions TextOptions() const;
    void FitOnce();
    void UpdateMnemonic();
    bool ShowToolTip(QEvent* event);
    void SetHovered(bool value);

    TRdPictureProperty* bkgNormal_;
    TDesignRectProperty* bkgOption_;
    TDesignRectProperty* textBorder_;
    QString caption_;
    quint32 color_ = clNone;
    TEllipsis ellipsis_ = epNone;
    QPointer<QWidget> focusControl_;
    quint32 fontHoverColor_ = clDefault;
    quint32 fontDownColor_ = clDefault;
    quint32 fontDisabledColor_ = clDefault;
    int glowSize_ = 0;
    bool autoSize_ = true;
    bool showAccelChar_ = true;
    bool showHint_ = true;
    bool autoShowHint_ = false;
    bool transparent_ = true;
    TTextLayout layout_ = tlTop;
    TAlignment alignment_ = taLeftJustify;
    bool wordWrap_ = false;
    QChar wrapChar_;
    int loading_ = 0;
    bool fitting_ = false;
    bool destroying_ = false;
    bool hovered_ = false;
    bool pressed_ = false;
    int shortcutId_ = 0;
};

template <typename T>
void TRdCustomLabel::Change(T& field, const T& value) {
    if (field == value) return;
    field = value;
    update();
}

template <typename T>
void TRdCustomLabel::ChangeAndFit(T& field, const T& value) {
    if (field == value) return;
    field = value;
    AdjustBounds();
    update();
}

}  // namespace qpt
