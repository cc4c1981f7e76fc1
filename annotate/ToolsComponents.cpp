// The bar's controls at their design places and sizes (96 dots per inch),
// with their pictures and hints; the places along the bar are worked out
// again by UpdateBarLayout.
#include <QLabel>

#include "annotate/FormTools.h"
#include "annotate/SkinNames.h"
#include "skin/RdImage.h"
#include "skin/RdImageButton.h"
#include "support/Scale.h"

namespace qpt {

namespace {

// The pictures of a button's background by state; an empty name leaves the
// state without a picture of its own.
struct TLooks {
    const char* normal;
    const char* over = "";
    const char* down = "";
    const char* selected = "";
    const char* disabled = "";
};

struct TButtonRow {
    TRdImageButton* TFormTools::*field;
    const char* name;
    QRect place;
    const char* hint;
    TLooks looks;
};

// A tool icon that lights up under the mouse, when pressed and while its
// tool is chosen.
constexpr TLooks Tool(const char* normal, const char* over) {
    return {normal, over, over, over, ""};
}

void SetPicture(TRdPictureProperty* picture, const char* name) {
    if (*name) picture->SetText(SkinPicture(QLatin1StringView(name)));
}

TRdImageButton* MakeButton(TFormTools& form, const TButtonRow& row, QWidget* parent) {
    auto* button = new TRdImageButton(parent);
    button->setObjectName(QLatin1StringView(row.name));
    button->setGeometry(row.place);
    button->SetHint(QString::fromUtf8(row.hint));
    SetPicture(button->ImageNormal(), row.looks.normal);
    SetPicture(button->ImageOver(), row.looks.over);
    SetPicture(button->ImageDown(), row.looks.down);
    SetPicture(button->ImageSelected(), row.looks.selected);
    SetPicture(button->ImageDisabled(), row.looks.disabled);
    form.*row.field = button;
    return button;
}

// An icon on or over a button: its normal and pressed pictures.
void SetIcon(TRdImageButton* button, const char* normal, const char* pressed) {
    SetPicture(button->DnNormalIcon(), normal);
    SetPicture(button->DnDownIcon(), pressed);
}

TRdImage* MakeDivider(QWidget* parent, const char* name, int left) {
    auto* divider = new TRdImage(parent);
    divider->setObjectName(QLatin1StringView(name));
    divider->setGeometry(left, 0, 2, 40);
    divider->Picture()->SetText(SkinPicture(QStringLiteral("cutline_b")));
    // A click on it is a click on the bar's background.
    divider->SetHitTest(false);
    return divider;
}

QLabel* MakeLabel(QWidget* parent, const char* name, QRect place, const QString& caption) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QLatin1StringView(name));
    label->setGeometry(place);
    label->setAlignment(Qt::AlignCenter);
    QFont font(QStringLiteral("Segoe UI"));
    font.setPixelSize(15);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, SkinColor(QStringLiteral("text_color.cl_text_b")));
    label->setPalette(palette);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

}  // namespace

// In the order the form stacks them: later ones lie above earlier ones, so
// the words and the drop arrow lie on their blue buttons.
void TFormTools::CreateComponents() {
    Panel_Tools = new QWidget(this);
    Panel_Tools->setObjectName(QStringLiteral("Panel_Tools"));
    Panel_Tools->setGeometry(0, 0, 798, 40);
    Panel_Tools->setAutoFillBackground(true);
    QPalette palette = Panel_Tools->palette();
    palette.setColor(QPalette::Window, QColor(0x26, 0x26, 0x26));
    Panel_Tools->setPalette(palette);

    Image_BarBg = MakeButton(
        *this, {&TFormTools::Image_BarBg, "Image_BarBg", {0, 0, 798, 40}, "", {"bg_window"}},
        Panel_Tools);
    Image_BarBg->ImageOption()->Rect().Set(4, 4, 4, 4, TSuperStretchMode::sdmDefault);
    CreateToolButtons();
    CreateOutputButtons();
    CreateZoomControls();
}

void TFormTools::CreateToolButtons() {
    const TButtonRow rows[] = {
        {&TFormTools::Btn_Rd_Rect,
         "Btn_Rd_Rect",
         {247, 12, 18, 18},
         "Rectangle",
         Tool("icon_rectangle_normal", "icon_rectangle_over")},
        {&TFormTools::Btn_Rd_Ellip,
         "Btn_Rd_Ellip",
         {271, 11, 18, 18},
         "Oval",
         Tool("icon_circle_normal", "icon_circle_over")},
        {&TFormTools::Btn_Rd_Font,
         "Btn_Rd_Font",
         {402, 11, 18, 18},
         "Text",
         Tool("icon_text_normal", "icon_text_over")},
        {&TFormTools::Btn_Rd_Brush,
         "Btn_Rd_Brush",
         {354, 11, 18, 18},
         "Paintbrush",
         Tool("icon_brush_normal", "icon_brush_over")},
        {&TFormTools::Btn_Rd_Return,
         "Btn_Rd_Return",
         {434, 11, 18, 18},
         "Restore operation (Ctrl + Z)",
         {"icon_back_normal", "icon_back_over", "icon_back_over"}},
    };
    for (const TButtonRow& row : rows)
        MakeButton(*this, row, Panel_Tools);
}

void TFormTools::CreateOutputButtons() {
    const TLooks blue{"btn_blue_small_normal", "btn_blue_small_over", "btn_blue_small_press"};
    MakeButton(
        *this,
        {&TFormTools::Btn_Rd_Copy, "Btn_Rd_Copy", {552, 0, 89, 40}, "Copy to clipboard", blue},
        Panel_Tools);
    MakeButton(*this,
               {&TFormTools::Btn_Rd_Del,
                "Btn_Rd_Del",
                {458, 11, 18, 18},
                "Exit screenshot",
                {"icon_delete_normal", "icon_delete_over"}},
               Panel_Tools);
    MakeButton(*this, {&TFormTools::Rd_Save, "Rd_Save", {647, 0, 89, 40}, "", blue}, Panel_Tools);
    for (TRdImageButton* button : {Btn_Rd_Copy, Rd_Save}) {
        button->SetIconAlign(TImageButtonTypes::taLeftJustify);
        button->SetIconFullClick(true);
    }
    SetIcon(Btn_Rd_Copy, "icon_saveas_normal", "icon_saveas_press");
    SetIcon(Rd_Save, "icon_save_normal", "icon_save_press");

    Image_BarDiv3 = MakeDivider(Panel_Tools, "Image_BarDiv3", 482);
    Image_BarDiv1 = MakeDivider(Panel_Tools, "Image_BarDiv1", 225);
    Image_BarDiv2 = MakeDivider(Panel_Tools, "Image_BarDiv2", 426);

    MakeButton(*this, {&TFormTools::btn_save_drop, "btn_save_drop", {709, 11, 18, 18}, "", {""}},
               Panel_Tools);
    SetIcon(btn_save_drop, "icon_dropdown_normal", "icon_dropdown_press");
    btn_save_drop->setVisible(false);
    MakeButton(*this,
               {&TFormTools::Btn_Rd_Share,
                "Btn_Rd_Share",
                {490, 11, 18, 18},
                "Share to…",
                Tool("icon_share_normal", "icon_share_over")},
               Panel_Tools);
    MakeButton(*this, {&TFormTools::Rd_WordSave, "Rd_WordSave", {681, 11, 30, 18}, "", {""}},
               Panel_Tools);
    SetIcon(Rd_WordSave, "word_save_normal", "word_save_press");
    MakeButton(*this, {&TFormTools::Rd_WordCopy, "Rd_WordCopy", {584, 11, 33, 18}, "", {""}},
               Panel_Tools);
    SetIcon(Rd_WordCopy, "word_copy_normal", "word_copy_press");
}

void TFormTools::CreateZoomControls() {
    MakeButton(*this,
               {&TFormTools::Rdbtn_enlarge,
                "Rdbtn_enlarge",
                {88, 11, 18, 18},
                "",
                {"icon_zoomin_normal", "icon_zoomin_over", "", "", "icon_zoomin_disable"}},
               Panel_Tools);
    MakeButton(*this,
               {&TFormTools::Rdbtn_shrink,
                "Rdbtn_shrink",
                {16, 11, 18, 18},
                "",
                {"icon_zoomout_normal", "icon_zoomout_over", "", "", "icon_zoomout_disable"}},
               Panel_Tools);
    MakeButton(*this,
               {&TFormTools::Btn_Rd_Google,
                "Btn_Rd_Google",
                {514, 11, 18, 18},
                "",
                {"icon_google_normal", "icon_google_over"}},
               Panel_Tools);
    // The red dot that marks the search as new, in the icon's top left corner.
    SetIcon(Btn_Rd_Google, "redpoint_small", "");
    Btn_Rd_Google->SetIconAlign(TImageButtonTypes::taLeftJustify);
    Btn_Rd_Google->SetIconAlignY(TImageButtonTypes::tlTop);
    const TButtonRow rows[] = {
        {&TFormTools::Btn_Rd_Mosaic,
         "Btn_Rd_Mosaic",
         {378, 12, 18, 18},
         "Paintbrush",
         Tool("icon_mosaic_normal", "icon_mosaic_over")},
        {&TFormTools::Btn_Rd_Line,
         "Btn_Rd_Line",
         {295, 11, 18, 18},
         "Paintbrush",
         Tool("icon_beeline_normal", "icon_beeline_over")},
        {&TFormTools::Btn_Rd_Arrow,
         "Btn_Rd_Arrow",
         {319, 10, 18, 18},
         "Paintbrush",
         Tool("icon_arrow_normal", "icon_arrow_over")},
    };
    for (const TButtonRow& row : rows)
        MakeButton(*this, row, Panel_Tools);
}

// The two labels are the bar's only stock text controls, and making the
// first of them brings in code the picture's first paint has no use for:
// they are made afterwards, in the places and stacking they have among the
// others, at the interface's scale.
void TFormTools::MakeLabels() {
    if (lbl_WinSize) return;
    lbl_WinSize = MakeLabel(Panel_Tools, "lbl_WinSize", {117, 8, 110, 20}, QStringLiteral("width"));
    lbl_WinSize->setFixedWidth(110);
    lbl_WinSize->stackUnder(Image_BarDiv1);
    lbl_Porportion =
        MakeLabel(Panel_Tools, "lbl_Porportion", {40, 8, 36, 20}, QStringLiteral("100%"));
    lbl_Porportion->setMaximumWidth(110);
    ScaleControl(lbl_WinSize);
    ScaleControl(lbl_Porportion);
}

}  // namespace qpt
