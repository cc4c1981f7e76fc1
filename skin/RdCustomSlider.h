#pragma once

#include <QPainter>
#include <functional>
#include <optional>

#include "skin/RdCustomControl.h"
#include "skin/RdPictureProperty.h"
#include "skin/SliderMapping.h"
#include "support/color/ColorNames.h"

namespace qpt {

class TRdTimer;

// A ruler with a thumb, drawn from skin pictures. The value follows the
// thumb when it is dragged, when the ruler is held (after half a second, one
// step every 100 ms towards the pointer) and with Home, End and the arrow
// keys along the axis. OnChange tells every change of Value, OnChanged the
// end of what the user did.
class TRdCustomSlider : public TRdCustomControl {
    Q_OBJECT

public:
    enum TSliderOrientation { soHorizontal, soVertical };
    Q_ENUM(TSliderOrientation)
    // soSmooth leaves a dragged or clicked value off the increment grid.
    enum TSliderOption { soShowFocusRect = 1, soShowPoints = 2, soSmooth = 4 };
    Q_DECLARE_FLAGS(TSliderOptions, TSliderOption)
    Q_FLAG(TSliderOptions)

    static constexpr int kRepeatInterval = 100;
    static constexpr int kRepeatDelay = 500;

    explicit TRdCustomSlider(QWidget* parent = nullptr);
    ~TRdCustomSlider() override;

    int Value() const { return value_; }
    void SetValue(int value);
    int MinValue() const { return minValue_; }
    void SetMinValue(int value);
    int MaxValue() const { return maxValue_; }
    void SetMaxValue(int value);
    int Increment() const { return increment_; }
    void SetIncrement(int value);
    TSliderOrientation Orientation() const { return orientation_; }
    void SetOrientation(TSliderOrientation value);
    TSliderOptions Options() const { return options_; }
    void SetOptions(TSliderOptions value);
    int NumThumbStates() const { return numThumbStates_; }
    void SetNumThumbStates(int value);  // 1 or 2
    int RulerSelectAdd() const { return rulerSelectAdd_; }
    void SetRulerSelectAdd(int value);
    int RulerIndent() const { return rulerIndent_; }
    void SetRulerIndent(int value);
    int Indent() const { return indent_; }
    void SetIndent(int value);
    int ThumbOff() const { return thumbOff_; }
    void SetThumbOff(int value);
    int EdgeSize() const { return edgeSize_; }
    void SetEdgeSize(int value);
    bool ReadOnly() const { return readOnly_; }
    void SetReadOnly(bool value) { readOnly_ = value; }
    bool Transparent() const { return transparent_; }
    void SetTransparent(bool value);
    quint32 Color() const { return color_; }
    void SetColor(quint32 value);
    // Every widget paints through a back buffer already; kept so that form
    // data naming it still loads.

    TRdPictureProperty* ImageHThumb() const { return hThumb_; }
    TRdPictureProperty* ImageHRuler() const { return hRuler_; }
    TRdPictureProperty* ImageVThumb() const { return vThumb_; }
    TRdPictureProperty* ImageVRuler() const { return vRuler_; }
    TRdPictureProperty* ImageRulerSelect() const { return rulerSelect_; }

    // Geometry, in client pixels.
    QRect RulerRect() const;
    QRect ThumbRect() const;
    TSliderScale Scale() const;
    bool ThumbHot() const { return thumbHot_; }
    // Lights the thumb as if the mouse were over it, for showing the states;
    // the next mouse move decides again.
    void SetThumbHot(bool value);
    bool ThumbDown() const { return thumbDown_; }
    bool RulerHeld() const { return rulerHeld_; }

    void StepValue(TSliderAction action);

    std::function<void(TRdCustomSlider& sender)> OnChange;
    std::function<void(TRdCustomSlider& sender)> OnChanged;
    // Replaces the ticks; `ruler` is where the ruler is drawn.
    std::function<void(TRdCustomSlider& sender, QPainter& canvas, const QRect& ruler)> OnDrawPoints;

    // The repeat of a held ruler press, for tests that step it.
    TRdTimer* RepeatTimer() const { return repeatTimer_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool Vertical() const { return orientation_ == soVertical; }
    bool Editable() const { return isEnabled() && !readOnly_; }
    TRdPictureProperty* ThumbPicture() const { return Vertical() ? vThumb_ : hThumb_; }
    TRdPictureProperty* RulerPicture() const { return Vertical() ? vRuler_ : hRuler_; }
    QSize ThumbSize() const;
    int ThumbPos() const;
    int Along(const QPoint& point) const { return Vertical() ? point.y() : point.x(); }
    template <typename T>
    void Change(T& field, const T& value);
    void ClampValue();

    void PaintRuler(QPainter& painter, const QRect& ruler) const;
    void PaintPoints(QPainter& painter, const QRect& ruler);
    void PaintThumb(QPainter& painter) const;

    void DragTo(const QPoint& point);
    void RepeatStep();
    void RepeatTick();
    void StopRepeat();

    int value_ = 0;
    int minValue_ = 0;
    int maxValue_ = 100;
    int increment_ = 1;
    TSliderOrientation orientation_ = soHorizontal;
    TSliderOptions options_;
    int numThumbStates_ = 1;
    int rulerSelectAdd_ = 0;
    int rulerIndent_ = 0;
    int indent_ = 0;
    int thumbOff_ = 0;
    int edgeSize_ = 0;
    bool readOnly_ = false;
    bool transparent_ = false;
    quint32 color_ = clBtnFace;

    TRdPictureProperty* hThumb_;
    TRdPictureProperty* hRuler_;
    TRdPictureProperty* vThumb_;
    TRdPictureProperty* vRuler_;
    TRdPictureProperty* rulerSelect_;

    bool thumbHot_ = false;
    bool thumbDown_ = false;
    int dragOffset_ = 0;
    int dragPos_ = 0;
    bool rulerHeld_ = false;
    QPoint heldPoint_;
    TSliderAction heldDirection_ = TSliderAction::None;
    TRdTimer* repeatTimer_;
    std::optional<uint32_t> repeatStart_;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(TRdCustomSlider::TSliderOptions)

}  // namespace qpt
