#include "app/FormPinned.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <cstdio>

#include "annotate/FormSmallTools.h"
#include "annotate/LayerStyling.h"
#include "app/CommandLine.h"
#include "app/HandOver.h"
#include "app/PinnedSkin.h"
#include "app/session/FirstPaint.h"
#include "app/session/SessionEnd.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionMessages.h"
#include "app/session/SessionState.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IEImageProc.h"
#include "imaging/view/IEImageView.h"
#include "skin/RdSkinStyle.h"
#include "support/Language.h"
#include "support/Paths.h"
#include "support/ProcessExit.h"
#include "support/ProductStat.h"
#include "support/QptMessages.h"
#include "support/Scale.h"
#include "support/ScreenRecordSettingsData.h"

namespace qpt {

namespace {

// The scroll bar is drawn thinner than its nominal 17 pixels, so that the
// window needs only 9 more to show it.
constexpr int kBarThickness = 17;
constexpr int kBarShownWidth = 9;

void DressBar(TRdScrollBar& bar, const QString& normal, const QString& hot) {
    TRdScrollBarImages& images = *bar.AllSkinImage();
    images.TrackCenter()->SetText("imgname=" + normal);
    images.TrackCenterHot()->SetText("imgname=" + hot);
    images.Track_Option()->Rect().Set(3, 3, 3, 3, TSuperStretchMode::sdmDefault);
    bar.SetAutoArrow(false);
    bar.SetAutoHide(true);
    bar.AllSkin()->SetSkinClass(QStringLiteral("scrollbar"));
}

}  // namespace

TFormPinned::TFormPinned(const QStringList& arguments, QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool),
      arguments_(arguments) {
    setObjectName(QStringLiteral("FormPinned"));
    setWindowTitle(QStringLiteral("Zelk Screenshot"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(11);
    setFont(font);
    resize(545, 382);
    // The package for the scale the screen asks for, so that the one decided
    // again at FormCreate is already loaded and not read twice.
    SkinStyle1 = CreatePinnedSkinStyle(*this, ChooseSkinRccFile(ScaleWanted(), ProgramFolder()));
    RdFormSkinMain = CreatePinnedFormSkin(*this);

    RdSB_ImageFont = new TRdScrollBox(this);
    DressBar(*RdSB_ImageFont->HScroll(), QStringLiteral("images/scrollbar_normal.png"),
             QStringLiteral("images/scrollbar_over.png"));
    // The window only ever grows as wide as the picture and its vertical bar:
    // a horizontal bar would cover the picture's bottom rows.
    RdSB_ImageFont->HScroll()->SetAutoHide(false);
    RdSB_ImageFont->HScroll()->hide();
    // The light thumb, as it stands over the picture.
    DressBar(*RdSB_ImageFont->VScroll(), QStringLiteral("images/scrollbar_white_normal.png"),
             QStringLiteral("images/scrollbar_white_over.png"));
    RdSB_ImageFont->VScroll()->SetWidth(kBarShownWidth);
    RdSB_ImageFont->verticalScrollBar()->setSingleStep(1);
    RdSB_ImageFont->setGeometry(0, 0, 545, 382);

    Image_Front = new TIEImageView;
    Image_Front->SetBackground(clBtnFace);
    Image_Front->resize(545, 382);
    RdSB_ImageFont->setWidget(Image_Front);
    RdSB_ImageFont->setWidgetResizable(false);

    qpt::FormPinned = this;
    qpt::Image_Front = Image_Front;

    Image_Front->OnMouseDown = [this](Qt::MouseButton b, int x, int y) {
        Image_FrontMouseDown(b, x, y);
    };
    Image_Front->OnMouseMove = [this](Qt::MouseButtons, int x, int y) {
        Image_FrontMouseMove(x, y);
    };
    Image_Front->OnMouseUp = [this](Qt::MouseButton b, int, int) { Image_FrontMouseUp(b); };
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                const bool active = state == Qt::ApplicationActive;
                if (active == applicationActive_) return;
                applicationActive_ = active;
                WMACTIVATEAPP(active);
            });
}

TFormPinned::~TFormPinned() {
    if (qpt::FormPinned != this) return;
    qpt::FormPinned = nullptr;
    qpt::Image_Front = nullptr;
}

void TFormPinned::FormCreate(const THandOver& handOver) {
    ProductStatInit(ProgramFolder());
    DecideScale();
    ApplyLanguage();
    ZoomStep = 10;
    ZoomBaseWidth = 0;
    ReadOutputDefaults();

    PinRect = handOver.rect;
    if (!HandOverPictureExists(handOver)) ProcessExit(0);
    Image_Front->SetZoomFilter(rfLinear);
    // The host's file may carry another extension than its content.
    Image_Front->IO().LoadFromFile(handOver.picturePath, true);
    SizeWindow(CurrentScreenLayout());
}

// The language is set once more, now that the settings may name another;
// the program's own messages come with their own section.
void TFormPinned::ApplyLanguage() {
    TLanguage* language = Language();
    if (!language) return;
    language->SetLanguage(TLanguage::CurrentLanguageName());
    language->TranslateForm(this);
    language->AddSection(QStringLiteral("QPT_Main"));
    FetchMessageTexts(*language);
}

bool TFormPinned::ScaleWanted() const {
    if (FirstArgumentIs(arguments_, "/Scale")) return true;
    QScreen* screen = QGuiApplication::primaryScreen();
    return screen &&
           IsHighDPIScreen(screen->availableGeometry().size(), int(screen->logicalDotsPerInchY()));
}

void TFormPinned::DecideScale() {
    const bool scaled = ScaleWanted();
    SetScaleEnabled(scaled);
    SkinRccFile = ChooseSkinRccFile(scaled, ProgramFolder());
    SkinStyle1->SetSkinRccFile(SkinRccFile);
}

void TFormPinned::ReadOutputDefaults() {
    if (TScreenRecordSettingsData* settings = SettingsData()) {
        DefaultImageExt = "." + settings->FormatName().toLower();
        JpegQuality = settings->JpegQuality;  // held within 1..100 by the settings table
    }
    if (DefaultImageExt.isEmpty()) DefaultImageExt = QStringLiteral(".jpeg");
}

void TFormPinned::SizeWindow(const TScreenLayout& screens) {
    QRect place = PinnedWindowRect(PinRect);
    const int limit = PinnedHeightLimit(screens);
    const bool cut = place.height() > limit;
    if (cut) place.setHeight(limit);
    setGeometry(place);
    RdSB_ImageFont->setGeometry(0, 0, place.width(), place.height());

    const TIEBitmap& picture = *Image_Front->Layers().Background().Bitmap();
    // A picture cut to the limit, or exactly as tall as it, scrolls; any
    // lower one keeps a window of exactly its rectangle.
    const bool scrolls = cut || picture.Height() == limit;
    TRdScrollBar* bar = RdSB_ImageFont->VScroll();
    bar->SetAutoHide(false);
    bar->setVisible(scrolls);
    // Taller than the box on purpose, so that a box that only just fits
    // finds its bar when the window is shown.
    Image_Front->resize(picture.Width(), picture.Height() + kBarThickness);
}

void TFormPinned::FormShow() {
    if (Image_Front->height() > height() && ShowsVerticalBar(*RdSB_ImageFont)) {
        resize(width() + kBarShownWidth, height());
        RdSB_ImageFont->resize(size());
    }
    const TIEBitmap& picture = *Image_Front->Layers().Background().Bitmap();
    Image_Front->resize(picture.Width(), picture.Height());
    InitialWidth = width();
    InitialHeight = height();
    if (IsWholeScreenRect(PinRect, CurrentScreenLayout()) && Bars.ToolsExist()) {
        if (Bars.UpdateBarLayout) Bars.UpdateBarLayout(PinRect);
        Bars.ShowTools();
    }
    Image_Front->Proc()->SetUndoLimit(100);
    Image_Front->SetLayersCurrent(0);
    Image_Front->Layers().Background().Selectable = false;
    Image_Front->LayersDeselectAll();
    Image_Front->SetCursor(crSizeAll);
    HookLayerEvents();
}

void TFormPinned::showEvent(QShowEvent* event) {
    if (!shown_) {
        shown_ = true;
        FormShow();
    }
    QWidget::showEvent(event);
}

void TFormPinned::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    // The other forms are windows of their own: closing this one alone
    // would leave the process running with nothing on the screen.
    CloseSession();
}

void TFormPinned::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    Image_FrontMouseDown(event->button(), at.x(), at.y());
}

void TFormPinned::Image_FrontMouseDown(Qt::MouseButton button, int x, int y) {
    if (FolderDialogOpen) {
        if (Bars.SavePathExists() && TPinnedBars::Ask(Bars.SavePathVisible))
            TPinnedBars::Call(Bars.RaiseSavePath);
        return;
    }
    // With the style bar up, the press belongs to the annotation engine.
    if (TPinnedBars::Ask(Bars.SmallToolsVisible)) return;
    Dragging = false;
    if (button != Qt::LeftButton) return;
    Dragging = true;
    DragX = x;
    DragY = y;
    TPinnedBars::Call(Bars.HideTools);
    TPinnedBars::Call(Bars.HideSavePath);
}

void TFormPinned::Image_FrontMouseMove(int x, int y) {
    if (FolderDialogOpen) return;
    if (Dragging && Image_Front->Cursor() == crSizeAll)
        setGeometry(x - DragX + this->x(), y - DragY + this->y(), width(), height());
    // Over a tall picture the wheel is to scroll it without a click first.
    if (RdSB_ImageFont->focusPolicy() != Qt::NoFocus &&
        Image_Front->height() > RdSB_ImageFont->height() && ShowsVerticalBar(*RdSB_ImageFont) &&
        !TPinnedBars::Ask(Bars.MsgVisible))
        RdSB_ImageFont->setFocus(Qt::MouseFocusReason);
    // The stay-on-top forms compete; the style bar is put back on top.
    if (TPinnedBars::Ask(Bars.SmallToolsVisible) && ToolArmed)
        TPinnedBars::Call(Bars.RaiseSmallTools);
}

void TFormPinned::Image_FrontMouseUp(Qt::MouseButton) {
    if (FolderDialogOpen) return;
    if (!Dragging) return;
    Dragging = false;
    if (!Bars.ToolsExist()) return;
    if (Bars.UpdateBarLayout) Bars.UpdateBarLayout(PinnedRect());
    Bars.ShowTools();
}

void TFormPinned::WMACTIVATEAPP(bool active) {
    // Their dialogs take the activation away on purpose.
    if (FolderDialogOpen || SaveInProgress) return;
    const bool toolsShown = Bars.ToolsExist() && TPinnedBars::Ask(Bars.ToolsVisible);
    if (active) {
        if (!toolsShown) return;
        if (Bars.UpdateBarLayout) Bars.UpdateBarLayout(PinnedRect());
        Bars.ShowTools();
        return;
    }
    if (TPinnedBars::Ask(Bars.SmallToolsVisible)) TPinnedBars::Call(Bars.HideSmallTools);
    if (toolsShown) {
        // Leaving the program bakes the marks into the picture.
        TPinnedBars::Call(Bars.InitPicSave);
        TPinnedBars::Call(Bars.HideTools);
        TPinnedBars::Call(Bars.ResetToolButtons);
        Image_Front->SetCursor(crSizeAll);
        Image_Front->SetMouseInteractLayers(mlResizeLayers);
    }
    if (Bars.SavePathExists() && TPinnedBars::Ask(Bars.SavePathVisible)) Bars.HideSavePath();
    ToolArmed = 0;
}

bool TFormPinned::event(QEvent* event) {
    if (const TSessionMessage* message = AsSessionMessage(event)) {
        if (message->Id == kMsgZoomStep) PinnedZoomStep(message->WParam);
        return true;
    }
    const bool result = QWidget::event(event);
    if (event->type() == QEvent::UpdateRequest && !painted_ && isVisible()) {
        painted_ = true;
        FirstPaintDone();
#ifdef QPT_TEST_HOOKS
        // For start-up measurements and the tests that wait for the picture.
        if (qEnvironmentVariableIntValue("QPT_DEBUG") == 1)
            std::fprintf(stderr, "QptPin: first paint\n");
#endif
    }
    return result;
}

// The view asks for each mark the user begins; it is dressed in the
// session's style.
void TFormPinned::Image_FrontNewLayer(int, TIELayerKind kind) {
    if (TIELayer* layer = Image_Front->Layers().GetLayer(Image_Front->LayersCurrent()))
        DressNewLayer(*layer, kind);
}

void TFormPinned::HookLayerEvents() {
    Image_Front->OnNewLayer = [this](int index, TIELayerKind kind) {
        Image_FrontNewLayer(index, kind);
    };
    // Hooked and empty: no change of a layer reaches the forms this way.
    Image_Front->OnLayerNotifyEx = [](int, TIELayerEvent) {};
    Image_Front->OnActivateTextEditor = [this] {
        SyncTextStyleFromLayer(Image_Front->EditingLayer());
    };
}

}  // namespace qpt
