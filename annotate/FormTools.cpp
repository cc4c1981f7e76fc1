#include "annotate/FormTools.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <cmath>

#include "annotate/AppEventMsg.h"
#include "annotate/ToolsPlacement.h"
#include "app/session/FirstPaint.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionMessages.h"
#include "app/session/SessionState.h"
#include "output/SaveFlow.h"
#include "skin/MenuItem.h"
#include "skin/RdImageButton.h"
#include "skin/RdSkinHint.h"
#include "skin/RdSkinMenu.h"
#include "support/HostWindow.h"
#include "support/Language.h"
#include "support/MainIni.h"
#include "support/QptMessages.h"
#include "support/Scale.h"

namespace qpt {

TFormTools::TFormTools(QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool) {
    setObjectName(QStringLiteral("FormTools"));
    // The bar has no title; window managers and tests know it by its role.
    setWindowRole(objectName());
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(11);
    setFont(font);
    resize(799, 40);
    CreateComponents();
    CreateShareMenu();
    ConnectClicks();
    ConnectOverlays();
    AppEvent_Msg = new TAppEventMsg(*this);
    RegisterForm(qpt::FormTools, this);
}

TFormTools::~TFormTools() = default;

void TFormTools::FormCreate() {
    PictureRect = QRect();
    // The search walks the server's windows; the host is needed only when
    // the picture leaves, so it waits until the picture is on the screen.
    AfterFirstPaint(this, [] { HostWindow = FindHostWindow(); });
    // The dot marks the search as new until it has been used once.
    if (ReadMainIni(QStringLiteral("Main"), QStringLiteral("GsearchRed"), QStringLiteral("0")) ==
        QLatin1StringView("1"))
        Btn_Rd_Google->DnNormalIcon()->Clear();
    ApplyLanguage();
    ScaleBar();
    SetUpAfterFirstPaint(this, [this] { MakeLabels(); });
}

// Design sizes double with the interface; the hint's font and the share
// menu's rows follow, since they are no children of the form.
void TFormTools::ScaleBar() {
    ScaleControl(this);
    if (!ScaleActive()) return;
    const double factor = GetScaleFactor();
    Hint_share->Font()->SetHeight(int(std::lround(Hint_share->Font()->Height() * factor)));
    Menu_Share->SetItemHeight(int(std::lround(Menu_Share->ItemHeight() * factor)));
    TRdFont* menuFont = Menu_Share->FontNormal();
    menuFont->SetSize(menuFont->Size() * int(std::lround(factor * 100)) / 100);
}

void TFormTools::ApplyLanguage() {
    if (Language()) Language()->TranslateForm(this);
    const TQptMessages& texts = QptMessages();
    const std::pair<TRdImageButton*, const char*> hints[] = {
        {Btn_Rd_Rect, "M_Screen_Rect"},         {Btn_Rd_Ellip, "M_Screen_Oval"},
        {Btn_Rd_Brush, "M_Screen_Brush"},       {Btn_Rd_Font, "M_Screen_Text"},
        {Btn_Rd_Return, "M_Screen_ReturnNew"},  {Btn_Rd_Del, "M_Screen_Exit"},
        {Rdbtn_enlarge, "M_Pin_ZoomIn"},        {Rdbtn_shrink, "M_Pin_ZoomOut"},
        {Btn_Rd_Arrow, "M_Screen_Arrow"},       {Btn_Rd_Line, "M_Screen_Line"},
        {Btn_Rd_Mosaic, "M_Screen_Pixelation"}, {Btn_Rd_Google, "M_Screen_GoogleSearch"},
        {Btn_Rd_Share, "M_Screen_Share"},
    };
    for (const auto& [button, key] : hints)
        button->SetHint(texts.Text(QLatin1StringView(key)));
    const QString copy = texts.Text(QStringLiteral("M_Screen_Copy")) + " (Ctrl+C)";
    for (TRdImageButton* button : {Btn_Rd_Copy, Rd_WordCopy})
        button->SetHint(copy);
    const QString save = texts.Text(QStringLiteral("M_Screen_Save")) + " (Ctrl+S)";
    for (TRdImageButton* button : {Rd_Save, Rd_WordSave, btn_save_drop})
        button->SetHint(save);
    const std::pair<TMenuItem*, const char*> items[] = {{MenuFacebook, "M_Share_Fackbook"},
                                                        {MenuTwitter, "M_Share_Twitter"},
                                                        {MenuPinterest, "M_Share_Pinterest"},
                                                        {MenuImgur, "M_Share_Imgur"}};
    for (const auto& [item, key] : items)
        item->SetCaption(texts.Text(QLatin1StringView(key)));
}

void TFormTools::ShowBar() {
    MakeLabels();
    PlaceBar();
    if (!isVisible()) {
        ClearToolToggles();
        show();
    }
    raise();
}

void TFormTools::PlaceBar() {
    move(PlaceToolBar(PictureRect, size(), CurrentScreenLayout()));
}

bool TFormTools::FolderDialogHoldsClicks() const {
    if (!FolderDialogOpen) return false;
    if (FormShowing(FormSavePath)) FormSavePath->raise();
    return true;
}

void TFormTools::Image_BarBgMouseDown() {
    FolderDialogHoldsClicks();
}

QList<TRdImageButton*> TFormTools::ToolButtons() const {
    return {Btn_Rd_Rect,  Btn_Rd_Ellip,  Btn_Rd_Line, Btn_Rd_Arrow,
            Btn_Rd_Brush, Btn_Rd_Mosaic, Btn_Rd_Font};
}

void TFormTools::ResetToolButtons() {
    if (FormShowing(FormSmallTools)) return;
    ClearToolToggles();
    for (TRdImageButton* button : ToolButtons())
        button->SetState(TRdImageButton::bsNormal);
    Rd_Save->SetState(TRdImageButton::bsNormal);
    Btn_Rd_Share->SetState(TRdImageButton::bsNormal);
}

bool TFormTools::event(QEvent* event) {
    if (const TSessionMessage* message = AsSessionMessage(event)) {
        if (message->Id == kMsgResetToolButtons) ResetToolButtons();
        if (message->Id == kMsgShareFinished) ShareFinished(message->WParam);
        return true;
    }
    return QWidget::event(event);
}

}  // namespace qpt
