#pragma once

#include "skin/RdControl.h"

namespace qpt {

// A skinned control that only paints: it never takes the keyboard focus and
// leaves its background to its parent, so pictures with alpha show what lies
// behind them.
class TRdGraphicControl : public TRdControl {
    Q_OBJECT

public:
    explicit TRdGraphicControl(QWidget* parent = nullptr);
};

}  // namespace qpt
