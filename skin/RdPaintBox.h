#pragma once

#include <QPainter>
#include <functional>

#include "skin/RdGraphicControl.h"

namespace qpt {

// A skinned surface the form paints itself through OnPaint.
class TRdPaintBox : public TRdGraphicControl {
    Q_OBJECT

public:
    explicit TRdPaintBox(QWidget* parent = nullptr);

    std::function<void(TRdPaintBox& sender, QPainter& canvas)> OnPaint;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace qpt
