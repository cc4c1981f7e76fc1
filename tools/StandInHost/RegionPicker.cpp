#include "RegionPicker.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace qpt::standin {

namespace {

// A press and release closer than this is a click, not a region.
constexpr int kDragThreshold = 3;

}  // namespace

RegionPicker::RegionPicker(QImage frozen, const QRect& screen) : frozen_(std::move(frozen)) {
    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool);
    setAttribute(Qt::WA_DeleteOnClose);
    setCursor(Qt::CrossCursor);
    setGeometry(screen);
}

void RegionPicker::Open() {
    show();
    activateWindow();
    grabKeyboard();
}

QRect RegionPicker::Selection() const {
    return QRect(from_, to_).normalized() & rect();
}

void RegionPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(0, 0, frozen_);
    const QRect chosen = dragging_ ? Selection() : QRect();
    // Everything but the region is veiled, so the region reads as lifted off.
    QRegion veil(rect());
    veil -= chosen;
    painter.setClipRegion(veil);
    painter.fillRect(rect(), QColor(0, 0, 0, 110));
    painter.setClipping(false);
    if (chosen.isEmpty()) return;
    painter.setPen(QPen(QColor(0x5A, 0xA9, 0xFF), 1));
    painter.drawRect(chosen.adjusted(-1, -1, 0, 0));
}

void RegionPicker::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    from_ = to_ = event->position().toPoint();
    dragging_ = true;
}

void RegionPicker::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_) return;
    to_ = event->position().toPoint();
    update();
}

void RegionPicker::mouseReleaseEvent(QMouseEvent* event) {
    if (!dragging_ || event->button() != Qt::LeftButton) return;
    dragging_ = false;
    to_ = event->position().toPoint();
    const bool click = (to_ - from_).manhattanLength() < kDragThreshold;
    const QRect region = click ? rect() : Selection();
    releaseKeyboard();
    hide();
    emit Picked(frozen_.copy(region), region.translated(geometry().topLeft()));
    close();
}

void RegionPicker::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return;
    releaseKeyboard();
    emit Cancelled();
    close();
}

}  // namespace qpt::standin
