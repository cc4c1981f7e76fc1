#pragma once

#include <QFont>
#include <QPointer>

#include "skin/MenuHost.h"
#include "skin/RdCustomControl.h"

namespace qpt {

class TMenuItem;

// One level of a skinned popup menu: the entries of one item, painted by the
// menu's skin values, with a hot entry that the mouse and the keys move.
class TRdMenuCtrl : public TRdCustomControl {
    Q_OBJECT

public:
    TRdMenuCtrl(TMenuHost* menu, TMenuItem* level, QWidget* parent = nullptr);

    TMenuItem* Level() const { return level_; }
    // The numbers of this level, with the icon size and the bar it has.
    TMenuMetrics Metrics() const;
    bool HasIconBar() const;
    // Measures the entries again and takes the size they need.
    void Measure();
    const TMenuLayout& Layout() const { return layout_; }
    // The rectangle an entry paints over; empty when hidden or unknown.
    QRect ItemRect(int index) const;
    // The entry under a point of the control, -1 for none.
    int ItemAt(const QPoint& pos) const;

    int HotIndex() const { return hot_; }
    // Only a selectable entry (or -1) can be hot.
    void SetHotIndex(int index);
    // The level window opened from an entry of this one, while it is up.
    QWidget* SubForm() const;
    // The mouse is over `pos` (control coordinates), also while a higher
    // level holds the mouse.
    void HoverAt(const QPoint& pos);
    // Lights the entry `step` selectable entries on, wrapping round.
    void MoveHot(int step);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    bool Accelerate(QChar letter);
    // Chooses the entry, or opens its entries; `fromKeyboard` makes the
    // first entry of the opened level hot.
    void Activate(int index, bool fromKeyboard);
    void OpenSub(int index, bool fromKeyboard);
    void CloseSub();
    // The entry's font: disabled, hot or normal.
    const TRdFont* RowFont(const TMenuItem& item, bool hot) const;
    // Bold for the default entry.
    static QFont CaptionFont(const TRdFont& font, const TMenuItem& item);

    void PaintIconBar(QPainter& painter, const TMenuMetrics& m) const;
    void PaintHot(QPainter& painter) const;
    void PaintItem(QPainter& painter, const TMenuMetrics& m, int index) const;
    void PaintSeparator(QPainter& painter, const TMenuMetrics& m, const QRect& paint) const;
    void PaintIcon(QPainter& painter, const TMenuMetrics& m, const TMenuItem& item,
                   const QRect& paint) const;
    void PaintCheck(QPainter& painter, const TMenuMetrics& m, const TMenuItem& item,
                    const QRect& paint, const QColor& ink) const;
    void PaintArrow(QPainter& painter, const TMenuMetrics& m, const QRect& paint,
                    const QColor& ink) const;
    quint32 VertLineColor() const;

    TMenuHost* menu_;
    TMenuItem* level_;
    TMenuLayout layout_;
    int hot_ = -1;
    int subIndex_ = -1;
    QPointer<QWidget> sub_;
};

}  // namespace qpt
