#pragma once

#include <QPoint>

#include "imaging/IEViewServices.h"

namespace qpt {

// Drags the selected layers by the pointer. The undo step is taken at the
// first move that changes a position, so a click on a layer costs none.
class TIELayerMoveInteraction {
public:
    explicit TIELayerMoveInteraction(TIEViewServices& view) : view_(view) {}

    bool Active() const { return layer_ >= 0; }
    bool Moved() const { return moved_; }
    // Starts a move of the selection, led by the given layer, at a press.
    void Begin(int layer, QPoint at);
    void Move(QPoint at);
    void End();

private:
    // Shifts one layer, held inside the picture when the view asks for it.
    void Shift(int index, QPoint delta);

    TIEViewServices& view_;
    int layer_ = -1;
    QPoint last_;
    bool moved_ = false;
};

}  // namespace qpt
