#include "skin/RdComboBoxList.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include "skin/FillSkinRect.h"
#include "skin/SkinQColor.h"
#include "support/color/ColorNames.h"

namespace qpt {

namespace {

// The hint rule leaves this much room beyond the text before calling it cut.
constexpr int kHintSlack = 3;

}  // namespace

TRdComboBoxList::TRdComboBoxList(QWidget* parent)
    : TRdCustomControl(parent),
      itemColor_(clWindowText),
      itemHotColor_(clHighlightText),
      itemHotBgColor_(clHighlight) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

template <typename T>
void TRdComboBoxList::Change(T& field, const T& value) {
    if (field == value) return;
    field = value;
    update();
}

void TRdComboBoxList::SetItems(const QStringList& items) {
    items_ = items;
    itemIndex_ = -1;
    hoverIndex_ = -1;
    topIndex_ = 0;
    update();
}

void TRdComboBoxList::SetItemHeight(int value) {
    Change(itemHeight_, std::max(value, 1));
}

void TRdComboBoxList::SetItemIndex(int value) {
    Change(itemIndex_, value >= 0 && value < Count() ? value : -1);
}

void TRdComboBoxList::SetTopIndex(int value) {
    value = std::clamp(value, 0, MaxTopIndex());
    if (value == topIndex_) return;
    topIndex_ = value;
    update();
    emit TopIndexChanged(value);
}

void TRdComboBoxList::SetItemColor(quint32 value) {
    Change(itemColor_, value);
}
void TRdComboBoxList::SetItemHotColor(quint32 value) {
    Change(itemHotColor_, value);
}
void TRdComboBoxList::SetItemHotBgColor(quint32 value) {
    Change(itemHotBgColor_, value);
}
void TRdComboBoxList::SetTextOffX(int value) {
    Change(textOffX_, value);
}

int TRdComboBoxList::VisibleCount() const {
    return std::max(height() / itemHeight_, 1);
}

int TRdComboBoxList::ItemAtPos(const QPoint& point) const {
    if (!rect().contains(point)) return -1;
    const int index = topIndex_ + point.y() / itemHeight_;
    return index < Count() ? index : -1;
}

QRect TRdComboBoxList::ItemRect(int index) const {
    return QRect(0, (index - topIndex_) * itemHeight_, width(), itemHeight_);
}

void TRdComboBoxList::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(DrawAlpha() / 255.0);
    painter.setFont(font());
    const int last = std::min(topIndex_ + VisibleCount() + 1, Count());
    for (int index = topIndex_; index < last; ++index) {
        const QRect row = ItemRect(index);
        const bool hot = index == itemIndex_;
        if (hot)
            FillSkinRect(painter, row, itemHotBgColor_, itemHotBgColor_,
                         TGradientDirection::gdHorizontal);
        painter.setPen(SkinQColor(hot ? itemHotColor_ : itemColor_));
        const QRect text = row.adjusted(textOffX_, 0, 0, 0);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(items_[index], Qt::ElideRight, text.width()));
    }
}

void TRdComboBoxList::mouseMoveEvent(QMouseEvent* event) {
    HoverAt(event->position().toPoint(), event->globalPosition().toPoint());
}

void TRdComboBoxList::HoverAt(const QPoint& point, const QPoint& globalPoint) {
    const int index = ItemAtPos(point);
    if (index == hoverIndex_) return;
    hoverIndex_ = index;
    QString hint;
    if (index >= 0) {
        SetItemIndex(index);
        const int textWidth = fontMetrics().horizontalAdvance(items_[index]);
        if (showHint_ && width() <= textWidth + kHintSlack + scrollBarWidth_) hint = items_[index];
    }
    SetHint(hint);
    if (hint.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(globalPoint, hint, this, ItemRect(index));
}

void TRdComboBoxList::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int index = ItemAtPos(event->position().toPoint());
    if (index >= 0) emit Chosen(index);
}

void TRdComboBoxList::wheelEvent(QWheelEvent* event) {
    const int notches = event->angleDelta().y() / QWheelEvent::DefaultDeltasPerStep;
    SetTopIndex(topIndex_ - notches * QApplication::wheelScrollLines());
    event->accept();
}

void TRdComboBoxList::MoveSelection(int index) {
    if (Count() == 0) return;
    index = std::clamp(index, 0, Count() - 1);
    SetItemIndex(index);
    if (index < topIndex_) SetTopIndex(index);
    if (index >= topIndex_ + VisibleCount()) SetTopIndex(index - VisibleCount() + 1);
}

void TRdComboBoxList::keyPressEvent(QKeyEvent* event) {
    const int page = VisibleCount();
    switch (event->key()) {
        case Qt::Key_Up:
            MoveSelection(itemIndex_ - 1);
            break;
        case Qt::Key_Down:
            MoveSelection(itemIndex_ + 1);
            break;
        case Qt::Key_PageUp:
            MoveSelection(itemIndex_ - page + 1);
            break;
        case Qt::Key_PageDown:
            MoveSelection(itemIndex_ + page - 1);
            break;
        case Qt::Key_Home:
            MoveSelection(0);
            break;
        case Qt::Key_End:
            MoveSelection(Count() - 1);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (itemIndex_ >= 0)
                emit Chosen(itemIndex_);
            else
                emit Cancelled();
            break;
        case Qt::Key_Escape:
            emit Cancelled();
            break;
        default:
            TRdCustomControl::keyPressEvent(event);
            return;
    }
    event->accept();
}

}  // namespace qpt
