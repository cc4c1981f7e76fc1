#pragma once

#include "skin/RdCustomSlider.h"

namespace qpt {

// The slider as forms and skins see it: every setting by name.
class TRdSlider : public TRdCustomSlider {
    Q_OBJECT
    Q_PROPERTY(int RulerSelectAdd READ RulerSelectAdd WRITE SetRulerSelectAdd)
    Q_PROPERTY(int RulerIndent READ RulerIndent WRITE SetRulerIndent)
    Q_PROPERTY(int ThumbOff READ ThumbOff WRITE SetThumbOff)
    Q_PROPERTY(bool ReadOnly READ ReadOnly WRITE SetReadOnly)
    Q_PROPERTY(bool Transparent READ Transparent WRITE SetTransparent)
    Q_PROPERTY(quint32 Color READ Color WRITE SetColor)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageHThumb READ ImageHThumb)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageHRuler READ ImageHRuler)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageVThumb READ ImageVThumb)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageVRuler READ ImageVRuler)
    Q_PROPERTY(qpt::TRdPictureProperty* ImageRulerSelect READ ImageRulerSelect)
    Q_PROPERTY(int Increment READ Increment WRITE SetIncrement)
    Q_PROPERTY(int MinValue READ MinValue WRITE SetMinValue)
    Q_PROPERTY(int MaxValue READ MaxValue WRITE SetMaxValue)
    Q_PROPERTY(int NumThumbStates READ NumThumbStates WRITE SetNumThumbStates)
    Q_PROPERTY(
        qpt::TRdCustomSlider::TSliderOrientation Orientation READ Orientation WRITE SetOrientation)
    Q_PROPERTY(int EdgeSize READ EdgeSize WRITE SetEdgeSize)
    Q_PROPERTY(qpt::TRdCustomSlider::TSliderOptions Options READ Options WRITE SetOptions)
    Q_PROPERTY(int Value READ Value WRITE SetValue)
    Q_PROPERTY(int Indent READ Indent WRITE SetIndent)

public:
    using TRdCustomSlider::TRdCustomSlider;
};

}  // namespace qpt
