#pragma once

#include <QPointer>
#include <QWidget>

namespace qpt {

class TMenuHost;
class TMenuItem;
class TRdMenuCtrl;

// The frameless popup window of one menu level: the level's control inside
// the form border and, with DropShadow, the shadow picture around it. A press
// outside every level closes the whole menu, as a platform menu does.
class TRdMenuForm : public QWidget {
    Q_OBJECT

public:
    TRdMenuForm(TMenuHost* menu, TMenuItem* level, TRdMenuForm* parentForm);

    TRdMenuCtrl* Ctrl() const { return ctrl_; }
    TRdMenuForm* ParentForm() const { return parentForm_; }
    // Takes the size of the control plus border and shadow.
    void Measure();

signals:
    void Gone(TRdMenuForm* form);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QMargins Margins() const;
    // The level on show under a screen point, the highest first.
    TRdMenuForm* LevelAt(const QPoint& globalPos) const;

    TMenuHost* menu_;
    QPointer<TRdMenuForm> parentForm_;
    TRdMenuCtrl* ctrl_;
};

}  // namespace qpt
