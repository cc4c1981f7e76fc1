#pragma once

#include <QRect>
#include <QStringList>
#include <QWidget>
#include <cstdint>
#include <memory>

#include "output/OutputBar.h"

class QLabel;

namespace qpt {

class TMenuItem;
class TRdImage;
class TRdImageButton;
class TRdImageNote;
class TRdImageNoteList;
class TRdSkinHint;
class TRdSkinMenu;
class TAppEventMsg;
class TSaveFlow;
struct TToolRow;

// The floating bar of the pinned picture: zoom, the size of the view, the
// seven drawing tools, undo, exit, share, image search, copy and save. It
// sits outside the picture, normally just under its lower right corner, and
// the user cannot move it.
class TFormTools : public QWidget, public TOutputBar {
    Q_OBJECT
public:
    explicit TFormTools(QWidget* parent = nullptr);
    ~TFormTools() override;

    // Finds the host, takes the red dot off the search button once it has
    // been seen, sets the texts and scales the bar.
    void FormCreate();
    // Hints and captions in the current language.
    void ApplyLanguage();
    // Lays the controls out from left to right for the pinned window's
    // rectangle (screen coordinates), and keeps that rectangle.
    void UpdateBarLayout(const QRect& pinned);
    // Places the bar against the picture and the screens, and shows it above
    // the other windows; a bar that was hidden forgets which tool's style bar
    // was open.
    void ShowBar();

    // The bar's background and labels: clicks there only raise the path
    // panel while its folder dialog is up.
    void Image_BarBgMouseDown();
    // Keeps the share menu's window on the screen.
    void Menu_ShareShow();
    // Puts every tool button back to normal, unless the style bar is up.
    void ResetToolButtons();

    // The zoom buttons: one step of the table, then the resize is asked of
    // the pinned window after the click has returned.
    void Rdbtn_enlargeClick();
    void Rdbtn_shrinkClick();
    void Btn_Rd_ShareClick();

    // The seven tools: the first click arms the tool and opens the style bar
    // arranged for it, a second click on the same button disarms it and
    // closes the bar; a click on another tool moves the selection.
    void Btn_Rd_RectClick();
    void Btn_Rd_EllipClick();
    void Btn_Rd_LineClick();
    void Btn_Rd_ArrowClick();
    void Btn_Rd_BrushClick();
    void Btn_Rd_MosaicClick();
    void Btn_Rd_FontClick();
    // The style bar beside the toolbar while it is up; else the toolbar goes
    // back next to the picture.
    void PlaceStyleBar();
    // One step of undo.
    void Btn_Rd_ReturnClick();
    // Throws the picture away: the session ends at once.
    void Btn_Rd_DelClick();
    // Every key press of the process passes here first and goes on to its
    // window: Esc leaves (twice once something was drawn), Ctrl+Z undoes,
    // Ctrl+C copies and Ctrl+S saves, while the toolbar is up.
    void AppEvent_MsgMessage(int key, Qt::KeyboardModifiers modifiers);
    // The ways out by the clipboard and by a file; also Ctrl+C and Ctrl+S.
    void Btn_Rd_CopyClick();
    void Rd_SaveClick();
    // Opens the save-path panel in the style bar's place, or closes it.
    void btn_save_dropClick();
    // Burns every annotation into the picture: before each way out, when the
    // pixelation starts, and when the program loses the activation.
    void InitPicSave();
    // When the style bar is up: it goes, the tool buttons lose their
    // selection and the tool toggles are cleared. The armed tool stays.
    void CloseStyleBar() override;
    void SetSaveButtonState(int state) override;
    void SetCopyButtonState(int state) override;
    // The share menu and the image search upload the flattened picture and
    // open the page for their kind; the process ends when that is done.
    void MenuFacebookClick();
    void MenuTwitterClick();
    void MenuPinterestClick();
    void MenuImgurClick();
    void Btn_Rd_GoogleClick();
    // The upload window's report: 1 after a share that leaves the link on
    // the clipboard, which the host is told of. Then the process ends.
    void ShareFinished(int wParam);

    // The seven tool buttons, in the order of the bar.
    QList<TRdImageButton*> ToolButtons() const;

    // The Esc presses answered with the exit tip; never reset.
    int EscCount = 0;
    TAppEventMsg* AppEvent_Msg = nullptr;
    // The pinned window's rectangle at the last layout: left, top and the
    // edges just past its right and bottom.
    QRect PictureRect;

    QWidget* Panel_Tools = nullptr;
    TRdImageButton* Image_BarBg = nullptr;
    TRdImageButton* Btn_Rd_Rect = nullptr;
    TRdImageButton* Btn_Rd_Ellip = nullptr;
    TRdImageButton* Btn_Rd_Font = nullptr;
    TRdImageButton* Btn_Rd_Brush = nullptr;
    TRdImageButton* Btn_Rd_Return = nullptr;
    TRdImageButton* Btn_Rd_Copy = nullptr;
    TRdImageButton* Btn_Rd_Del = nullptr;
    TRdImageButton* Rd_Save = nullptr;
    TRdImage* Image_BarDiv3 = nullptr;
    // Null until made after the picture's first paint, or when the bar is
    // laid out before that.
    QLabel* lbl_WinSize = nullptr;
    TRdImage* Image_BarDiv1 = nullptr;
    TRdImage* Image_BarDiv2 = nullptr;
    TRdImageButton* btn_save_drop = nullptr;
    TRdImageButton* Btn_Rd_Share = nullptr;
    TRdImageButton* Rd_WordSave = nullptr;
    TRdImageButton* Rd_WordCopy = nullptr;
    TRdImageButton* Rdbtn_enlarge = nullptr;
    TRdImageButton* Rdbtn_shrink = nullptr;
    TRdImageButton* Btn_Rd_Google = nullptr;
    TRdImageButton* Btn_Rd_Mosaic = nullptr;
    TRdImageButton* Btn_Rd_Line = nullptr;
    TRdImageButton* Btn_Rd_Arrow = nullptr;
    QLabel* lbl_Porportion = nullptr;

    TRdSkinMenu* Menu_Share = nullptr;
    TMenuItem* MenuFacebook = nullptr;
    TMenuItem* MenuTwitter = nullptr;
    TMenuItem* MenuPinterest = nullptr;
    TMenuItem* MenuImgur = nullptr;
    TRdImageNoteList* ImgNoteList_Share = nullptr;
    TRdImageNote* ImgNote_Share = nullptr;
    TRdSkinHint* Hint_share = nullptr;

protected:
    bool event(QEvent* event) override;

private:
    void CreateComponents();
    void CreateToolButtons();
    void CreateOutputButtons();
    void CreateZoomControls();
    void MakeLabels();
    void CreateShareMenu();
    void ConnectClicks();
    void ConnectOverlays();
    void ScaleBar();
    void PlaceBar();
    void UpdateLabels();
    // Raises the path panel while its folder dialog is up; true when that
    // was all a click may do.
    bool FolderDialogHoldsClicks() const;
    void ActivateTool(int32_t toolId);
    void ArmPixelation();
    void ArmLayerTool(const TToolRow& tool);
    void EscPressed();
    void ShareBy(int kind);
    // The dot marks the search as new until it has been used once.
    void TakeOffSearchDot();

    // Kept between saves, as the save dialog keeps its last filter.
    std::unique_ptr<TSaveFlow> saveFlow_;
};

}  // namespace qpt
