#pragma once

#include <QPainter>
#include <array>
#include <functional>

#include "skin/ButtonCheckBox.h"
#include "skin/ButtonFade.h"
#include "skin/ButtonHitMask.h"
#include "skin/ButtonTextLayout.h"
#include "skin/DesignRectProperty.h"
#include "skin/RdGraphicControl.h"
#include "skin/RdPictureProperty.h"
#include "support/color/ColorNames.h"

class QHelpEvent;

namespace qpt {

// The skinned button every form is built from: tool buttons, colour
// swatches, window backgrounds and check boxes. A background picture per
// state, an icon with states and a click area of its own, an optional check
// box, a caption with a sub-caption, and a cross-fade between normal and
// hover. ButtonState: 0 normal, 1 down, 2 disabled, 3 selected (the
// application selects the current tool). IconState: 0 normal, 1 down, 2
// hover, 3 disabled, 4 selected.
class TRdImageButton : public TRdGraphicControl {
    Q_OBJECT
    Q_PROPERTY(qpt::TRdPictureProperty* ImageNormal READ ImageNormal)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageOver READ ImageOver)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageDown READ ImageDown)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageSelected READ ImageSelected)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageDisabled READ ImageDisabled)
    Q_PROPERTY(bool Expand READ Expand WRITE SetExpand)
    Q_PROPERTY(qpt::TRdPictureProperty* ExpandImage READ ExpandImage)
    Q_PROPERTY(qpt::TDesignRectProperty* ImageOption READ ImageOption)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageRange READ ImageRange)
    Q_PROPERTY(qpt::TRdPictureProperty* DnNormalIcon READ DnNormalIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* DnHoverIcon READ DnHoverIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* DnDownIcon READ DnDownIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* DnDisableIcon READ DnDisableIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* DnSelectedIcon READ DnSelectedIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* UpNormalIcon READ UpNormalIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* UpHoverIcon READ UpHoverIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* UpDownIcon READ UpDownIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* UpDisableIcon READ UpDisableIcon)
    Q_PROPERTY(qpt::TRdPictureProperty* UpSelectedIcon READ UpSelectedIcon)
    Q_PROPERTY(bool IconVisible READ IconVisible WRITE SetIconVisible)
    Q_PROPERTY(qpt::TImageButtonTypes::TAlignment IconAlign READ IconAlign WRITE SetIconAlign)
    Q_PROPERTY(qpt::TImageButtonTypes::TTextLayout IconAlignY READ IconAlignY WRITE SetIconAlignY)
    Q_PROPERTY(int IconOffset READ IconOffset WRITE SetIconOffset)
    Q_PROPERTY(int IconOffsetY READ IconOffsetY WRITE SetIconOffsetY)
    Q_PROPERTY(bool IconAlignByText READ IconAlignByText WRITE SetIconAlignByText)
    Q_PROPERTY(bool IconAlignYByText READ IconAlignYByText WRITE SetIconAlignYByText)
    Q_PROPERTY(int IconCursor READ IconCursor WRITE SetIconCursor)
    Q_PROPERTY(QString IconHint READ IconHint WRITE SetIconHint)
    Q_PROPERTY(bool IconFullClick READ IconFullClick WRITE SetIconFullClick)
    Q_PROPERTY(bool IconLockBySelected READ IconLockBySelected WRITE SetIconLockBySelected)
    Q_PROPERTY(bool ShowCheckBox READ ShowCheckBox WRITE SetShowCheckBox)
    Q_PROPERTY(bool Checked READ Checked WRITE SetChecked STORED false)
    Q_PROPERTY(int CheckState READ CheckState WRITE SetCheckState)
    Q_PROPERTY(bool CheckBoxFullClick READ CheckBoxFullClick WRITE SetCheckBoxFullClick)
    Q_PROPERTY(qpt::TRdPictureProperty* CheckBoxNormalImage READ CheckBoxNormalImage)
    Q_PROPERTY(
        qpt::TRdPictureProperty* CheckBoxUnCheckedHoverImage READ CheckBoxUnCheckedHoverImage)
    Q_PROPERTY(qpt::TRdPictureProperty* CheckBoxGrayedImage READ CheckBoxGrayedImage)
    Q_PROPERTY(qpt::TRdPictureProperty* CheckBoxCheckedImage READ CheckBoxCheckedImage)
    Q_PROPERTY(qpt::TRdPictureProperty* CheckBoxCheckedHoverImage READ CheckBoxCheckedHoverImage)
    Q_PROPERTY(qpt::TRdPictureProperty* CheckBoxCheckedGrayedImage READ CheckBoxCheckedGrayedImage)
    Q_PROPERTY(qpt::TRdPictureProperty* CheckBoxHalfCheckedImage READ CheckBoxHalfCheckedImage)
    Q_PROPERTY(
        qpt::TRdPictureProperty* CheckBoxHalfCheckedHoverImage READ CheckBoxHalfCheckedHoverImage)
    Q_PROPERTY(
        qpt::TRdPictureProperty* CheckBoxHalfCheckedGrayedImage READ CheckBoxHalfCheckedGrayedImage)
    Q_PROPERTY(qpt::TImageButtonTypes::TAlignment CheckBoxAlignX READ CheckBoxAlignX WRITE
                   SetCheckBoxAlignX)
    Q_PROPERTY(bool CheckBoxAlignXByText READ CheckBoxAlignXByText WRITE SetCheckBoxAlignXByText)
    Q_PROPERTY(qpt::TImageButtonTypes::TTextLayout CheckBoxAlignY READ CheckBoxAlignY WRITE
                   SetCheckBoxAlignY)
    Q_PROPERTY(bool CheckBoxAlignYByFont READ CheckBoxAlignYByFont WRITE SetCheckBoxAlignYByFont)
    Q_PROPERTY(qpt::TImageButtonTypes::TFontLine CheckBoxAlignYByFontLine READ
                   CheckBoxAlignYByFontLine WRITE SetCheckBoxAlignYByFontLine)
    Q_PROPERTY(int CheckBoxOffset READ CheckBoxOffset WRITE SetCheckBoxOffset)
    Q_PROPERTY(int CheckBoxOffsetY READ CheckBoxOffsetY WRITE SetCheckBoxOffsetY)
    Q_PROPERTY(int CheckBoxCursor READ CheckBoxCursor WRITE SetCheckBoxCursor)
    Q_PROPERTY(QString CheckBoxHint READ CheckBoxHint WRITE SetCheckBoxHint)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(qpt::TImageButtonTypes::TAlignment ButtonCaptionAlignment READ ButtonCaptionAlignment
                   WRITE SetButtonCaptionAlignment)
    Q_PROPERTY(qpt::TImageButtonTypes::TTextLayout TextAlignY READ TextAlignY WRITE SetTextAlignY)
    Q_PROPERTY(int TextOffset READ TextOffset WRITE SetTextOffset)
    Q_PROPERTY(int TextTopOffset READ TextTopOffset WRITE SetTextTopOffset)
    Q_PROPERTY(int TextLeftMargin READ TextLeftMargin WRITE SetTextLeftMargin)
    Q_PROPERTY(int TextRightMargin READ TextRightMargin WRITE SetTextRightMargin)
    Q_PROPERTY(int TextTopMargin READ TextTopMargin WRITE SetTextTopMargin)
    Q_PROPERTY(int TextBottomMargin READ TextBottomMargin WRITE SetTextBottomMargin)
    Q_PROPERTY(int TextMaxLine READ TextMaxLine WRITE SetTextMaxLine)
    Q_PROPERTY(bool WordWrap READ WordWrap WRITE SetWordWrap)
    Q_PROPERTY(
        qpt::TImageButtonTypes::TAlignment TextWarpAlign READ TextWarpAlign WRITE SetTextWarpAlign)
    Q_PROPERTY(bool ShowAccelChar READ ShowAccelChar WRITE SetShowAccelChar)
    Q_PROPERTY(bool EllipsisByHeight READ EllipsisByHeight WRITE SetEllipsisByHeight)
    Q_PROPERTY(bool AutoSizeByText READ AutoSizeByText WRITE SetAutoSizeByText)
    Q_PROPERTY(QString SubCaption READ SubCaption WRITE SetSubCaption)
    Q_PROPERTY(int SubCaptionOffset READ SubCaptionOffset WRITE SetSubCaptionOffset)
    Q_PROPERTY(qpt::TRdFont* SubCaptionFont READ SubCaptionFont)
    Q_PROPERTY(QString SubCaptionData READ SubCaptionData WRITE SetSubCaptionData)
    Q_PROPERTY(qpt::TRdFont* SubCaptionDataFont READ SubCaptionDataFont)
    Q_PROPERTY(quint32 FontHoverColor READ FontHoverColor WRITE SetFontHoverColor)
    Q_PROPERTY(quint32 FontSelectedColor READ FontSelectedColor WRITE SetFontSelectedColor)
    Q_PROPERTY(quint32 FontDownColor READ FontDownColor WRITE SetFontDownColor)
    Q_PROPERTY(quint32 FontCheckedColor READ FontCheckedColor WRITE SetFontCheckedColor)
    Q_PROPERTY(quint32 FontDisabledColor READ FontDisabledColor WRITE SetFontDisabledColor)
    Q_PROPERTY(bool FontAntialiased READ FontAntialiased WRITE SetFontAntialiased)
    Q_PROPERTY(qpt::TImageButtonTypes::TAniEffect HoverEffect READ HoverEffect WRITE SetHoverEffect)
    Q_PROPERTY(bool AutoShowHint READ AutoShowHint WRITE SetAutoShowHint)
    Q_PROPERTY(bool FoundTextEllipsis READ FoundTextEllipsis STORED false)
    Q_PROPERTY(bool FoundTextWordBreak READ FoundTextWordBreak STORED false)
    Q_PROPERTY(int FoundTextDrawLine READ FoundTextDrawLine STORED false)

public:
    enum TState { bsNormal = 0, bsDown = 1, bsDisabled = 2, bsSelected = 3 };
    enum TIconState { isNormal = 0, isDown = 1, isHover = 2, isDisabled = 3, isSelected = 4 };

    explicit TRdImageButton(QWidget* parent = nullptr);

    // Background pictures, the hit range, icons and check box pictures.
    TRdPictureProperty* ImageNormal() const { return pictures_[piImageNormal]; }
    TRdPictureProperty* ImageOver() const { return pictures_[piImageOver]; }
    TRdPictureProperty* ImageDown() const { return pictures_[piImageDown]; }
    TRdPictureProperty* ImageSelected() const { return pictures_[piImageSelected]; }
    TRdPictureProperty* ImageDisabled() const { return pictures_[piImageDisabled]; }
    TRdPictureProperty* ExpandImage() const { return pictures_[piExpandImage]; }
    TRdPictureProperty* ImageRange() const { return pictures_[piImageRange]; }
    TRdPictureProperty* DnNormalIcon() const { return IconPicture(piDnIcons, isNormal); }
    TRdPictureProperty* DnHoverIcon() const { return IconPicture(piDnIcons, isHover); }
    TRdPictureProperty* DnDownIcon() const { return IconPicture(piDnIcons, isDown); }
    TRdPictureProperty* DnDisableIcon() const { return IconPicture(piDnIcons, isDisabled); }
    TRdPictureProperty* DnSelectedIcon() const { return IconPicture(piDnIcons, isSelected); }
    TRdPictureProperty* UpNormalIcon() const { return IconPicture(piUpIcons, isNormal); }
    TRdPictureProperty* UpHoverIcon() const { return IconPicture(piUpIcons, isHover); }
    TRdPictureProperty* UpDownIcon() const { return IconPicture(piUpIcons, isDown); }
    TRdPictureProperty* UpDisableIcon() const { return IconPicture(piUpIcons, isDisabled); }
    TRdPictureProperty* UpSelectedIcon() const { return IconPicture(piUpIcons, isSelected); }
    TRdPictureProperty* CheckBoxNormalImage() const { return CheckPicture(0, cbPlain); }
    TRdPictureProperty* CheckBoxUnCheckedHoverImage() const { return CheckPicture(0, cbHover); }
    TRdPictureProperty* CheckBoxGrayedImage() const { return CheckPicture(0, cbGrayed); }
    TRdPictureProperty* CheckBoxCheckedImage() const { return CheckPicture(1, cbPlain); }
    TRdPictureProperty* CheckBoxCheckedHoverImage() const { return CheckPicture(1, cbHover); }
    TRdPictureProperty* CheckBoxCheckedGrayedImage() const { return CheckPicture(1, cbGrayed); }
    TRdPictureProperty* CheckBoxHalfCheckedImage() const { return CheckPicture(2, cbPlain); }
    TRdPictureProperty* CheckBoxHalfCheckedHoverImage() const { return CheckPicture(2, cbHover); }
    TRdPictureProperty* CheckBoxHalfCheckedGrayedImage() const { return CheckPicture(2, cbGrayed); }
    // The slicing of every background picture and of the range.
    TDesignRectProperty* ImageOption() const { return imageOption_; }

    bool Expand() const { return expand_; }
    void SetExpand(bool value) { Relayout(expand_, value); }

    bool IconVisible() const { return iconVisible_; }
    void SetIconVisible(bool value) { Relayout(iconVisible_, value); }
    TAlignment IconAlign() const { return icon_.Align; }
    void SetIconAlign(TAlignment value) { Relayout(icon_.Align, value); }
    TTextLayout IconAlignY() const { return icon_.AlignY; }
    void SetIconAlignY(TTextLayout value) { Relayout(icon_.AlignY, value); }
    int IconOffset() const { return icon_.Offset; }
    void SetIconOffset(int value) { Relayout(icon_.Offset, value); }
    int IconOffsetY() const { return icon_.OffsetY; }
    void SetIconOffsetY(int value) { Relayout(icon_.OffsetY, value); }
    bool IconAlignByText() const { return icon_.AlignByText; }
    void SetIconAlignByText(bool value) { Relayout(icon_.AlignByText, value); }
    bool IconAlignYByText() const { return icon_.AlignYByText; }
    void SetIconAlignYByText(bool value) { Relayout(icon_.AlignYByText, value); }
    // Cursor ids: 0 keeps the button's own cursor, -21 a pointing hand.
    int IconCursor() const { return iconCursor_; }
    void SetIconCursor(int value) { iconCursor_ = value; }
    QString IconHint() const { return iconHint_; }
    void SetIconHint(const QString& value) { iconHint_ = value; }
    // False: only a press on the icon moves it, and its click is IconOnClick.
    // True: the icon follows the button's own press.
    bool IconFullClick() const { return iconFullClick_; }
    void SetIconFullClick(bool value) { iconFullClick_ = value; }
    // True: a selected button ignores the mouse.
    bool IconLockBySelected() const { return iconLockBySelected_; }
    void SetIconLockBySelected(bool value) { iconLockBySelected_ = value; }

    bool ShowCheckBox() const { return showCheckBox_; }
    void SetShowCheckBox(bool value) { Relayout(showCheckBox_, value); }
    bool Checked() const { return checkState_ == 1; }
    void SetChecked(bool value) { SetCheckState(value ? 1 : 0); }
    // 0 clear, 1 checked, 2 half checked.
    int CheckState() const { return checkState_; }
    void SetCheckState(int value);
    // True: the whole button clicks the check box.
    bool CheckBoxFullClick() const { return checkBoxFullClick_; }
    void SetCheckBoxFullClick(bool value) { checkBoxFullClick_ = value; }
    TAlignment CheckBoxAlignX() const { return check_.AlignX; }
    void SetCheckBoxAlignX(TAlignment value) { Relayout(check_.AlignX, value); }
    bool CheckBoxAlignXByText() const { return check_.AlignXByText; }
    void SetCheckBoxAlignXByText(bool value) { Relayout(check_.AlignXByText, value); }
    TTextLayout CheckBoxAlignY() const { return check_.AlignY; }
    void SetCheckBoxAlignY(TTextLayout value) { Relayout(check_.AlignY, value); }
    bool CheckBoxAlignYByFont() const { return check_.AlignYByFont; }
    void SetCheckBoxAlignYByFont(bool value) { Relayout(check_.AlignYByFont, value); }
    TFontLine CheckBoxAlignYByFontLine() const { return check_.FontLine; }
    void SetCheckBoxAlignYByFontLine(TFontLine value) { Relayout(check_.FontLine, value); }
    int CheckBoxOffset() const { return check_.Offset; }
    void SetCheckBoxOffset(int value) { Relayout(check_.Offset, value); }
    int CheckBoxOffsetY() const { return check_.OffsetY; }
    void SetCheckBoxOffsetY(int value) { Relayout(check_.OffsetY, value); }
    int CheckBoxCursor() const { return checkBoxCursor_; }
    void SetCheckBoxCursor(int value) { checkBoxCursor_ = value; }
    QString CheckBoxHint() const { return checkBoxHint_; }
    void SetCheckBoxHint(const QString& value) { checkBoxHint_ = value; }

    QString Caption() const { return caption_; }
    void SetCaption(const QString& value);
    TAlignment ButtonCaptionAlignment() const { return text_.Align; }
    void SetButtonCaptionAlignment(TAlignment value) { Relayout(text_.Align, value); }
    TTextLayout TextAlignY() const { return text_.AlignY; }
    void SetTextAlignY(TTextLayout value) { Relayout(text_.AlignY, value); }
    int TextOffset() const { return text_.Offset; }
    void SetTextOffset(int value) { Relayout(text_.Offset, value); }
    int TextTopOffset() const { return text_.TopOffset; }
    void SetTextTopOffset(int value) { Relayout(text_.TopOffset, value); }
    int TextLeftMargin() const { return text_.Margins.left(); }
    void SetTextLeftMargin(int value);
    int TextRightMargin() const { return text_.Margins.right(); }
    void SetTextRightMargin(int value);
    int TextTopMargin() const { return text_.Margins.top(); }
    void SetTextTopMargin(int value);
    int TextBottomMargin() const { return text_.Margins.bottom(); }
    void SetTextBottomMargin(int value);
    int TextMaxLine() const { return text_.MaxLine; }
    void SetTextMaxLine(int value) { Relayout(text_.MaxLine, value); }
    bool WordWrap() const { return text_.WordWrap; }
    void SetWordWrap(bool value) { Relayout(text_.WordWrap, value); }
    TAlignment TextWarpAlign() const { return text_.WrapAlign; }
    void SetTextWarpAlign(TAlignment value) { Relayout(text_.WrapAlign, value); }
    bool ShowAccelChar() const { return text_.ShowAccelChar; }
    void SetShowAccelChar(bool value) { Relayout(text_.ShowAccelChar, value); }
    bool EllipsisByHeight() const { return text_.EllipsisByHeight; }
    void SetEllipsisByHeight(bool value) { Relayout(text_.EllipsisByHeight, value); }
    bool AutoSizeByText() const { return autoSizeByText_; }
    void SetAutoSizeByText(bool value) { Relayout(autoSizeByText_, value); }

    QString SubCaption() const { return subCaption_; }
    void SetSubCaption(const QString& value) { Relayout(subCaption_, value); }
    // From the caption's left edge.
    int SubCaptionOffset() const { return subCaptionOffset_; }
    void SetSubCaptionOffset(int value) { Relayout(subCaptionOffset_, value); }
    TRdFont* SubCaptionFont() const { return subCaptionFont_; }
    QString SubCaptionData() const { return subCaptionData_; }
    void SetSubCaptionData(const QString& value) { Relayout(subCaptionData_, value); }
    TRdFont* SubCaptionDataFont() const { return subCaptionDataFont_; }

    // Caption colours by state; clDefault keeps the font's own colour.
    quint32 FontHoverColor() const { return fontHoverColor_; }
    void SetFontHoverColor(quint32 value) { Repaint(fontHoverColor_, value); }
    quint32 FontSelectedColor() const { return fontSelectedColor_; }
    void SetFontSelectedColor(quint32 value) { Repaint(fontSelectedColor_, value); }
    quint32 FontDownColor() const { return fontDownColor_; }
    void SetFontDownColor(quint32 value) { Repaint(fontDownColor_, value); }
    quint32 FontCheckedColor() const { return fontCheckedColor_; }
    void SetFontCheckedColor(quint32 value) { Repaint(fontCheckedColor_, value); }
    quint32 FontDisabledColor() const { return fontDisabledColor_; }
    void SetFontDisabledColor(quint32 value) { Repaint(fontDisabledColor_, value); }
    bool FontAntialiased() const { return fontAntialiased_; }
    void SetFontAntialiased(bool value) { Repaint(fontAntialiased_, value); }

    TAniEffect HoverEffect() const { return hoverEffect_; }
    void SetHoverEffect(TAniEffect value) { hoverEffect_ = value; }
    // Shows the whole caption as the hint when it had to be cut.
    bool AutoShowHint() const { return autoShowHint_; }
    void SetAutoShowHint(bool value) { autoShowHint_ = value; }

    // What the layout finds for the caption as it stands.
    bool FoundTextEllipsis() const { return CurrentLayout().Ellipsis; }
    bool FoundTextWordBreak() const { return CurrentLayout().WordBreak; }
    int FoundTextDrawLine() const { return int(CurrentLayout().Lines.size()); }

    // Run-time state.
    int ButtonState() const { return buttonState_; }
    // The only way to change ButtonState: the application marks the current
    // tool with 3 and puts it back with 0.
    void SetState(int state);
    bool MouseIn() const { return mouseIn_; }
    // Lets a form light this button while the pointer is over another
    // control laid upon it; leaving this button clears it again.
    void SetMouseIn(bool value) { SetHover(value); }
    int IconState() const { return iconState_; }
    void SetIconState(int state);
    bool IconHot() const { return iconHot_; }
    bool CheckHot() const { return checkHot_; }
    bool OverCheckArea() const { return overCheckArea_; }
    QPoint LastMouse() const { return lastMouse_; }
    int FadeMode() const { return fade_.Mode(); }
    int FadeAlpha() const { return fade_.Alpha(); }
    TRdTimer* FadeTimer() { return fade_.Timer(); }
    const QImage& MaskImage() const { return hitMask_.MaskImage(); }

    // False where the range picture leaves the button open to the clicks of
    // what lies beneath it; those pixels are outside the widget's mask.
    bool HitTestMask(int x, int y) const { return hitMask_.Hit(x, y); }
    // The layout as painted now, for the icon, caption and check box.
    TButtonLayout CurrentLayout() const;
    QRect CheckBoxRect() const;
    // The background, icon and check box pictures the next paint uses.
    TRdGraphic* BackgroundGraphic() const;
    TRdGraphic* IconGraphic() const;
    TRdGraphic* CheckBoxGraphic() const;

    using PaintHandler = std::function<void(TRdImageButton& sender, QPainter& canvas)>;
    using Handler = std::function<void(TRdImageButton& sender)>;
    using MouseHandler = std::function<void(TRdImageButton& sender, Qt::MouseButton button)>;
    // A press and a release of any button, before the click they may make.
    MouseHandler OnMouseDown;
    MouseHandler OnMouseUp;
    // The pointer came over the button, after the button has lit itself.
    Handler OnMouseEnter;
    Handler OnClick;
    Handler IconOnClick;
    Handler CheckBoxBeforeClick;
    Handler CheckBoxOnClick;
    Handler OnCheckedChanged;
    Handler OnCaptionChanged;
    Handler OnMouseExit;
    PaintHandler OnPaintImage;
    PaintHandler OnPaintEnd;
    // May change the hint about to be shown; an empty text shows none.
    std::function<void(TRdImageButton& sender, QString& hint)> OnShowHint;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void FontChanged() override;

private:
    enum TPicture {
        piImageNormal,
        piImageOver,
        piImageDown,
        piImageSelected,
        piImageDisabled,
        piExpandImage,
        piImageRange,
        piDnIcons,
        piUpIcons = piDnIcons + 5,
        piCheckBox = piUpIcons + 5,
        piCount = piCheckBox + 9
    };
    enum TCheckLook { cbPlain, cbHover, cbGrayed };

    TRdPictureProperty* CheckPicture(int state, TCheckLook look) const {
        return pictures_[size_t(int(piCheckBox) + state * 3 + int(look))];
    }
    TRdPictureProperty* IconPicture(int first, int state) const {
        return pictures_[size_t(first + state)];
    }
    TRdGraphic* Present(TPicture picture) const;
    void MakePictures();

    template <typename T>
    void Relayout(T& field, const T& value) {
        if (field == value) return;
        field = value;
        LayoutChanged();
    }
    template <typename T>
    void Repaint(T& field, const T& value) {
        if (field == value) return;
        field = value;
        update();
    }
    void LayoutChanged();
    void UpdateHitMask();
    void FitToText();
    TButtonIconStyle IconStyle() const;
    bool Disabled() const { return !isEnabled() || buttonState_ == bsDisabled; }
    bool Selected() const { return buttonState_ == bsSelected; }
    bool LockedBySelection() const { return Selected() && iconLockBySelected_; }

    // Painting.
    bool FadeTakesOver() const;
    bool CanFade() const;
    quint32 StateFontColor() const;
    QFont CaptionFont() const;
    void PaintBackground(QPainter& painter);
    void PaintCaption(QPainter& painter, const TButtonLayout& layout);
    void PaintSubCaptions(QPainter& painter, const TButtonLayout& layout);
    void PaintParts(QPainter& painter, const TButtonLayout& layout);

    // Mouse logic, in the order the events come.
    void MouseEnter();
    void MouseMove(const QPoint& point);
    void MouseDown(const QPoint& point);
    void MouseUp(const QPoint& point);
    void Click();
    void MouseLeave();
    void ReleaseButton();
    bool HasCheckBoxHover() const;
    bool OverIcon(const QPoint& point) const;
    bool CheckBoxMouse(const QPoint& point, bool moveOnly);
    bool InCheckBoxArea(const QPoint& point);
    void SetHover(bool mouseIn);
    void ShowPartCursor();
    void RestoreCursor();
    void ShowHint(QHelpEvent* event);

    std::array<TRdPictureProperty*, piCount> pictures_{};
    TDesignRectProperty* imageOption_;
    TRdFont* subCaptionFont_;
    TRdFont* subCaptionDataFont_;

    TButtonTextStyle text_;
    TButtonIconStyle icon_;
    TCheckBoxPlacement check_;
    QString caption_;
    QString subCaption_;
    QString subCaptionData_;
    int subCaptionOffset_ = 50;
    bool expand_ = false;
    bool iconVisible_ = true;
    int iconCursor_ = 0;
    QString iconHint_;
    bool iconFullClick_ = false;
    bool iconLockBySelected_ = true;
    bool showCheckBox_ = false;
    int checkState_ = 0;
    bool checkBoxFullClick_ = true;
    int checkBoxCursor_ = 0;
    QString checkBoxHint_;
    bool autoSizeByText_ = false;
    quint32 fontHoverColor_ = clDefault;
    quint32 fontSelectedColor_ = clDefault;
    quint32 fontDownColor_ = clDefault;
    quint32 fontCheckedColor_ = clDefault;
    quint32 fontDisabledColor_ = clGrayText;
    bool fontAntialiased_ = true;
    TAniEffect hoverEffect_ = TImageButtonTypes::ibeNone;
    bool autoShowHint_ = false;

    int buttonState_ = bsNormal;
    bool mouseIn_ = false;
    int iconState_ = isNormal;
    bool iconHot_ = false;
    bool checkHot_ = false;
    bool overCheckArea_ = false;
    QPoint lastMouse_;
    TButtonFade fade_;
    TButtonHitMask hitMask_;
    // The button's own cursor while a part shows another.
    bool partCursor_ = false;
    bool hadOwnCursor_ = false;
    QCursor ownCursor_;
    bool fitting_ = false;
    bool pressed_ = false;
};

}  // namespace qpt
