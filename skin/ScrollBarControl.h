#pragma once

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "skin/RdScrollBarImages.h"
#include "skin/ScrollBarCore.h"

namespace qpt {

// The published properties of every scroll bar face, by the names skin lines
// use. The meta-object compiler takes no templates, so each concrete bar
// declares them through this one list.
#define QPT_SCROLL_BAR_PROPERTIES                                                 \
    Q_PROPERTY(qpt::TScrollBarModel::TScrollBarKind Kind READ Kind WRITE SetKind) \
    Q_PROPERTY(qpt::TRdScrollBarImages* AllSkinImage READ AllSkinImage)           \
    Q_PROPERTY(bool AutoArrow READ AutoArrow WRITE SetAutoArrow)                  \
    Q_PROPERTY(bool AllowArrow READ AllowArrow WRITE SetAllowArrow)               \
    Q_PROPERTY(bool AutoSize READ AutoSize WRITE SetAutoSize)                     \
    Q_PROPERTY(bool AutoHide READ AutoHide WRITE SetAutoHide)                     \
    Q_PROPERTY(bool AutoCenter READ AutoCenter WRITE SetAutoCenter)               \
    Q_PROPERTY(int Min READ Min WRITE SetMin)                                     \
    Q_PROPERTY(int Max READ Max WRITE SetMax)                                     \
    Q_PROPERTY(int PageSize READ PageSize WRITE SetPageSize)                      \
    Q_PROPERTY(int Position READ Position WRITE SetPosition)                      \
    Q_PROPERTY(int LargeChange READ LargeChange WRITE SetLargeChange)             \
    Q_PROPERTY(int SmallChange READ SmallChange WRITE SetSmallChange)

// The published face of a scroll bar over any skinned control base: the
// properties forward to the shared TScrollBarCore and the widget's events
// drive it. The windowed and the windowless bar differ only in their base.
template <class Base>
class TScrollBarControl : public Base, public TScrollBarEvents {
public:
    using TScrollBarKind = TScrollBarModel::TScrollBarKind;

    explicit TScrollBarControl(QWidget* parent) : Base(parent), core_(*this, *this) {
        this->setMouseTracking(true);
        this->resize(121, 17);
    }

    TScrollBarCore& Bar() { return core_; }
    const TScrollBarCore& Bar() const { return core_; }
    TRdScrollBarImages* AllSkinImage() const { return core_.Images(); }

    TScrollBarKind Kind() const { return core_.Kind(); }
    void SetKind(TScrollBarKind value) { core_.SetKind(value); }
    int Min() const { return core_.Model().Min(); }
    int Max() const { return core_.Model().Max(); }
    int PageSize() const { return core_.Model().PageSize(); }
    int Position() const { return core_.Model().Position(); }
    void SetMin(int value) { SetParams(value, Max(), PageSize(), Position()); }
    void SetMax(int value) { SetParams(Min(), value, PageSize(), Position()); }
    void SetPageSize(int value) { SetParams(Min(), Max(), value, Position()); }
    void SetPosition(int value) { SetParams(Min(), Max(), PageSize(), value); }
    // All four at once, so that no step in between clips the others.
    void SetParams(int min, int max, int page, int position) {
        core_.SetParams(min, max, page, position);
    }
    int LargeChange() const { return core_.Model().LargeChange(); }
    void SetLargeChange(int value) { core_.SetLargeChange(value); }
    int SmallChange() const { return core_.Model().SmallChange(); }
    void SetSmallChange(int value) { core_.SetSmallChange(value); }

    bool AutoArrow() const { return AllSkinImage()->AutoArrow(); }
    void SetAutoArrow(bool value) { AllSkinImage()->SetAutoArrow(value); }
    bool AllowArrow() const { return AllSkinImage()->AllowArrow(); }
    void SetAllowArrow(bool value) { AllSkinImage()->SetAllowArrow(value); }
    bool AutoSize() const { return AllSkinImage()->AutoSize(); }
    void SetAutoSize(bool value) { AllSkinImage()->SetAutoSize(value); }
    bool AutoHide() const { return AllSkinImage()->AutoHide(); }
    void SetAutoHide(bool value) { AllSkinImage()->SetAutoHide(value); }
    bool AutoCenter() const { return AllSkinImage()->AutoCenter(); }
    void SetAutoCenter(bool value) { AllSkinImage()->SetAutoCenter(value); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        PaintBar(painter);
    }
    // The skinned look; a host may draw around it.
    virtual void PaintBar(QPainter& painter) { core_.Paint(painter, this->DrawAlpha()); }
    void mousePressEvent(QMouseEvent* event) override {
        core_.Press(event->position().toPoint(), event->button());
    }
    void mouseMoveEvent(QMouseEvent* event) override { core_.Move(event->position().toPoint()); }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) core_.Release(event->position().toPoint());
    }
    void leaveEvent(QEvent* event) override {
        core_.Leave();
        Base::leaveEvent(event);
    }
    void wheelEvent(QWheelEvent* event) override {
        event->setAccepted(core_.Wheel(event->angleDelta()));
    }

private:
    TScrollBarCore core_;
};

}  // namespace qpt
