#include "skin/RdComboboxListForm.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>

namespace qpt {

namespace {

constexpr int kBorder = 1;
// Until a skin sizes the bar to its pictures.
constexpr int kBarThickness = 12;

}  // namespace

TRdComboboxListForm::TRdComboboxListForm(QWidget* owner)
    : QWidget(owner, Qt::Popup | Qt::FramelessWindowHint),
      owner_(owner),
      bg_(new TRdComboBoxPanel(this)),
      list_(new TRdComboBoxList(bg_)),
      bar_(new TRdScrollBar(bg_)) {
    setObjectName("ListForm");
    bg_->setObjectName("Bg");
    list_->setObjectName("ListBox");
    bar_->setObjectName("VScroll");
    setFocusProxy(list_);
    bar_->SetKind(TScrollBarModel::sbVertical);
    bar_->resize(kBarThickness, bar_->height());
    bar_->SetAutoArrow(false);
    bar_->Bar().OnPositionChanged = [this](int position) { list_->SetTopIndex(position); };
    connect(list_, &TRdComboBoxList::TopIndexChanged, this, &TRdComboboxListForm::SyncBar);
    connect(list_, &TRdComboBoxList::Chosen, this, &QWidget::hide);
    connect(list_, &TRdComboBoxList::Cancelled, this, &QWidget::hide);
}

int TRdComboboxListForm::ScrollBarWidth() const {
    return bar_->isVisibleTo(bg_) ? bar_->width() : 0;
}

void TRdComboboxListForm::Arrange(int width, int rows) {
    rows = std::max(rows, 1);
    const int listHeight = rows * list_->ItemHeight();
    resize(width, listHeight + 2 * kBorder);
    bg_->setGeometry(rect());
    const bool scrolls = list_->Count() > rows;
    const int barWidth = scrolls ? bar_->width() : 0;
    bar_->setVisible(scrolls);
    bar_->setGeometry(width - kBorder - barWidth, kBorder, barWidth, listHeight);
    list_->setGeometry(kBorder, kBorder, width - 2 * kBorder - barWidth, listHeight);
    list_->SetScrollBarWidth(barWidth);
    SyncBar();
}

void TRdComboboxListForm::SyncBar() {
    bar_->SetLargeChange(list_->VisibleCount());
    bar_->SetParams(0, list_->Count() - 1, list_->VisibleCount(), list_->TopIndex());
}

void TRdComboboxListForm::PopupAt(const QRect& anchor) {
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (!screen) screen = QGuiApplication::primaryScreen();
    QPoint place = anchor.bottomLeft() + QPoint(0, 1);
    if (screen) {
        const QRect room = screen->availableGeometry();
        if (place.y() + height() > room.bottom() + 1 && anchor.top() - height() >= room.top())
            place.setY(anchor.top() - height());
        place.setX(
            std::clamp(place.x(), room.left(), std::max(room.right() + 1 - width(), room.left())));
    }
    move(place);
    show();
    list_->setFocus(Qt::PopupFocusReason);
}

bool TRdComboboxListForm::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) hide();
    return QWidget::event(event);
}

// A click on the owner while the list is open only closes the list: handing
// the press on to the owner would open it again at once.
void TRdComboboxListForm::mousePressEvent(QMouseEvent* event) {
    const QPoint global = event->globalPosition().toPoint();
    const bool onOwner = owner_ && !rect().contains(event->position().toPoint()) &&
                         owner_->rect().contains(owner_->mapFromGlobal(global));
    setAttribute(Qt::WA_NoMouseReplay, onOwner);
    QWidget::mousePressEvent(event);
}

void TRdComboboxListForm::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    emit Closed();
}

}  // namespace qpt
