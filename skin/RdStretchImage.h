#pragma once

#include "skin/DesignRectProperty.h"
#include "skin/RdPaintBox.h"
#include "skin/RdPictureProperty.h"

namespace qpt {

// A paint box with two skin pictures: Picture_Bg stretched over the whole
// control, then Picture cut and stretched by StretchOption, so that its
// corners keep their size; OnPaint draws on top of both.
class TRdStretchImage : public TRdPaintBox {
    Q_OBJECT
    Q_PROPERTY(qpt::TRdPictureProperty* Picture_Bg READ Picture_Bg)
    Q_PROPERTY(qpt::TRdPictureProperty* Picture READ Picture)
    Q_PROPERTY(qpt::TDesignRectProperty* StretchOption READ StretchOption)

public:
    explicit TRdStretchImage(QWidget* parent = nullptr);

    TRdPictureProperty* Picture_Bg() const { return pictureBg_; }
    TRdPictureProperty* Picture() const { return picture_; }
    TDesignRectProperty* StretchOption() const { return stretchOption_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TRdPictureProperty* pictureBg_;
    TRdPictureProperty* picture_;
    TDesignRectProperty* stretchOption_;
};

}  // namespace qpt
