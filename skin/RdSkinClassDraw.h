#pragma once

#include <QObject>
#include <algorithm>

namespace qpt {

// How a skinned control draws itself over what is behind it.
class TRdSkinClassDraw : public QObject {
    Q_OBJECT
    Q_PROPERTY(int DrawAlpha READ DrawAlpha WRITE SetDrawAlpha)
    Q_PROPERTY(int DrawScale READ DrawScale WRITE SetDrawScale)

public:
    using QObject::QObject;

    int DrawAlpha() const { return alpha_; }
    void SetDrawAlpha(int value) {
        value = std::clamp(value, 0, 255);
        if (value == alpha_) return;
        alpha_ = value;
        emit Changed();
    }
    // In percent of the control's own size.
    int DrawScale() const { return scale_; }
    void SetDrawScale(int value) {
        value = std::max(value, 1);
        if (value == scale_) return;
        scale_ = value;
        emit Changed();
    }

signals:
    void Changed();

private:
    int alpha_ = 255;
    int scale_ = 100;
};

}  // namespace qpt
