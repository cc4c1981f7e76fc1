#pragma once

#include <QImage>
#include <QWidget>

namespace qpt {

class TRdFormSkin;

// The window behind a skinned form that carries its soft shadow. It never
// takes the focus, the activation or the mouse, and shows the shadow picture
// composed into a premultiplied buffer. The buffer is kept with room to
// spare, so that dragging an edge of the form does not reallocate it at each
// step.
class TRdFormShadowBg : public QWidget {
    Q_OBJECT

public:
    // Extra pixels in each direction when the buffer has to grow.
    static constexpr int kBufferSlack = 200;

    explicit TRdFormShadowBg(TRdFormSkin* skin);

    TRdFormSkin* Skin() const { return skin_; }

    // The constant alpha (0..255) the shadow is shown with; it follows the
    // form's own.
    int AlphaBlendValue() const { return alphaBlend_; }
    void SetAlphaBlendValue(int value);
    // Applies the constant alpha, or 0 when the shadow has nothing to show.
    void ApplyAlpha(bool live);

    // Composes the shadow for the window's current size when that size or
    // the picture changed, and repaints.
    void Compose();
    // The picture or its slicing changed: the next Compose draws again.
    void Invalidate() { composedSize_ = QSize(); }

    const QImage& Buffer() const { return buffer_; }
    QSize ComposedSize() const { return composedSize_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void GrowBuffer(const QSize& size);

    TRdFormSkin* skin_;
    int alphaBlend_ = 255;
    QImage buffer_;
    QSize composedSize_;
};

}  // namespace qpt
