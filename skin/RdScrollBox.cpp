#include "skin/RdScrollBox.h"

#include <QEvent>
#include <QScrollBar>

namespace qpt {

TRdScrollBox::TRdScrollBox(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    hScroll_ = MakeBar(QStringLiteral("HScroll"), TScrollBarModel::sbHorizontal);
    vScroll_ = MakeBar(QStringLiteral("VScroll"), TScrollBarModel::sbVertical);
    for (Qt::Orientation o : {Qt::Horizontal, Qt::Vertical}) {
        QScrollBar* native = o == Qt::Horizontal ? horizontalScrollBar() : verticalScrollBar();
        connect(native, &QScrollBar::rangeChanged, this, [this, o] { Follow(o); });
        connect(native, &QScrollBar::valueChanged, this, [this, o] { Follow(o); });
        Follow(o);
    }
    LayoutBars();
}

TRdScrollBar* TRdScrollBox::MakeBar(const QString& name, TScrollBarModel::TScrollBarKind kind) {
    auto* bar = new TRdScrollBar(this);
    bar->setObjectName(name);
    bar->SetKind(kind);
    bar->resize(kBarThickness, kBarThickness);
    bar->SetAutoArrow(false);
    bar->SetAutoHide(true);
    bar->installEventFilter(this);
    QScrollBar* native =
        kind == TScrollBarModel::sbVertical ? verticalScrollBar() : horizontalScrollBar();
    bar->Bar().OnPositionChanged = [native](int position) { native->setValue(position); };
    return bar;
}

void TRdScrollBox::SetScrollbarInnerMode(bool value) {
    if (innerMode_ == value) return;
    innerMode_ = value;
    LayoutBars();
}

void TRdScrollBox::SetBorderStyle(TBorderStyle value) {
    borderStyle_ = value;
    setFrameShape(value == bsNone ? QFrame::NoFrame : QFrame::Box);
    LayoutBars();
}

// The platform bar's page is the viewport, which is already at its new size
// whenever its range changes.
void TRdScrollBox::Follow(Qt::Orientation orientation) {
    const bool vertical = orientation == Qt::Vertical;
    const QScrollBar* native = vertical ? verticalScrollBar() : horizontalScrollBar();
    TRdScrollBar* bar = vertical ? vScroll_ : hScroll_;
    if (!bar) return;
    const int page = qMax(1, vertical ? viewport()->height() : viewport()->width());
    bar->SetLargeChange(page);
    bar->SetSmallChange(native->singleStep());
    bar->SetParams(native->minimum(), native->maximum() + page - 1, page, native->value());
}

void TRdScrollBox::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    Follow(Qt::Horizontal);
    Follow(Qt::Vertical);
    LayoutBars();
}

bool TRdScrollBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == hScroll_ || watched == vScroll_) {
        const QEvent::Type type = event->type();
        if (type == QEvent::ShowToParent || type == QEvent::HideToParent || type == QEvent::Resize)
            LayoutBars();
        return false;
    }
    return QScrollArea::eventFilter(watched, event);
}

namespace {

// The room the bars take: thickness of each, and whether it is shown.
struct TBarRoom {
    int vThick, hThick;
    bool vShown, hShown;
    bool operator==(const TBarRoom&) const = default;
};

TBarRoom RoomOf(const QWidget& v, const QWidget& h) {
    return {v.width(), h.height(), !v.isHidden(), !h.isHidden()};
}

}  // namespace

// A bar shown or hidden here changes the viewport and with it the ranges,
// which may show or hide a bar again: the layout is redone until it holds.
void TRdScrollBox::LayoutBars() {
    if (!hScroll_ || !vScroll_ || laying_) return;
    laying_ = true;
    TBarRoom room = RoomOf(*vScroll_, *hScroll_);
    for (int round = 0; round < 4; ++round) {
        const int vw = room.vShown ? room.vThick : 0, hh = room.hShown ? room.hThick : 0;
        if (innerMode_)
            setViewportMargins(0, 0, 0, 0);
        else
            setViewportMargins(0, 0, vw, hh);
        const QRect r = contentsRect();
        vScroll_->setGeometry(r.right() + 1 - room.vThick, r.top(), room.vThick, r.height());
        hScroll_->setGeometry(r.left(), r.bottom() + 1 - room.hThick, r.width() - vw, room.hThick);
        const TBarRoom now = RoomOf(*vScroll_, *hScroll_);
        if (now == room) break;
        room = now;
    }
    vScroll_->raise();
    hScroll_->raise();
    laying_ = false;
}

}  // namespace qpt
