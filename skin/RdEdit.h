#pragma once

#include <QLineEdit>

#include "skin/DesignRectProperty.h"
#include "skin/EdgeGeometry.h"
#include "skin/RdFont.h"
#include "skin/RdPictureProperty.h"
#include "skin/RdSkinClass.h"
#include "support/color/ColorNames.h"

namespace qpt {

// A single-line text field over a skinned picture. The platform field keeps
// the caret, the selection and the clipboard; it only draws its text, on a
// clear background, over the picture of the present state. The state
// pictures take turns in the order disabled, error, selected (focused),
// over, empty, normal: the first state that holds and has a picture wins.
class TRdEdit : public QLineEdit, public TEdgeGeometry<TRdEdit> {
    Q_OBJECT
    Q_PROPERTY(QString Text READ text WRITE setText)
    Q_PROPERTY(bool AutoSize READ AutoSize WRITE SetAutoSize)
    Q_PROPERTY(TBorderStyle BorderStyle READ BorderStyle WRITE SetBorderStyle)
    Q_PROPERTY(int BorderWidth READ BorderWidth WRITE SetBorderWidth)
    Q_PROPERTY(TEditCharCase CharCase READ CharCase WRITE SetCharCase)
    Q_PROPERTY(QString PasswordChar READ PasswordChar WRITE SetPasswordChar)
    Q_PROPERTY(int TextLeftMargin READ TextLeftMargin WRITE SetTextLeftMargin)
    Q_PROPERTY(int TextRightMargin READ TextRightMargin WRITE SetTextRightMargin)
    Q_PROPERTY(bool ErrorMode READ ErrorMode WRITE SetErrorMode)
    Q_PROPERTY(qpt::TRdFont* FontError READ FontError)
    Q_PROPERTY(qpt::TRdFont* FontNormal READ FontNormal)
    Q_PROPERTY(qpt::TRdFont* FontDisabled READ FontDisabled)
    Q_PROPERTY(quint32 FontEmptyColor READ FontEmptyColor WRITE SetFontEmptyColor)
    Q_PROPERTY(qpt::TDesignRectProperty* ImageOption READ ImageOption)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageNormal READ ImageNormal)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageSelected READ ImageSelected)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageOver READ ImageOver)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageDisabled READ ImageDisabled)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageError READ ImageError)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageEmpty READ ImageEmpty)
    Q_PROPERTY(int Left_Right READ Left_Right WRITE SetLeft_Right STORED false)
    Q_PROPERTY(int Top_Bottom READ Top_Bottom WRITE SetTop_Bottom STORED false)
    Q_PROPERTY(int Left_Invert READ Left_Invert WRITE SetLeft_Invert STORED false)
    Q_PROPERTY(int Top_Invert READ Top_Invert WRITE SetTop_Invert STORED false)
    Q_PROPERTY(qpt::TRdSkinClass* AllSkin READ AllSkin)

public:
    enum TBorderStyle { bsNone, bsSingle };
    Q_ENUM(TBorderStyle)
    enum TEditCharCase { ecNormal, ecUpperCase, ecLowerCase };
    Q_ENUM(TEditCharCase)
    // In the order the pictures take turns.
    enum TEditState { esDisabled, esError, esSelected, esOver, esEmpty, esNormal };
    Q_ENUM(TEditState)

    explicit TRdEdit(QWidget* parent = nullptr);

    bool AutoSize() const { return autoSize_; }
    void SetAutoSize(bool value);
    TBorderStyle BorderStyle() const { return borderStyle_; }
    void SetBorderStyle(TBorderStyle value);
    int BorderWidth() const { return borderWidth_; }
    void SetBorderWidth(int value);
    TEditCharCase CharCase() const { return charCase_; }
    void SetCharCase(TEditCharCase value);
    // Empty: the text shows as it is; otherwise every character shows as
    // the first character of this.
    QString PasswordChar() const { return passwordChar_; }
    void SetPasswordChar(const QString& value);
    int TextLeftMargin() const { return leftMargin_; }
    void SetTextLeftMargin(int value);
    int TextRightMargin() const { return rightMargin_; }
    void SetTextRightMargin(int value);
    bool ErrorMode() const { return errorMode_; }
    void SetErrorMode(bool value);
    TRdFont* FontError() const { return fontError_; }
    TRdFont* FontNormal() const { return fontNormal_; }
    TRdFont* FontDisabled() const { return fontDisabled_; }
    // The colour of the placeholder text shown while the field is empty.
    quint32 FontEmptyColor() const { return fontEmptyColor_; }
    void SetFontEmptyColor(quint32 value);
    TDesignRectProperty* ImageOption() const { return imageOption_; }
    TRdPictureProperty* ImageNormal() const { return images_[esNormal]; }
    TRdPictureProperty* ImageSelected() const { return images_[esSelected]; }
    TRdPictureProperty* ImageOver() const { return images_[esOver]; }
    TRdPictureProperty* ImageDisabled() const { return images_[esDisabled]; }
    TRdPictureProperty* ImageError() const { return images_[esError]; }
    TRdPictureProperty* ImageEmpty() const { return images_[esEmpty]; }

    TRdSkinClass* AllSkin() const { return allSkin_; }

    // Whether a state holds now, whatever its picture.
    bool StateHolds(TEditState state) const;
    // The state whose picture is drawn, esNormal when none has one.
    TEditState PictureState() const;
    // The font of the present state.
    TRdFont* StateFont() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    TRdFont* MakeFont();
    void ApplyLook();
    void ApplyMargins();
    void FitHeight();

    TRdSkinClass* allSkin_;
    TRdFont* fontError_;
    TRdFont* fontNormal_;
    TRdFont* fontDisabled_;
    TDesignRectProperty* imageOption_;
    TRdPictureProperty* images_[esNormal + 1];
    QString passwordChar_;
    quint32 fontEmptyColor_ = clGrayText;
    TBorderStyle borderStyle_ = bsNone;
    TEditCharCase charCase_ = ecNormal;
    int borderWidth_ = 0;
    int leftMargin_ = 0;
    int rightMargin_ = 0;
    bool autoSize_ = true;
    bool errorMode_ = false;
    bool over_ = false;
};

}  // namespace qpt
