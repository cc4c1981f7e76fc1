#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <functional>

#include "skin/DesignRectProperty.h"
#include "skin/RdFont.h"
#include "skin/RdPictureProperty.h"
#include "skin/RdSkinClass.h"
#include "skin/RdTimer.h"

namespace qpt {

class TRdSkinHintWindow;

// A skinned replacement of the tool tip: the text of a control's hint in a
// window of its own (TRdSkinHintWindow), over BackgroundImage or a plain
// HintColor box, fading in and out. "Title##Text" shows the title in
// FontTitle above the text in Font. While not Active the caller shows the
// platform's plain tool tip instead.
//
// The fade runs on two framework timers in the interface thread: a window's
// opacity may only be changed there, so a thread of its own would only have
// to hand every step back.
class TRdSkinHint : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool Active MEMBER active_)
    Q_PROPERTY(qpt::TRdFont* Font READ Font)
    Q_PROPERTY(qpt::TRdFont* FontTitle READ FontTitle)
    Q_PROPERTY(bool AlphaBlend MEMBER alphaBlend_)
    Q_PROPERTY(int AlphaBlendValue MEMBER alphaBlendValue_)
    Q_PROPERTY(bool AlphaBlendAnimation MEMBER alphaBlendAnimation_)
    Q_PROPERTY(int AlphaBlendAnimationInterval MEMBER animationInterval_)
    Q_PROPERTY(int AlphaBlendAnimationTimes MEMBER animationTimes_)
    Q_PROPERTY(qpt::TDesignRectProperty* BackgroundOption READ BackgroundOption)
    Q_PROPERTY(qpt::TRdPictureProperty* BackgroundImage READ BackgroundImage)
    Q_PROPERTY(int MaxWidth MEMBER maxWidth_)
    Q_PROPERTY(int MaxHeight MEMBER maxHeight_)
    Q_PROPERTY(TAlignment TextAlign MEMBER textAlign_)
    Q_PROPERTY(int TextX MEMBER textX_)
    Q_PROPERTY(int TextY MEMBER textY_)
    Q_PROPERTY(int HintHidePause MEMBER hintHidePause_)
    Q_PROPERTY(quint32 HintColor MEMBER hintColor_)
    Q_PROPERTY(qpt::TRdSkinClass* AllSkin READ AllSkin)

public:
    enum TAlignment { taLeftJustify, taRightJustify, taCenter };
    Q_ENUM(TAlignment)

    explicit TRdSkinHint(QObject* parent = nullptr);
    ~TRdSkinHint() override;

    bool Active() const { return active_; }
    void SetActive(bool value) { active_ = value; }
    TRdFont* Font() const { return font_; }
    TRdFont* FontTitle() const { return fontTitle_; }
    bool AlphaBlend() const { return alphaBlend_; }
    int AlphaBlendValue() const { return alphaBlendValue_; }
    bool AlphaBlendAnimation() const { return alphaBlendAnimation_; }
    int AlphaBlendAnimationInterval() const { return animationInterval_; }
    int AlphaBlendAnimationTimes() const { return animationTimes_; }
    TDesignRectProperty* BackgroundOption() const { return backgroundOption_; }
    TRdPictureProperty* BackgroundImage() const { return backgroundImage_; }
    int MaxWidth() const { return maxWidth_; }
    int MaxHeight() const { return maxHeight_; }
    TAlignment TextAlign() const { return textAlign_; }
    int TextX() const { return textX_; }
    int TextY() const { return textY_; }
    int HintHidePause() const { return hintHidePause_; }
    quint32 HintColor() const { return hintColor_; }
    TRdSkinClass* AllSkin() const { return allSkin_; }

    // Shows `text` for `control` near the mouse at `cursorPos` (screen).
    // False, and nothing shown, while not Active or when the text is empty
    // (after OnBeforeCalcHint) or OnBeforeActive refuses.
    bool ActivateHint(const QPoint& cursorPos, const QString& text, QWidget* control = nullptr);
    // Fades the window out (or hides it at once without the animation).
    void HideHint();
    bool Showing() const;
    QWidget* Control() const { return control_; }
    TRdSkinHintWindow* Window() const { return window_; }
    // The opacity the window is shown with now, 0..255.
    int Alpha() const { return alpha_; }
    // The opacity a fade-in ends at.
    int TargetAlpha() const;
    TRdTimer* FadeTimer() const { return fadeTimer_; }
    TRdTimer* HideTimer() const { return hideTimer_; }

    // May refuse the hint for a control.
    std::function<void(TRdSkinHint& sender, QWidget* control, bool& allow)> OnBeforeActive;
    // The window is up.
    std::function<void(TRdSkinHint& sender)> OnActiveHint;
    // May change the text before the window is measured.
    std::function<void(TRdSkinHint& sender, QString& text)> OnBeforeCalcHint;
    // May move or resize the window's screen rectangle before it shows.
    std::function<void(TRdSkinHint& sender, QRect& rect)> OnCalcPosHint;

private:
    bool Animated() const;
    QRect PlaceWindow(const QPoint& cursorPos, QSize size) const;
    void SetAlpha(int value);
    void FadeStep();

    bool active_ = true;
    TRdFont* font_;
    TRdFont* fontTitle_;
    bool alphaBlend_ = false;
    int alphaBlendValue_ = 255;
    bool alphaBlendAnimation_ = true;
    int animationInterval_ = 20;
    int animationTimes_ = 8;
    TDesignRectProperty* backgroundOption_;
    TRdPictureProperty* backgroundImage_;
    int maxWidth_ = 300;
    int maxHeight_ = 0;
    TAlignment textAlign_ = taLeftJustify;
    int textX_ = 4;
    int textY_ = 2;
    int hintHidePause_ = 2500;
    quint32 hintColor_;
    TRdSkinClass* allSkin_;
    TRdSkinHintWindow* window_;
    TRdTimer* fadeTimer_;
    TRdTimer* hideTimer_;
    QPointer<QWidget> control_;
    int alpha_ = 0;
    bool fadingOut_ = false;
};

}  // namespace qpt
