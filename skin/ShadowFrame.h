#pragma once

#include <QMargins>

#include "skin/ChangeNotifier.h"

namespace qpt {

// Margins of a form's shadow window around the form, as a sub-object so that
// skin lines such as "ShadowFrame.Left=15" reach them. Width and Height are
// kept for forms that store them; the shadow uses the four margins.
class TShadowFrame : public TChangeNotifier {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(int Left READ Left WRITE SetLeft)
    Q_PROPERTY(int Right READ Right WRITE SetRight)
    Q_PROPERTY(int Top READ Top WRITE SetTop)
    Q_PROPERTY(int Bottom READ Bottom WRITE SetBottom)
    Q_PROPERTY(int Width READ Width WRITE SetWidth)
    Q_PROPERTY(int Height READ Height WRITE SetHeight)

public:
    explicit TShadowFrame(QObject* parent = nullptr) : TChangeNotifier(parent) {}

    bool Enabled() const { return enabled_; }
    int Left() const { return left_; }
    int Right() const { return right_; }
    int Top() const { return top_; }
    int Bottom() const { return bottom_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    QMargins Margins() const { return QMargins(left_, top_, right_, bottom_); }

    void SetEnabled(bool value) { Change(enabled_, value); }
    // A negative margin would put the shadow inside the form: read as 0.
    void SetLeft(int value) { Change(left_, qMax(value, 0)); }
    void SetRight(int value) { Change(right_, qMax(value, 0)); }
    void SetTop(int value) { Change(top_, qMax(value, 0)); }
    void SetBottom(int value) { Change(bottom_, qMax(value, 0)); }
    void SetWidth(int value) { Change(width_, value); }
    void SetHeight(int value) { Change(height_, value); }
    void SetAll(int margin) {
        SetLeft(margin);
        SetTop(margin);
        SetRight(margin);
        SetBottom(margin);
    }

private:
    bool enabled_ = false;
    int left_ = 0;
    int right_ = 0;
    int top_ = 0;
    int bottom_ = 0;
    int width_ = 0;
    int height_ = 0;
};

}  // namespace qpt
