#pragma once

#include <QPainter>
#include <functional>

#include "skin/RdCustomControl.h"
#include "support/color/ColorNames.h"

namespace qpt {

// A skinned container: filled with Color, or with a gradient from Color to
// ColorTo (across, or down with ColorToVert), its Caption centred in its font,
// and OnPaint last for whatever the form adds.
class TRdPanel : public TRdCustomControl {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(quint32 Color READ Color WRITE SetColor)
    Q_PROPERTY(quint32 ColorTo READ ColorTo WRITE SetColorTo)
    Q_PROPERTY(bool ColorToVert READ ColorToVert WRITE SetColorToVert)

public:
    explicit TRdPanel(QWidget* parent = nullptr);

    QString Caption() const { return caption_; }
    void SetCaption(const QString& value);
    quint32 Color() const { return color_; }
    void SetColor(quint32 value);
    quint32 ColorTo() const { return colorTo_; }
    void SetColorTo(quint32 value);
    bool ColorToVert() const { return colorToVert_; }
    void SetColorToVert(bool value);

    std::function<void(TRdPanel& sender, QPainter& canvas)> OnPaint;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    template <typename T>
    void Change(T& field, const T& value);

    QString caption_;
    quint32 color_ = clBtnFace;
    quint32 colorTo_ = clDefault;
    bool colorToVert_ = false;
};

}  // namespace qpt
