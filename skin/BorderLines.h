#pragma once

#include "skin/ChangeNotifier.h"
#include "support/color/ColorNames.h"

namespace qpt {

// Lines a form skin draws along the chosen edges of its form, over the form's
// own background; a sub-object so that skin lines reach its fields by name.
class TBorderLines : public TChangeNotifier {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(quint32 Color READ Color WRITE SetColor)
    Q_PROPERTY(int Width READ Width WRITE SetWidth)
    Q_PROPERTY(bool Left READ Left WRITE SetLeft)
    Q_PROPERTY(bool Right READ Right WRITE SetRight)
    Q_PROPERTY(bool Top READ Top WRITE SetTop)
    Q_PROPERTY(bool Bottom READ Bottom WRITE SetBottom)

public:
    explicit TBorderLines(QObject* parent = nullptr) : TChangeNotifier(parent) {}

    bool Enabled() const { return enabled_; }
    quint32 Color() const { return color_; }
    int Width() const { return width_; }
    bool Left() const { return left_; }
    bool Right() const { return right_; }
    bool Top() const { return top_; }
    bool Bottom() const { return bottom_; }

    void SetEnabled(bool value) { Change(enabled_, value); }
    void SetColor(quint32 value) { Change(color_, value); }
    void SetWidth(int value) { Change(width_, qMax(value, 0)); }
    void SetLeft(bool value) { Change(left_, value); }
    void SetRight(bool value) { Change(right_, value); }
    void SetTop(bool value) { Change(top_, value); }
    void SetBottom(bool value) { Change(bottom_, value); }

private:
    bool enabled_ = false;
    quint32 color_ = clWindowFrame;
    int width_ = 1;
    bool left_ = true;
    bool right_ = true;
    bool top_ = true;
    bool bottom_ = true;
};

}  // namespace qpt
