#pragma once

#include <QPainter>
#include <functional>

#include "skin/RdGraphicControl.h"
#include "skin/RdPictureProperty.h"

namespace qpt {

// Shows one skin picture with its alpha: at its own size in the top left
// corner, centred, or stretched (keeping its proportions when asked).
// OnPaint draws below the picture, OnPaintEnd above it.
class TRdImage : public TRdGraphicControl {
    Q_OBJECT
    Q_PROPERTY(qpt::TRdPictureProperty* Picture READ Picture)
    Q_PROPERTY(bool Stretch READ Stretch WRITE SetStretch)
    Q_PROPERTY(bool Center READ Center WRITE SetCenter)
    Q_PROPERTY(bool Proportional READ Proportional WRITE SetProportional)

public:
    explicit TRdImage(QWidget* parent = nullptr);

    TRdPictureProperty* Picture() const { return picture_; }
    bool Stretch() const { return stretch_; }
    void SetStretch(bool value);
    bool Center() const { return center_; }
    void SetCenter(bool value);
    bool Proportional() const { return proportional_; }
    void SetProportional(bool value);

    // Where the picture lands inside the control; empty without a picture.
    QRect DestRect() const;

    using PaintHandler = std::function<void(TRdImage& sender, QPainter& canvas)>;
    PaintHandler OnPaint;
    PaintHandler OnPaintEnd;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Change(bool& field, bool value);

    TRdPictureProperty* picture_;
    bool stretch_ = false;
    bool center_ = false;
    bool proportional_ = false;
};

}  // namespace qpt
