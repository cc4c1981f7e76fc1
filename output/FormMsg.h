#pragma once

#include <QWidget>
#include <cstdint>

class QTimer;

namespace qpt {

class TRdImageButton;
class TRdLabel;
class TRdPanel;

// The exit hint: one floating line over the pinned picture after the first
// Esc, gone by itself after about three seconds. It stays above the bars,
// takes no input and has no close button.
class TFormMsg : public QWidget {
    Q_OBJECT
public:
    explicit TFormMsg(QWidget* parent = nullptr);
    ~TFormMsg() override;

    // Fills in the caption (a long translation moves it up for a second
    // line) and scales the form.
    void FormCreate();
    // Fits the caption to its lines, once: done after the picture's first
    // paint, or earlier when the hint shows first.
    void MeasureTexts();
    void setVisible(bool visible) override;
    void ShowExitTip();
    // Hides the hint once it has been up for three seconds.
    void tmr_ExitTipTimer();

    TRdPanel* Panel_ExitTip = nullptr;
    TRdImageButton* RdBtn_ExitTipBg = nullptr;
    TRdLabel* lbl_ExitTipCap = nullptr;
    QTimer* tmr_ExitTip = nullptr;
    // The tick count when the hint was last shown.
    uint32_t ShowTick = 0;

private:
    void PlaceOverPinnedWindow();

    bool textsMeasured_ = false;
};

// The caption of the hint for a language text with its "%s".
QString ExitTipCaption(const QString& languageText);

}  // namespace qpt
