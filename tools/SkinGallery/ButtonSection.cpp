// The image button in the looks the forms give it: text buttons, tool icons,
// a close button and check boxes, each through its states.
#include "skin/ColorTable.h"
#include "skin/RdImageButton.h"
#include "skin/RdTimer.h"
#include "tools/SkinGallery/GalleryEvents.h"
#include "tools/SkinGallery/GalleryGround.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"

namespace qpt {

namespace {

QString Picture(const QString& name) {
    return "imgname=images/" + name + ".png";
}

quint32 SkinColor(const QString& name) {
    quint32 color = 0;
    IdentToColor(name, color);
    return color;
}

// The cross-fade runs to its end, as it would on the screen.
void SettleFade(TRdImageButton* button) {
    for (int i = 0; i < 100 && button->FadeTimer()->Enabled(); ++i)
        button->FadeTimer()->Tick();
}

enum class TLook { Normal, Hover, Down, Disabled, Selected };

void Apply(TRdImageButton* button, TLook look) {
    const QPoint centre = button->rect().center();
    switch (look) {
        case TLook::Normal:
            break;
        case TLook::Hover:
            HoverAt(button, centre);
            break;
        case TLook::Down:
            PressAt(button, centre);
            break;
        case TLook::Disabled:
            button->SetState(TRdImageButton::bsDisabled);
            break;
        case TLook::Selected:
            button->SetState(TRdImageButton::bsSelected);
            break;
    }
    SettleFade(button);
}

struct TStateName {
    TLook look;
    const char* name;
};
constexpr TStateName kStates[] = {{TLook::Normal, "normal"},
                                  {TLook::Hover, "under the mouse"},
                                  {TLook::Down, "held down"},
                                  {TLook::Disabled, "disabled"},
                                  {TLook::Selected, "selected"}};

TRdImageButton* TextButton(QWidget* parent, const QString& stem, const QString& caption) {
    auto* button = new TRdImageButton(parent);
    ScaleFonts(button);
    button->resize(Scaled(QSize(85, 34)));
    button->ImageNormal()->SetText(Picture(stem + "_normal"));
    button->ImageOver()->SetText(Picture(stem + "_over"));
    button->ImageDown()->SetText(Picture(stem + "_press"));
    button->ImageSelected()->SetText(Picture(stem + "_press"));
    button->SetCaption(caption);
    button->SetButtonCaptionAlignment(TImageButtonTypes::taCenter);
    button->Font()->SetColor(SkinColor("text_color.cl_text_b"));
    button->SetFontHoverColor(SkinColor("text_color.cl_text_a"));
    return button;
}

TRdImageButton* ToolButton(QWidget* parent, const QString& icon) {
    auto* button = new TRdImageButton(parent);
    button->resize(Scaled(QSize(30, 30)));
    button->ImageOver()->SetText(Picture("wireframe_over"));
    button->ImageSelected()->SetText(Picture("wireframe_selected"));
    button->DnNormalIcon()->SetText(Picture(icon + "_normal"));
    button->DnHoverIcon()->SetText(Picture(icon + "_over"));
    button->DnSelectedIcon()->SetText(Picture(icon + "_over"));
    button->SetIconVisible(true);
    button->SetIconAlign(TImageButtonTypes::taCenter);
    button->SetIconAlignY(TImageButtonTypes::tlCenter);
    return button;
}

TRdImageButton* CloseButton(QWidget* parent) {
    auto* button = new TRdImageButton(parent);
    button->resize(Scaled(QSize(34, 34)));
    button->ImageNormal()->SetText(Picture("btn_close_normal"));
    button->ImageOver()->SetText(Picture("btn_close_over"));
    button->ImageDown()->SetText(Picture("btn_close_press"));
    return button;
}

TRdImageButton* CheckBox(QWidget* parent, int state) {
    auto* button = new TRdImageButton(parent);
    ScaleFonts(button);
    button->resize(Scaled(QSize(170, 20)));
    button->SetShowCheckBox(true);
    button->CheckBoxNormalImage()->SetText(Picture("checkbox_unchecked_normal"));
    button->CheckBoxUnCheckedHoverImage()->SetText(Picture("checkbox_unchecked_over"));
    button->CheckBoxCheckedImage()->SetText(Picture("checkbox_checked_normal"));
    button->CheckBoxCheckedHoverImage()->SetText(Picture("checkbox_checked_over"));
    button->CheckBoxHalfCheckedImage()->SetText(Picture("checkbox_checked_normal"));
    button->SetCaption("Keep the window on top");
    button->SetCheckBoxOffset(Scaled(2));
    button->SetTextLeftMargin(Scaled(22));
    button->Font()->SetColor(SkinColor("text_color.cl_text_b"));
    button->SetCheckState(state);
    return button;
}

template <typename Make>
void AddStates(TGallerySection& section, const QString& name, Make make,
               std::initializer_list<TLook> looks) {
    for (const TStateName& state : kStates) {
        if (std::find(looks.begin(), looks.end(), state.look) == looks.end()) continue;
        TRdImageButton* button = make();
        Apply(button, state.look);
        section.Add(name + ", " + state.name, OnGround(button, kDarkGround));
    }
    section.NewRow();
}

}  // namespace

void AddButtonSection(TGalleryPage& page) {
    TGallerySection& section = page.AddSection("Image button (TRdImageButton)");
    QWidget* host = section.Host();
    const auto all = {TLook::Normal, TLook::Hover, TLook::Down, TLook::Disabled, TLook::Selected};
    AddStates(
        section, "grey", [&] { return TextButton(host, "btn_gray", "Cancel"); }, all);
    AddStates(
        section, "blue", [&] { return TextButton(host, "btn_blue_small", "Upload"); }, all);
    AddStates(
        section, "tool", [&] { return ToolButton(host, "icon_rectangle"); }, all);
    AddStates(section, "close", [&] { return CloseButton(host); },
              {TLook::Normal, TLook::Hover, TLook::Down});

    section.Add("check box, unchecked", OnGround(CheckBox(host, 0), kDarkGround));
    section.Add("check box, checked", OnGround(CheckBox(host, 1), kDarkGround));
    section.Add("check box, half checked", OnGround(CheckBox(host, 2), kDarkGround));
    auto* hot = CheckBox(host, 1);
    Apply(hot, TLook::Hover);
    section.Add("check box, checked, under the mouse", OnGround(hot, kDarkGround));
    section.NewRow();

    auto* cut = TextButton(host, "btn_gray", "A caption far too long for the button");
    section.Add("caption cut with an ellipsis", OnGround(cut, kDarkGround));
    auto* fitted = TextButton(host, "btn_gray", "Fitted to its caption");
    fitted->SetAutoSizeByText(true);
    section.Add("AutoSizeByText", OnGround(fitted, kDarkGround));
    auto* both = TextButton(host, "btn_blue_small", "Save");
    both->DnNormalIcon()->SetText(Picture("icon_save_normal"));
    both->SetIconVisible(true);
    both->SetIconAlign(TImageButtonTypes::taLeftJustify);
    both->SetIconAlignY(TImageButtonTypes::tlCenter);
    both->SetIconOffset(Scaled(6));
    section.Add("icon and caption", OnGround(both, kDarkGround));
}

}  // namespace qpt
