#pragma once

#include <QPointer>
#include <QWidget>

#include "skin/RdComboBoxList.h"
#include "skin/RdComboBoxPanel.h"
#include "skin/RdScrollBar.h"

namespace qpt {

// The window a skinned drop-down opens: a frameless popup with the list
// over a bordered panel and a vertical bar when the rows do not all fit.
// It closes on a click outside, on Escape or Return, and when the
// application loses the focus; Closed tells the owner either way.
class TRdComboboxListForm : public QWidget {
    Q_OBJECT

public:
    explicit TRdComboboxListForm(QWidget* owner);

    TRdComboBoxPanel* Bg() const { return bg_; }
    TRdComboBoxList* ListBox() const { return list_; }
    TRdScrollBar* VScroll() const { return bar_; }
    int ScrollBarWidth() const;

    // Sizes the form for `rows` visible rows, `width` wide, and places it
    // under `anchor` (screen pixels), or above it when the screen ends first.
    void Arrange(int width, int rows);
    void PopupAt(const QRect& anchor);

signals:
    void Closed();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void SyncBar();

    QPointer<QWidget> owner_;
    TRdComboBoxPanel* bg_;
    TRdComboBoxList* list_;
    TRdScrollBar* bar_;
};

}  // namespace qpt
