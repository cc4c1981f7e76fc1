#pragma once

#include "skin/ChangeNotifier.h"

namespace qpt {

// The rounding of a form's corners: the width and height of the ellipse each
// corner is cut with. Zero in either keeps the corners square.
class TEllipseSize : public TChangeNotifier {
    Q_OBJECT
    Q_PROPERTY(int Width READ Width WRITE SetWidth)
    Q_PROPERTY(int Height READ Height WRITE SetHeight)

public:
    explicit TEllipseSize(QObject* parent = nullptr) : TChangeNotifier(parent) {}

    int Width() const { return width_; }
    int Height() const { return height_; }
    void SetWidth(int value) { Change(width_, qMax(value, 0)); }
    void SetHeight(int value) { Change(height_, qMax(value, 0)); }
    bool Rounded() const { return width_ > 0 && height_ > 0; }

private:
    int width_ = 0;
    int height_ = 0;
};

}  // namespace qpt
