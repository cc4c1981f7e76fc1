#pragma once

#include <QWidget>

namespace qpt {

// The far-edge geometry that forms and skins set on controls of every base
// class: Left_Right is Left + Width, Top_Bottom is Top + Height, Left_Invert
// and Top_Invert the distance from the parent's right and bottom edges.
// Setting one moves the control so that the value holds; without a parent
// the far edge is at 0. A control inherits it next to its Qt base and
// declares the properties itself, since they must sit under its Q_OBJECT.
template <class Control>
class TEdgeGeometry {
public:
    int Left_Right() const { return Self().x() + Self().width(); }
    int Top_Bottom() const { return Self().y() + Self().height(); }
    int Left_Invert() const { return ParentWidth() - Left_Right(); }
    int Top_Invert() const { return ParentHeight() - Top_Bottom(); }
    void SetLeft_Right(int value) { Self().move(value - Self().width(), Self().y()); }
    void SetTop_Bottom(int value) { Self().move(Self().x(), value - Self().height()); }
    void SetLeft_Invert(int value) { SetLeft_Right(ParentWidth() - value); }
    void SetTop_Invert(int value) { SetTop_Bottom(ParentHeight() - value); }

private:
    const QWidget& Self() const { return static_cast<const Control&>(*this); }
    QWidget& Self() { return static_cast<Control&>(*this); }
    int ParentWidth() const { return Self().parentWidget() ? Self().parentWidget()->width() : 0; }
    int ParentHeight() const { return Self().parentWidget() ? Self().parentWidget()->height() : 0; }
};

}  // namespace qpt
