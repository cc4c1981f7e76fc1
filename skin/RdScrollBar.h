#pragma once

#include "skin/RdCustomControl.h"
#include "skin/ScrollBarControl.h"

namespace qpt {

// The windowed skinned scroll bar: it has a background of its own, so it
// can stand beside content that it does not cover.
class TRdScrollBar : public TScrollBarControl<TRdCustomControl> {
    Q_OBJECT
    QPT_SCROLL_BAR_PROPERTIES

public:
    explicit TRdScrollBar(QWidget* parent = nullptr);
};

}  // namespace qpt
