#pragma once

#include "skin/RdCustomControl.h"
#include "skin/ScrollBarControl.h"

namespace qpt {

// The windowed skinned scroll bar: it has a background of its own, so it
// can stand beside content that it does not cover.
class TRdScrollBar : public TScrollBarControl<TRdCustomControl> {
    Q_OBJECT
    Q_PROPERTY(qpt::TScrollBarModel::TScrollBarKind Kind READ Kind WRITE SetKind)
    Q_PROPERTY(qpt::TRdScrollBarImages* AllSkinImage READ AllSkinImage)
    Q_PROPERTY(bool AutoArrow READ AutoArrow WRITE SetAutoArrow)
    Q_PROPERTY(bool AllowArrow READ AllowArrow WRITE SetAllowArrow)
    Q_PROPERTY(bool AutoSize READ AutoSize WRITE SetAutoSize)
    Q_PROPERTY(bool AutoHide READ AutoHide WRITE SetAutoHide)
    Q_PROPERTY(bool AutoCenter READ AutoCenter WRITE SetAutoCenter)
    Q_PROPERTY(int Min READ Min WRITE SetMin)
    Q_PROPERTY(int Max READ Max WRITE SetMax)
    Q_PROPERTY(int PageSize READ PageSize WRITE SetPageSize)
    Q_PROPERTY(int Position READ Position WRITE SetPosition)
    Q_PROPERTY(int LargeChange READ LargeChange WRITE SetLargeChange)
    Q_PROPERTY(int SmallChange READ SmallChange WRITE SetSmallChange)

public:
    explicit TRdScrollBar(QWidget* parent = nullptr);
};

}  // namespace qpt
