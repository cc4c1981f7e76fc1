#pragma once

#include <QWidget>

#include "imaging/IELayerTypes.h"

namespace qpt {

// A square filled with one colour: the style bar's current colour.
class TColorSwatch : public QWidget {
    Q_OBJECT
public:
    explicit TColorSwatch(QWidget* parent = nullptr) : QWidget(parent) {}

    TColor Color() const { return color_; }
    void Fill(TColor color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TColor color_ = clBlack;
};

// A TColor as the colour to paint with.
QColor SwatchQColor(TColor color);

}  // namespace qpt
