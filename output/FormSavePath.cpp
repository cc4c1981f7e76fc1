#include "output/FormSavePath.h"

#include <QEvent>
#include <cmath>

#include "app/session/FirstPaint.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "output/FormStyle.h"
#include "output/OutputDialogs.h"
#include "output/SaveFolders.h"
#include "output/SidePlacement.h"
#include "skin/RdEdit.h"
#include "skin/RdImageButton.h"
#include "skin/ScaleForm.h"
#include "skin/SkinImageText.h"
#include "support/MainIni.h"
#include "support/Paths.h"
#include "support/QptMessages.h"
#include "support/Scale.h"

namespace qpt {

namespace {

constexpr char kTitle[] = "Zelk Screenshot";
const QString kSection = QStringLiteral("Screenshot");

void SetImages(TRdImageButton& button, const char* normal, const char* over, const char* down) {
    button.ImageNormal()->SetText(SkinImageText(QLatin1StringView(normal)));
    button.ImageOver()->SetText(SkinImageText(QLatin1StringView(over)));
    button.ImageDown()->SetText(SkinImageText(QLatin1StringView(down)));
}

TRdImageButton* MakeBrowseButton(QWidget* parent) {
    auto* button = new TRdImageButton(parent);
    button->setGeometry(370, 39, 85, 34);
    SetImages(*button, "btn_gray_normal", "btn_gray_over", "btn_gray_press");
    button->ImageDisabled()->SetText(SkinImageText(QStringLiteral("btn_gray_disable")));
    button->SetButtonCaptionAlignment(TImageButtonTypes::taCenter);
    button->Font()->SetColor(NamedSkinColor(QStringLiteral("public_element.cl_btn_gray_normal")));
    button->SetFontHoverColor(NamedSkinColor(QStringLiteral("public_element.cl_btn_gray_over")));
    button->SetFontDownColor(NamedSkinColor(QStringLiteral("public_element.cl_btn_gray_press")));
    button->SetFontDisabledColor(
        NamedSkinColor(QStringLiteral("public_element.cl_btn_gray_disable")));
    button->SetCaption(QStringLiteral("Browse…"));
    return button;
}

TRdImageButton* MakeAlwaysTick(QWidget* parent) {
    auto* tick = new TRdImageButton(parent);
    tick->setGeometry(20, 20, 182, 17);
    tick->SetShowCheckBox(true);
    // The caption belongs to the box: a click on it ticks too.
    tick->SetCheckBoxFullClick(true);
    tick->CheckBoxNormalImage()->SetText(
        SkinImageText(QStringLiteral("checkbox_unchecked_normal")));
    tick->CheckBoxUnCheckedHoverImage()->SetText(
        SkinImageText(QStringLiteral("checkbox_unchecked_over")));
    tick->CheckBoxCheckedImage()->SetText(SkinImageText(QStringLiteral("checkbox_checked_normal")));
    tick->CheckBoxCheckedHoverImage()->SetText(
        SkinImageText(QStringLiteral("checkbox_checked_over")));
    tick->SetTextLeftMargin(21);
    tick->SetTextOffset(10);
    tick->Font()->SetName(QStringLiteral("Segoe UI"));
    tick->Font()->SetHeight(-13);
    tick->Font()->SetColor(NamedSkinColor(QStringLiteral("text_color.cl_text_b")));
    tick->SetCaption(QStringLiteral("Always save screenshots to:"));
    tick->SetAutoSizeByText(true);
    return tick;
}

TRdEdit* MakePathEdit(QWidget* parent) {
    auto* edit = new TRdEdit(parent);
    // The field keeps its height over the input picture; the text is
    // centred in it, light on the dark picture.
    edit->SetAutoSize(false);
    edit->setGeometry(20, 44, 350, 24);
    edit->FontNormal()->SetName(QStringLiteral("Segoe UI"));
    edit->FontNormal()->SetHeight(-13);
    edit->FontNormal()->SetColor(NamedSkinColor(QStringLiteral("text_color.cl_text_b")));
    edit->setReadOnly(true);
    edit->SetTextLeftMargin(5);
    edit->ImageNormal()->SetText(SkinImageText(QStringLiteral("input_normal")));
    edit->ImageOver()->SetText(SkinImageText(QStringLiteral("input_over")));
    return edit;
}

QString WithTrailingDelimiter(const QString& path) {
    return path.endsWith('/') ? path : path + '/';
}

}  // namespace

TFormSavePath::TFormSavePath(QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool) {
    setWindowTitle(QLatin1StringView(kTitle));
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(11);
    setFont(font);
    resize(470, 88);
    RegisterForm(FormSavePath, this);
}

TFormSavePath::~TFormSavePath() = default;

void TFormSavePath::CreateComponents() {
    pnl_defSavePath = new QWidget(this);
    pnl_defSavePath->setGeometry(0, 0, 470, 88);
    pnl_defSavePath->setAutoFillBackground(true);
    QPalette face = pnl_defSavePath->palette();
    face.setColor(QPalette::Window, QColor(0x1E, 0x20, 0x27));
    pnl_defSavePath->setPalette(face);
    // Showing the panel puts the focus on it, off the toolbar's buttons.
    pnl_defSavePath->setFocusPolicy(Qt::StrongFocus);

    RdBtn_SaveBarBg = new TRdImageButton(pnl_defSavePath);
    RdBtn_SaveBarBg->setGeometry(0, 0, 470, 88);
    RdBtn_SaveBarBg->ImageNormal()->SetText(SkinImageText(QStringLiteral("bg_window")));
    RdBtn_SaveBarBg->ImageOption()->Rect().Set(4, 4, 4, 4, TSuperStretchMode::sdmDefault);
    RdBtn_SaveBarBg->installEventFilter(this);

    btn_browseSavePath = MakeBrowseButton(pnl_defSavePath);
    btn_browseSavePath->OnClick = [this](TRdImageButton&) { btn_browseSavePathClick(); };
    chbtn_always = MakeAlwaysTick(pnl_defSavePath);
    chbtn_always->CheckBoxOnClick = [this](TRdImageButton&) { chbtn_alwaysClick(); };
    btn_pthpnl_close = new TRdImageButton(pnl_defSavePath);
    btn_pthpnl_close->setGeometry(436, 0, 34, 34);
    SetImages(*btn_pthpnl_close, "btn_close_normal", "btn_close_over", "btn_close_press");
    btn_pthpnl_close->OnClick = [this](TRdImageButton&) { btn_pthpnl_closeClick(); };
    edit_savepath = MakePathEdit(pnl_defSavePath);
}

void TFormSavePath::FormCreate() {
    always_ = ReadMainIni(kSection, QStringLiteral("CaptureSave"), "0") == "1";
    const QString folder = ReadMainIni(kSection, QStringLiteral("CapturePath"), {}).trimmed();
    // The default is shown, not stored: the settings learn it only when the
    // user has browsed.
    folder_ = folder.isEmpty()
                  ? ShellFolderPath(QStringLiteral("My Pictures")) + "/Zelk Screenshot/"
                  : WithTrailingDelimiter(folder);
    SetUpAfterFirstPaint(this, [this] { SetUp(); });
}

void TFormSavePath::SetUp() {
    if (pnl_defSavePath) return;
    CreateComponents();
    ScaleSkinnedForm(this);
    ApplyLanguage();
    chbtn_always->SetChecked(always_);
    edit_savepath->setText(folder_);
    if (ScaleActive()) chbtn_always->SetTextLeftMargin(int(std::lround(21 * GetScaleFactor())));
}

void TFormSavePath::setVisible(bool visible) {
    if (visible) SetUp();
    QWidget::setVisible(visible);
}

void TFormSavePath::ApplyLanguage() {
    if (!pnl_defSavePath) return;  // SetUp takes the texts as they are then
    const TQptMessages& texts = QptMessages();
    btn_pthpnl_close->SetHint(texts.Text(QStringLiteral("M_Close")));
    chbtn_always->SetCaption(texts.Text(QStringLiteral("M_Screen_Always")));
    btn_browseSavePath->SetCaption(texts.Text(QStringLiteral("M_Screen_Browse")));
}

void TFormSavePath::chbtn_alwaysClick() {
    WriteMainIni(kSection, QStringLiteral("CaptureSave"), chbtn_always->Checked() ? "1" : "0");
}

void TFormSavePath::SetFormsOnTop(bool onTop) {
    SetStayOnTop(this, onTop);
    if (FormShowing(FormPinned)) SetStayOnTop(FormPinned, onTop);
    if (FormShowing(FormTools)) SetStayOnTop(FormTools, onTop);
}

void TFormSavePath::EndBrowsing() {
    SetFormsOnTop(true);
    FolderDialogOpen = 0;
}

void TFormSavePath::btn_browseSavePathClick() {
    SetUp();
    // While the browser is up, every other click only raises this panel.
    SetFormsOnTop(false);
    FolderDialogOpen = 1;
    const QString chosen = OutputDialogs().BrowseForFolder(nullptr, QLatin1StringView(kTitle));
    if (!chosen.isEmpty()) {
        if (!IsFixedLocalDisk(chosen.trimmed())) {
            OutputDialogs().MessageBox(this, QptMessages().Text(QStringLiteral("M_PathWrongDesc")),
                                       QLatin1StringView(kTitle), TMessageButtons::Ok);
            return EndBrowsing();
        }
        // As it stands, without a trailing delimiter.
        edit_savepath->setText(chosen);
    } else {
        FocusIfPossible(this);
    }
    EndBrowsing();
    WriteMainIni(kSection, QStringLiteral("CapturePath"), edit_savepath->text());
}

void TFormSavePath::btn_pthpnl_closeClick() {
    hide();
    PlaceToolbarBack();
}

void TFormSavePath::RdBtn_SaveBarBgMouseDown() {
    if (FormShowing(FormTools) && OnBackgroundPress) OnBackgroundPress();
}

bool TFormSavePath::eventFilter(QObject* watched, QEvent* event) {
    if (watched == RdBtn_SaveBarBg && event->type() == QEvent::MouseButtonPress)
        RdBtn_SaveBarBgMouseDown();
    return QWidget::eventFilter(watched, event);
}

QString TFormSavePath::SavePathText() const {
    return edit_savepath ? edit_savepath->text() : folder_;
}

bool TFormSavePath::AlwaysSave() const {
    return chbtn_always ? chbtn_always->Checked() : always_;
}

}  // namespace qpt
