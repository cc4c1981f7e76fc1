#pragma once

#include <QWidget>

#include "skin/EdgeGeometry.h"
#include "skin/RdFont.h"
#include "skin/RdSkinClass.h"

namespace qpt {

// What every skinned control has: a TRdFont, the skin link AllSkin (whose
// font part is linked below it), a switch that lets the mouse through, and
// geometry under the names the forms and skins use. The edges can be set from
// either side of the parent.
class TRdControl : public QWidget, public TEdgeGeometry<TRdControl> {
    Q_OBJECT
    Q_PROPERTY(int Left READ Left WRITE SetLeft STORED false)
    Q_PROPERTY(int Top READ Top WRITE SetTop STORED false)
    Q_PROPERTY(int Width READ Width WRITE SetWidth STORED false)
    Q_PROPERTY(int Height READ Height WRITE SetHeight STORED false)
    Q_PROPERTY(int Left_Right READ Left_Right WRITE SetLeft_Right STORED false)
    Q_PROPERTY(int Top_Bottom READ Top_Bottom WRITE SetTop_Bottom STORED false)
    Q_PROPERTY(int Left_Invert READ Left_Invert WRITE SetLeft_Invert STORED false)
    Q_PROPERTY(int Top_Invert READ Top_Invert WRITE SetTop_Invert STORED false)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible STORED false)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled STORED false)
    Q_PROPERTY(QString Hint READ Hint WRITE SetHint)
    Q_PROPERTY(bool HitTest READ HitTest WRITE SetHitTest)
    Q_PROPERTY(qpt::TRdFont* Font READ Font)
    Q_PROPERTY(qpt::TRdSkinClass* AllSkin READ AllSkin)

public:
    explicit TRdControl(QWidget* parent = nullptr);

    int Left() const { return x(); }
    int Top() const { return y(); }
    int Width() const { return width(); }
    int Height() const { return height(); }
    void SetLeft(int value) { move(value, y()); }
    void SetTop(int value) { move(x(), value); }
    void SetWidth(int value) { resize(qMax(value, 0), height()); }
    void SetHeight(int value) { resize(width(), qMax(value, 0)); }

    // Shown unless hidden itself, whatever its parents.
    bool Visible() const { return !isHidden(); }
    QString Hint() const { return toolTip(); }
    void SetHint(const QString& value) { setToolTip(value); }
    // False lets mouse events through to whatever lies below.
    bool HitTest() const { return !testAttribute(Qt::WA_TransparentForMouseEvents); }
    void SetHitTest(bool value) { setAttribute(Qt::WA_TransparentForMouseEvents, !value); }

    TRdFont* Font() const { return font_; }
    TRdSkinClass* AllSkin() const { return allSkin_; }

    // The skin alpha for this control's own drawing.
    int DrawAlpha() const { return allSkin_->Draw()->DrawAlpha(); }

protected:
    bool event(QEvent* event) override;
    // The font changed: the widget's own font follows, children that take
    // the parent font are told, and the control repaints.
    virtual void FontChanged();

private:
    void TakeParentFont();

    TRdFont* font_;
    TRdSkinClass* allSkin_;
};

}  // namespace qpt
