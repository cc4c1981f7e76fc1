#pragma once

#include "skin/RdPanel.h"

namespace qpt {

// The background of a drop-down list: the panel's fill inside a one-pixel
// border of BorderColor (clNone for none).
class TRdComboBoxPanel : public TRdPanel {
    Q_OBJECT
    Q_PROPERTY(quint32 BorderColor READ BorderColor WRITE SetBorderColor)

public:
    explicit TRdComboBoxPanel(QWidget* parent = nullptr);

    quint32 BorderColor() const { return borderColor_; }
    void SetBorderColor(quint32 value);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    quint32 borderColor_ = clNone;
};

}  // namespace qpt
