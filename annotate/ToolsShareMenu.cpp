// The share button's menu with the sites' badges, and the button's own
// skinned hint.
#include <QCursor>

#include "annotate/FormTools.h"
#include "annotate/SkinNames.h"
#include "annotate/ToolsPlacement.h"
#include "skin/MenuItem.h"
#include "skin/RdImageButton.h"
#include "skin/RdImageNote.h"
#include "skin/RdImageNoteList.h"
#include "skin/RdMenuForm.h"
#include "skin/RdSkinHint.h"
#include "skin/RdSkinMenu.h"

namespace qpt {

namespace {

struct TShareSite {
    TMenuItem* TFormTools::*item;
    const char* name;
    const char* caption;
    const char* badge;
    void (TFormTools::*click)();
};

constexpr TShareSite kSites[] = {
    {&TFormTools::MenuFacebook, "MenuFacebook", "Facebook", "icon_fackebook",
     &TFormTools::MenuFacebookClick},
    {&TFormTools::MenuTwitter, "MenuTwitter", "Twitter", "icon_twitter",
     &TFormTools::MenuTwitterClick},
    {&TFormTools::MenuPinterest, "MenuPinterest", "Pinterest", "icon_pinterest",
     &TFormTools::MenuPinterestClick},
    {&TFormTools::MenuImgur, "MenuImgur", "Imgur", "icon_imgur", &TFormTools::MenuImgurClick},
};

void DressMenu(TRdSkinMenu& menu) {
    menu.AllSkin()->SetSkinClass(QStringLiteral("SkinMenu"));
    menu.setProperty("DropShadow", false);
    menu.SetItemPadding(0);
    menu.SetItemHeight(30);
    menu.SetItemRightMargin(10);
    menu.SetItemLeftMargin(20);
    menu.SetIconOffsetX(12);
    menu.setProperty("ColorBackground",
                     SkinColorValue(QStringLiteral("public_element.cl_rightclick_menu_bg")));
    menu.setProperty("ColorBorder",
                     SkinColorValue(QStringLiteral("public_element.cl_rightclick_menu_border")));
    menu.setProperty("ColorHighLight",
                     SkinColorValue(QStringLiteral("public_element.cl_rightclick_menu_over")));
    menu.FontNormal()->SetName(QStringLiteral("Segoe UI"));
    menu.FontNormal()->SetHeight(-14);
    menu.FontNormal()->SetColor(SkinColorValue(QStringLiteral("text_color.cl_text_b")));
    menu.FontHighLight()->SetColor(SkinColorValue(QStringLiteral("text_color.cl_text_a")));
    menu.FontDisabled()->SetColor(clGray);
}

void DressHint(TRdSkinHint& hint) {
    hint.Font()->SetName(QStringLiteral("微软雅黑"));
    hint.Font()->SetHeight(-12);
    hint.Font()->SetColor(clBlack);
    hint.setProperty("TextX", 4);
    hint.setProperty("TextY", 2);
    hint.setProperty("HintHidePause", 20000);
}

}  // namespace

void TFormTools::CreateShareMenu() {
    ImgNote_Share = new TRdImageNote(Panel_Tools);
    ImgNote_Share->setObjectName(QStringLiteral("ImgNote_Share"));
    ImgNote_Share->resize(16, 16);
    ImgNote_Share->setVisible(false);
    ImgNoteList_Share = new TRdImageNoteList(this);
    ImgNoteList_Share->setObjectName(QStringLiteral("ImgNoteList_Share"));
    ImgNoteList_Share->SetImgNote(ImgNote_Share->Items());

    Menu_Share = new TRdSkinMenu(this);
    Menu_Share->setObjectName(QStringLiteral("Menu_Share"));
    DressMenu(*Menu_Share);
    Menu_Share->SetImages(ImgNoteList_Share);
    Menu_Share->OnShow = [this](TRdSkinMenu&) { Menu_ShareShow(); };
    for (int index = 0; const TShareSite& site : kSites) {
        ImgNote_Share->Items()->Add(QLatin1StringView(site.caption),
                                    SkinPicture(QLatin1StringView(site.badge)));
        TMenuItem* item = Menu_Share->Items()->Add(QLatin1StringView(site.caption));
        item->setObjectName(QLatin1StringView(site.name));
        item->SetImageIndex(index++);
        item->OnClick = [this, click = site.click](TMenuItem&) { (this->*click)(); };
        this->*site.item = item;
    }
    ImgNote_Share->SetImageIndex(0);

    Hint_share = new TRdSkinHint(this);
    Hint_share->setObjectName(QStringLiteral("Hint_share"));
    DressHint(*Hint_share);
    // The share button's hint shows in the skinned window, not as a tool tip.
    Btn_Rd_Share->OnShowHint = [this](TRdImageButton& button, QString& hint) {
        Hint_share->ActivateHint(QCursor::pos(), hint, &button);
        hint.clear();
    };
    Btn_Rd_Share->OnMouseExit = [this](TRdImageButton&) { Hint_share->HideHint(); };
}

void TFormTools::Btn_Rd_ShareClick() {
    if (FolderDialogHoldsClicks()) return;
    Hint_share->HideHint();
    Menu_Share->Popup(x() + Btn_Rd_Share->x(), y() + Panel_Tools->height() + 2);
}

void TFormTools::Menu_ShareShow() {
    const QList<TRdMenuForm*> forms = Menu_Share->Forms();
    if (forms.isEmpty()) return;
    TRdMenuForm* popup = forms.first();
    popup->move(popup->x(), ShareMenuTop(geometry(), popup->geometry(), CurrentScreenLayout()));
}

}  // namespace qpt
