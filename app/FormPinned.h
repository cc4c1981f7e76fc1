#pragma once

#include <QStringList>
#include <QWidget>

#include "app/HandOver.h"
#include "app/PinnedBars.h"
#include "app/ScreenLayout.h"
#include "imaging/IELayerTypes.h"
#include "skin/RdScrollBox.h"

namespace qpt {

class TIEImageView;
class TRdFormSkin;
class TRdSkinStyle;

// The main form: the captured picture, borderless and above other windows,
// at the very place it was captured, one picture pixel per screen pixel.
// The left button drags it; the bars float around it.
class TFormPinned : public QWidget {
    Q_OBJECT
public:
    explicit TFormPinned(const QStringList& arguments, QWidget* parent = nullptr);
    ~TFormPinned() override;

    // Loads the hand-over's picture and sizes the window to its rectangle;
    // ends the process when there is no picture.
    void FormCreate(const THandOver& handOver = ReadHandOver());
    // Settles the scroll bar, the undo limit and the drag cursor; runs once,
    // as the window is first shown.
    void FormShow();

    void Image_FrontMouseDown(Qt::MouseButton button, int x, int y);
    void Image_FrontMouseMove(int x, int y);
    void Image_FrontMouseUp(Qt::MouseButton button);
    // Dresses the mark the user has just begun in the session's style.
    void Image_FrontNewLayer(int index, TIELayerKind kind);
    // The application gained (true) or lost the activation.
    void WMACTIVATEAPP(bool active);
    // One zoom step was taken (wParam 1 up, 0 down): the window follows the
    // picture's new size and the toolbar is laid out anew.
    void PinnedZoomStep(int wParam);

    TRdSkinStyle* SkinStyle1 = nullptr;
    TRdFormSkin* RdFormSkinMain = nullptr;
    TRdScrollBox* RdSB_ImageFont = nullptr;
    TIEImageView* Image_Front = nullptr;

    bool Dragging = false;
    int DragX = 0;
    int DragY = 0;
    QRect PinRect;
    int InitialWidth = 0;
    int InitialHeight = 0;
    int ZoomBaseWidth = 0;
    // The skin package for the decided scale.
    QString SkinRccFile = QStringLiteral("classic.rcc");
    TPinnedBars Bars;

protected:
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    // A close request (Alt+F4) ends the session through the message loop.
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void DecideScale();
    // Whether the screen or the command line asks for the doubled interface.
    bool ScaleWanted() const;
    void ApplyLanguage();
    void ReadOutputDefaults();
    void SizeWindow(const TScreenLayout& screens);
    void ResizeForZoom(bool up);
    // The window rectangle the bars lay themselves out against.
    QRect PinnedRect() const { return QRect(x(), y(), width(), height()); }
    void HookLayerEvents();

    QStringList arguments_;
    bool shown_ = false;
    bool painted_ = false;
    bool applicationActive_ = false;
};

}  // namespace qpt
