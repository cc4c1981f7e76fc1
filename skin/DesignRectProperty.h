#pragma once

#include <QObject>

#include "skin/DesignRect.h"

namespace qpt {

// The slicing of a control's pictures as a sub-object, so that skin lines
// such as "ImageOption.Left=4" reach its fields by name.
class TDesignRectProperty : public QObject {
    Q_OBJECT
    Q_PROPERTY(int Left READ Left WRITE SetLeft)
    Q_PROPERTY(int Top READ Top WRITE SetTop)
    Q_PROPERTY(int Right READ Right WRITE SetRight)
    Q_PROPERTY(int Bottom READ Bottom WRITE SetBottom)
    Q_PROPERTY(TStretchMode StretchMode READ StretchMode WRITE SetStretchMode)

public:
    // The names a skin writes for TSuperStretchMode, in its order.
    enum TStretchMode { sdmDefault, sdmStretch, sdmFill, sdmFrame };
    Q_ENUM(TStretchMode)

    explicit TDesignRectProperty(QObject* parent = nullptr);

    TDesignRect& Rect() { return rect_; }
    const TDesignRect& Rect() const { return rect_; }

    int Left() const { return rect_.Left(); }
    int Top() const { return rect_.Top(); }
    int Right() const { return rect_.Right(); }
    int Bottom() const { return rect_.Bottom(); }
    TStretchMode StretchMode() const { return static_cast<TStretchMode>(rect_.StretchMode()); }
    void SetLeft(int value) { rect_.SetLeft(value); }
    void SetTop(int value) { rect_.SetTop(value); }
    void SetRight(int value) { rect_.SetRight(value); }
    void SetBottom(int value) { rect_.SetBottom(value); }
    void SetStretchMode(TStretchMode value);

signals:
    void Changed();

private:
    TDesignRect rect_;
};

}  // namespace qpt
