#pragma once

#include <functional>

#include "skin/RdGraphicControl.h"
#include "skin/ScrollBarControl.h"

namespace qpt {

// The windowless skinned scroll bar: it draws over whatever lies behind it,
// can be drawn by its owner instead of from its pictures, and lets its owner
// draw on top.
class TRdScrollBarEx : public TScrollBarControl<TRdGraphicControl> {
    Q_OBJECT
    QPT_SCROLL_BAR_PROPERTIES
    Q_PROPERTY(int WaitInterval READ WaitInterval WRITE SetWaitInterval)
    Q_PROPERTY(bool OwnerDraw READ OwnerDraw WRITE SetOwnerDraw)

public:
    explicit TRdScrollBarEx(QWidget* parent = nullptr);

    // How long a held arrow or page waits before it repeats, in ms.
    int WaitInterval() const { return Bar().WaitInterval(); }
    void SetWaitInterval(int value) { Bar().SetWaitInterval(value); }
    bool OwnerDraw() const { return ownerDraw_; }
    void SetOwnerDraw(bool value);

    using PaintHandler = std::function<void(TRdScrollBarEx& sender, QPainter& canvas)>;
    // Draws the bar instead of its pictures while OwnerDraw is set.
    PaintHandler OnDrawControl;
    // Draws over the finished bar.
    PaintHandler OnPaintEnd;
    std::function<void(TRdScrollBarEx& sender)> OnEnabledChange;

protected:
    void PaintBar(QPainter& painter) override;
    void changeEvent(QEvent* event) override;

private:
    bool ownerDraw_ = false;
};

}  // namespace qpt
