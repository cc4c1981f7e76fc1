#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

#include "skin/BorderLines.h"
#include "skin/DesignRectProperty.h"
#include "skin/EllipseSize.h"
#include "skin/RdPictureProperty.h"
#include "skin/RdSkinClass.h"
#include "skin/ShadowFrame.h"
#include "support/color/ColorNames.h"

class QPainter;
class QPaintEvent;

namespace qpt {

class TRdFormShadowBg;
class TRdTimer;

// The skin of a top-level form, as a component the form owns: it takes away
// the system frame, fills the form with FormColor under the form's own
// painting and draws the border lines over it, rounds the corners, and keeps
// a separate shadow window just below the form that follows it in place,
// size, stacking, visibility and alpha. A form has at most one.
class TRdFormSkin : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool FixFlashBlack READ FixFlashBlack WRITE SetFixFlashBlack)
    Q_PROPERTY(quint32 FormColor READ FormColor WRITE SetFormColor)
    Q_PROPERTY(QWidget* OwnerForm READ OwnerForm STORED false)
    Q_PROPERTY(qpt::TRdPictureProperty* PicShadow READ PicShadow)
    Q_PROPERTY(qpt::TDesignRectProperty* PicShadowOption READ PicShadowOption)
    Q_PROPERTY(qpt::TEllipseSize* EllipseSize READ EllipseSize)
    Q_PROPERTY(qpt::TBorderLines* BorderLines READ BorderLines)
    Q_PROPERTY(qpt::TShadowFrame* ShadowFrame READ ShadowFrame)
    Q_PROPERTY(qpt::TRdSkinClass* AllSkin READ AllSkin)

public:
    // How long a form stays fully transparent at its first show.
    static constexpr int kFlashDelay = 50;

    // Throws std::runtime_error when the form already has one.
    explicit TRdFormSkin(QWidget* form);
    ~TRdFormSkin() override;

    // The form's skin: the first of its children of exactly this class.
    static TRdFormSkin* SkinOf(const QWidget* form);

    // True keeps the form fully transparent for a moment at its first show,
    // so that its first paint is never seen half done.
    bool FixFlashBlack() const { return fixFlashBlack_; }
    void SetFixFlashBlack(bool value) { fixFlashBlack_ = value; }
    quint32 FormColor() const { return formColor_; }
    void SetFormColor(quint32 value);
    QWidget* OwnerForm() const { return form_; }
    TRdPictureProperty* PicShadow() const { return picShadow_; }
    TDesignRectProperty* PicShadowOption() const { return picShadowOption_; }
    TEllipseSize* EllipseSize() const { return ellipseSize_; }
    TBorderLines* BorderLines() const { return borderLines_; }
    TShadowFrame* ShadowFrame() const { return shadowFrame_; }
    TRdSkinClass* AllSkin() const { return allSkin_; }

    TRdFormShadowBg* Shadow() const { return shadow_; }
    // True keeps the shadow hidden whatever the form does.
    bool HideShadow() const { return hideShadow_; }
    void SetHideShadow(bool value);

    // Brings the shadow's place, size, stacking, alpha and visibility in line
    // with the form; the form's move, resize, show, hide, state changes and
    // activation all call it.
    void UpdateShadow(bool forceHide = false, bool forceShow = false);
    // Whether the shadow is to be seen now.
    bool ShadowWanted(bool forceHide = false, bool forceShow = false) const;
    // Where the shadow window belongs: the form grown by the margins.
    QRect ShadowRect() const;

    // Called after the shadow has been composed, to draw over it.
    std::function<void(TRdFormSkin& sender, QPainter& canvas)> OnShadowPaintEnd;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FormShown();
    void PaintForm(QPaintEvent* event);
    void PaintBorderLines(QPainter& painter) const;
    void ApplyRegion();
    void ApplyFrameless();
    void SyncTopmost();
    void Restack(bool justShown);
    void ShadowPictureChanged();

    QPointer<QWidget> form_;
    TRdPictureProperty* picShadow_;
    TDesignRectProperty* picShadowOption_;
    TEllipseSize* ellipseSize_;
    TBorderLines* borderLines_;
    TShadowFrame* shadowFrame_;
    TRdSkinClass* allSkin_;
    TRdTimer* flashTimer_;
    TRdFormShadowBg* shadow_;
    quint32 formColor_ = clWindow;
    bool fixFlashBlack_ = false;
    bool hideShadow_ = false;
    bool shownOnce_ = false;
    bool painting_ = false;
    int flashAlpha_ = 255;
};

// Sets a form's constant alpha (0..255); a skinned form's shadow takes the
// same alpha at once.
void SetFormAlphaBlend(QWidget* form, int alpha);
// A form's constant alpha, 0..255.
int FormAlphaBlend(const QWidget* form);

}  // namespace qpt
