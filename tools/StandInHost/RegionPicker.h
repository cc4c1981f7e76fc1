#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QWidget>

namespace qpt::standin {

// The host's capture, played by the demo: the primary screen frozen in a
// window over it, and a rectangle dragged on it. A click without a drag
// takes the whole screen; Esc takes nothing.
class RegionPicker : public QWidget {
    Q_OBJECT
public:
    // `frozen` is a grab of the screen whose desktop rectangle is `screen`.
    RegionPicker(QImage frozen, const QRect& screen);

    void Open();

signals:
    // The picture of the region and its rectangle in desktop coordinates.
    void Picked(const QImage& picture, const QRect& rect);
    void Cancelled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRect Selection() const;

    QImage frozen_;
    QPoint from_;
    QPoint to_;
    bool dragging_ = false;
};

}  // namespace qpt::standin
