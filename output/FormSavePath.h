#pragma once

#include <QWidget>
#include <functional>

namespace qpt {

class TRdEdit;
class TRdImageButton;

// The small panel that opens under the toolbar from the save button's drop
// arrow: the folder where screenshots go, a button to choose another one,
// and the tick that saves there without asking. Both are stored in the
// settings as soon as they change. It takes the style bar's place; at most
// one of the two is on the screen.
class TFormSavePath : public QWidget {
    Q_OBJECT
public:
    explicit TFormSavePath(QWidget* parent = nullptr);
    ~TFormSavePath() override;

    // Takes the tick and the folder from the settings (the pictures
    // folder's "Zelk Screenshot" when none is set) and sets the panel up,
    // after the picture's first paint when the session awaits it.
    void FormCreate();
    // Makes, scales and fills the controls, once: the text field and the
    // tick's measured caption load the font database, which the picture
    // need not wait for. Whoever places the panel before showing it calls
    // this first, so that its size is the scaled one.
    void SetUp();
    void ApplyLanguage();
    void setVisible(bool visible) override;

    // The tick was clicked: the setting follows it at once.
    void chbtn_alwaysClick();
    // Lets the user choose another folder; one that is not on a local,
    // fixed disk is refused with a message.
    void btn_browseSavePathClick();
    // Hides the panel and puts the toolbar back next to the picture.
    void btn_pthpnl_closeClick();
    void RdBtn_SaveBarBgMouseDown();

    // The folder as the panel shows it, and the tick, for the save.
    QString SavePathText() const;
    bool AlwaysSave() const;

    // A press on the panel's background dismisses the toolbar's share menu;
    // set by whoever made both forms.
    std::function<void()> OnBackgroundPress;

    QWidget* pnl_defSavePath = nullptr;
    TRdImageButton* RdBtn_SaveBarBg = nullptr;
    TRdImageButton* btn_browseSavePath = nullptr;
    TRdImageButton* chbtn_always = nullptr;
    TRdImageButton* btn_pthpnl_close = nullptr;
    TRdEdit* edit_savepath = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateComponents();
    // The panel and the forms it stands with, above other windows or not.
    void SetFormsOnTop(bool onTop);
    void EndBrowsing();

    QString folder_;
    bool always_ = false;
};

}  // namespace qpt
