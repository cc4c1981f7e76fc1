#pragma once

#include <QComboBox>
#include <functional>

#include "skin/DesignRectProperty.h"
#include "skin/EdgeGeometry.h"
#include "skin/RdComboboxListForm.h"
#include "skin/RdFont.h"
#include "skin/RdPictureProperty.h"
#include "skin/RdSkinClass.h"

namespace qpt {

// A drop-down whose closed face is a skin picture chosen by state and whose
// list opens in a popup window of its own. The items and the keyboard of
// the closed face are the stock combo box's; everything drawn is ours.
class TRdComboBox : public QComboBox, public TEdgeGeometry<TRdComboBox> {
    Q_OBJECT
    Q_PROPERTY(int Left_Right READ Left_Right WRITE SetLeft_Right STORED false)
    Q_PROPERTY(int Top_Bottom READ Top_Bottom WRITE SetTop_Bottom STORED false)
    Q_PROPERTY(int Left_Invert READ Left_Invert WRITE SetLeft_Invert STORED false)
    Q_PROPERTY(int Top_Invert READ Top_Invert WRITE SetTop_Invert STORED false)
    Q_PROPERTY(int ComboboxHeight READ ComboboxHeight WRITE SetComboboxHeight)
    Q_PROPERTY(int ItemHeight READ ItemHeight WRITE SetItemHeight)
    Q_PROPERTY(quint32 FontDisableColor READ FontDisableColor WRITE SetFontDisableColor)
    Q_PROPERTY(quint32 BorderColor READ BorderColor WRITE SetBorderColor)
    Q_PROPERTY(quint32 Color READ Color WRITE SetColor)
    Q_PROPERTY(TComboBoxStyle Style READ Style WRITE SetStyle)
    Q_PROPERTY(QString Hint READ toolTip WRITE setToolTip)
    Q_PROPERTY(bool ShowHint READ ShowHint WRITE SetShowHint)
    Q_PROPERTY(quint32 ItemHotBgColor READ ItemHotBgColor WRITE SetItemHotBgColor)
    Q_PROPERTY(quint32 ItemHotColor READ ItemHotColor WRITE SetItemHotColor)
    Q_PROPERTY(quint32 ItemColor READ ItemColor WRITE SetItemColor)
    Q_PROPERTY(int TextOffX READ TextOffX WRITE SetTextOffX)
    Q_PROPERTY(qpt::TRdPictureProperty* Background READ Background)
    Q_PROPERTY(qpt::TRdPictureProperty* BackgroundClick READ BackgroundClick)
    Q_PROPERTY(qpt::TRdPictureProperty* BackgroundFocus READ BackgroundFocus)
    Q_PROPERTY(qpt::TRdPictureProperty* BackgroundHot READ BackgroundHot)
    Q_PROPERTY(qpt::TRdPictureProperty* BackgroundDisable READ BackgroundDisable)
    Q_PROPERTY(qpt::TDesignRectProperty* BackgroundOption READ BackgroundOption)
    Q_PROPERTY(qpt::TRdScrollBar* VScrollBar READ VScrollBar)
    Q_PROPERTY(qpt::TRdFont* Font READ Font)
    Q_PROPERTY(qpt::TRdSkinClass* AllSkin READ AllSkin)

public:
    enum TComboBoxStyle {
        csDropDown,
        csSimple,
        csDropDownList,
        csOwnerDrawFixed,
        csOwnerDrawVariable
    };
    Q_ENUM(TComboBoxStyle)
    // Which picture the closed face shows, most urgent first.
    enum TFaceState { fsDisable, fsClick, fsHot, fsFocus, fsNormal };
    Q_ENUM(TFaceState)

    explicit TRdComboBox(QWidget* parent = nullptr);

    int ComboboxHeight() const { return height(); }
    void SetComboboxHeight(int value) { resize(width(), std::max(value, 0)); }
    int ItemHeight() const { return form_->ListBox()->ItemHeight(); }
    void SetItemHeight(int value) { form_->ListBox()->SetItemHeight(value); }
    quint32 FontDisableColor() const { return fontDisableColor_; }
    void SetFontDisableColor(quint32 value);
    quint32 BorderColor() const { return form_->Bg()->BorderColor(); }
    void SetBorderColor(quint32 value);
    quint32 Color() const { return form_->Bg()->Color(); }
    void SetColor(quint32 value);
    TComboBoxStyle Style() const { return style_; }
    void SetStyle(TComboBoxStyle value);
    bool ShowHint() const { return form_->ListBox()->ShowHint(); }
    void SetShowHint(bool value) { form_->ListBox()->SetShowHint(value); }
    quint32 ItemHotBgColor() const { return form_->ListBox()->ItemHotBgColor(); }
    void SetItemHotBgColor(quint32 value) { form_->ListBox()->SetItemHotBgColor(value); }
    quint32 ItemHotColor() const { return form_->ListBox()->ItemHotColor(); }
    void SetItemHotColor(quint32 value) { form_->ListBox()->SetItemHotColor(value); }
    quint32 ItemColor() const { return form_->ListBox()->ItemColor(); }
    void SetItemColor(quint32 value) { form_->ListBox()->SetItemColor(value); }
    int TextOffX() const { return textOffX_; }
    void SetTextOffX(int value);

    TRdPictureProperty* Background() const { return background_; }
    TRdPictureProperty* BackgroundClick() const { return backgroundClick_; }
    TRdPictureProperty* BackgroundFocus() const { return backgroundFocus_; }
    TRdPictureProperty* BackgroundHot() const { return backgroundHot_; }
    TRdPictureProperty* BackgroundDisable() const { return backgroundDisable_; }
    TDesignRectProperty* BackgroundOption() const { return backgroundOption_; }
    TRdScrollBar* VScrollBar() const { return form_->VScroll(); }
    TRdFont* Font() const { return font_; }
    TRdSkinClass* AllSkin() const { return allSkin_; }

    TRdComboboxListForm* ListForm() const { return form_; }
    bool DroppedDown() const { return form_->isVisible(); }
    TFaceState FaceState() const;
    // Lights the face as if the mouse were over it, for showing the states;
    // the mouse leaving or entering decides again.
    void SetHot(bool value);
    // The picture for the state, or Background when that state has none.
    TRdPictureProperty* FacePicture() const;

    void showPopup() override;
    void hidePopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    std::function<void(TRdComboBox& sender)> OnDropDownShow;
    std::function<void(TRdComboBox& sender)> OnSelect;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    TRdPictureProperty* NewPicture();
    QRect TextRect() const;
    void PaintPlainFace(QPainter& painter) const;
    void FontChanged();
    void PlaceEdit();
    void Choose(int index);
    void PassOnFontChange() const;

    TRdComboboxListForm* form_;
    TRdPictureProperty* background_;
    TRdPictureProperty* backgroundClick_;
    TRdPictureProperty* backgroundFocus_;
    TRdPictureProperty* backgroundHot_;
    TRdPictureProperty* backgroundDisable_;
    TDesignRectProperty* backgroundOption_;
    TRdFont* font_;
    TRdSkinClass* allSkin_;
    quint32 fontDisableColor_;
    TComboBoxStyle style_ = csDropDownList;
    int textOffX_ = 4;
    bool hot_ = false;
    mutable bool fontChangeWaiting_ = false;
};

}  // namespace qpt
