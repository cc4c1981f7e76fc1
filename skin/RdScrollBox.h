#pragma once

#include <QScrollArea>

#include "skin/RdScrollBar.h"

namespace qpt {

// A scroll box that shows two skinned bars, "HScroll" and "VScroll", in
// place of the platform's. The platform's bars stay hidden but keep doing
// the work: the box's range, wheel and keys move them, their range and
// value reach the skinned bars, and a skinned bar moved by the mouse moves
// them back. A bar's thickness is its Width (vertical) or Height
// (horizontal); the horizontal bar stops short of the corner by the
// vertical bar's width. Shown bars take their room from the content unless
// ScrollbarInnerMode lays them over it.
class TRdScrollBox : public QScrollArea {
    Q_OBJECT
    Q_PROPERTY(bool ScrollbarInnerMode READ ScrollbarInnerMode WRITE SetScrollbarInnerMode)
    Q_PROPERTY(TBorderStyle BorderStyle READ BorderStyle WRITE SetBorderStyle)
    Q_PROPERTY(qpt::TRdScrollBar* HScroll READ HScroll)
    Q_PROPERTY(qpt::TRdScrollBar* VScroll READ VScroll)

public:
    enum TBorderStyle { bsNone, bsSingle };
    Q_ENUM(TBorderStyle)

    static constexpr int kBarThickness = 17;

    explicit TRdScrollBox(QWidget* parent = nullptr);

    bool ScrollbarInnerMode() const { return innerMode_; }
    void SetScrollbarInnerMode(bool value);
    TBorderStyle BorderStyle() const { return borderStyle_; }
    void SetBorderStyle(TBorderStyle value);
    TRdScrollBar* HScroll() const { return hScroll_; }
    TRdScrollBar* VScroll() const { return vScroll_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TRdScrollBar* MakeBar(const QString& name, TScrollBarModel::TScrollBarKind kind);
    void Follow(Qt::Orientation orientation);
    void LayoutBars();

    TRdScrollBar* hScroll_;
    TRdScrollBar* vScroll_;
    bool innerMode_ = false;
    TBorderStyle borderStyle_ = bsNone;
    bool laying_ = false;
};

}  // namespace qpt
