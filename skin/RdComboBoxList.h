#pragma once

#include <QStringList>

#include "skin/RdCustomControl.h"

namespace qpt {

// The list of a skinned drop-down: rows of ItemHeight, the selected row in
// ItemHotColor on ItemHotBgColor. The selection follows the mouse at once,
// and a row whose text does not fit shows it whole as a hint. A click or
// Return chooses the selected row, Escape gives up.
class TRdComboBoxList : public TRdCustomControl {
    Q_OBJECT
    Q_PROPERTY(int ItemHeight READ ItemHeight WRITE SetItemHeight)
    Q_PROPERTY(int ItemIndex READ ItemIndex WRITE SetItemIndex)
    Q_PROPERTY(int TopIndex READ TopIndex WRITE SetTopIndex)
    Q_PROPERTY(quint32 ItemColor READ ItemColor WRITE SetItemColor)
    Q_PROPERTY(quint32 ItemHotColor READ ItemHotColor WRITE SetItemHotColor)
    Q_PROPERTY(quint32 ItemHotBgColor READ ItemHotBgColor WRITE SetItemHotBgColor)
    Q_PROPERTY(int TextOffX READ TextOffX WRITE SetTextOffX)
    Q_PROPERTY(bool ShowHint READ ShowHint WRITE SetShowHint)

public:
    explicit TRdComboBoxList(QWidget* parent = nullptr);

    QStringList Items() const { return items_; }
    void SetItems(const QStringList& items);
    int Count() const { return static_cast<int>(items_.size()); }
    int ItemHeight() const { return itemHeight_; }
    void SetItemHeight(int value);
    // -1 for none.
    int ItemIndex() const { return itemIndex_; }
    void SetItemIndex(int value);
    int TopIndex() const { return topIndex_; }
    void SetTopIndex(int value);
    quint32 ItemColor() const { return itemColor_; }
    void SetItemColor(quint32 value);
    quint32 ItemHotColor() const { return itemHotColor_; }
    void SetItemHotColor(quint32 value);
    quint32 ItemHotBgColor() const { return itemHotBgColor_; }
    void SetItemHotBgColor(quint32 value);
    int TextOffX() const { return textOffX_; }
    void SetTextOffX(int value);
    bool ShowHint() const { return showHint_; }
    void SetShowHint(bool value) { showHint_ = value; }
    // The width of the bar beside the list, which the hint rule allows for.
    void SetScrollBarWidth(int value) { scrollBarWidth_ = value; }

    // Whole rows that fit; at least one.
    int VisibleCount() const;
    int MaxTopIndex() const { return std::max(Count() - VisibleCount(), 0); }
    // The row under a client point, -1 below the last row or outside.
    int ItemAtPos(const QPoint& point) const;
    QRect ItemRect(int index) const;

signals:
    void Chosen(int index);
    void Cancelled();
    void TopIndexChanged(int value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    template <typename T>
    void Change(T& field, const T& value);
    void HoverAt(const QPoint& point, const QPoint& globalPoint);
    void MoveSelection(int index);

    QStringList items_;
    int itemHeight_ = 16;
    int itemIndex_ = -1;
    int topIndex_ = 0;
    quint32 itemColor_;
    quint32 itemHotColor_;
    quint32 itemHotBgColor_;
    int textOffX_ = 2;
    bool showHint_ = true;
    int scrollBarWidth_ = 0;
    int hoverIndex_ = -1;
};

}  // namespace qpt
