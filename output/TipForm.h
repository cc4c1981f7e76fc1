#pragma once

#include <QDialog>

class QTimer;

namespace qpt {

class TRdImageButton;
class TRdLabel;
class TRdPanel;

// The note after a copy: where the picture went, with a check box to never
// show it again. Modal; it closes by OK or by itself after ten seconds
// without the mouse on it, and is dragged by its panel.
class TTipForm : public QDialog {
    Q_OBJECT
public:
    explicit TTipForm(QWidget* parent = nullptr);
    ~TTipForm() override;

    // Runs the modal loop until the tip closes.
    int ShowModal();

    void FormShow();
    // Remembers a checked box in the settings and closes the tip.
    void Rd_btnOkClick();
    void tmrCloseTimer() { Rd_btnOkClick(); }

    TRdPanel* pnlMain = nullptr;
    TRdImageButton* RdBtn_MainBg = nullptr;
    TRdImageButton* Rd_btnOk = nullptr;
    TRdLabel* Label_Tip = nullptr;
    TRdImageButton* RdBtn_Check = nullptr;
    QTimer* tmrClose = nullptr;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LayOut();
    // The press that starts moving the window with the mouse.
    void StartMove(const QPoint& globalPress);
    bool FollowMouse(const QPoint& global);

    bool moving_ = false;
    QPoint moveOffset_;
};

}  // namespace qpt
