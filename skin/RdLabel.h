#pragma once

#include "skin/RdCustomLabel.h"

namespace qpt {

// The label the forms and skins name.
class TRdLabel : public TRdCustomLabel {
    Q_OBJECT

public:
    explicit TRdLabel(QWidget* parent = nullptr);
};

}  // namespace qpt
