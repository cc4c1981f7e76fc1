// The skinned popup menu with its icons from an image note list, and the
// image note that can share those pictures. Each menu level is a popup
// window of its own; the gallery shows what it paints.
#include "skin/RdImageNote.h"
#include "skin/RdImageNoteList.h"
#include "skin/RdMenuCtrl.h"
#include "skin/RdMenuForm.h"
#include "skin/RdSkinMenu.h"
#include "tools/SkinGallery/GalleryEvents.h"
#include "tools/SkinGallery/GalleryGround.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"

namespace qpt {

namespace {

const QStringList kIcons = {"icon_rectangle_normal", "icon_text_normal", "icon_delete_normal",
                            "icon_share_normal"};

void FillPictures(TPictureCollection& pictures) {
    for (const QString& name : kIcons)
        pictures.Add(name, "imgname=images/" + name + ".png");
}

TMenuItem* AddItem(TMenuItem* level, const QString& caption, int image = -1) {
    TMenuItem* item = level->Add(caption);
    item->SetImageIndex(image);
    return item;
}

// Every kind of entry: icons, the default, a separator, check and radio
// marks, a sub-menu and a disabled entry.
TRdSkinMenu* MakeMenu(QObject* owner, TRdImageNoteList* icons) {
    auto* menu = new TRdSkinMenu(owner);
    menu->AllSkin()->SetSkinClass("SkinMenu");
    menu->SetImages(icons);
    ScaleFonts(menu);
    TMenuItem* root = menu->Items();
    AddItem(root, "&Rectangle", 0)->SetDefault(true);
    AddItem(root, "&Text", 1);
    AddItem(root, "-");
    AddItem(root, "Show &grid")->SetChecked(true);
    TMenuItem* large = AddItem(root, "&Large");
    large->SetRadioItem(true);
    large->SetChecked(true);
    AddItem(root, "S&mall")->SetRadioItem(true);
    AddItem(root, "-");
    TMenuItem* share = AddItem(root, "&Share", 3);
    AddItem(share, "Copy &link");
    AddItem(share, "Send by &mail")->SetEnabled(false);
    AddItem(root, "&Delete", 2)->SetEnabled(false);
    return menu;
}

// A level as it shows, with `hot` lit (-1 for none).
QWidget* Level(TRdSkinMenu* menu, TMenuItem* level, int hot, QWidget* host) {
    TRdMenuForm form(menu, level, nullptr);
    form.Ctrl()->SetHotIndex(hot);
    return Snapshot(form, host);
}

TRdImageNote* Note(QWidget* parent, int index) {
    auto* note = new TRdImageNote(parent);
    FillPictures(*note->Items());
    note->resize(Scaled(QSize(18, 18)));
    note->SetImageIndex(index);
    return note;
}

// The icons are drawn for the dark toolbar.
QWidget* Shown(TRdImageNote* note) {
    return OnGround(note, kDarkGround);
}

}  // namespace

void AddMenuSection(TGalleryPage& page) {
    TGallerySection& section =
        page.AddSection("Skin menu and image notes (TRdSkinMenu, TRdMenuCtrl, TRdImageNote)");
    auto* icons = new TRdImageNoteList(section.Host());
    FillPictures(*icons->ImgNote());
    TRdSkinMenu* menu = MakeMenu(section.Host(), icons);
    TMenuItem* root = menu->Items();

    section.Add("menu, nothing hot", Level(menu, root, -1, section.Host()));
    section.Add("entry under the mouse", Level(menu, root, 1, section.Host()));
    section.Add("checked entry hot", Level(menu, root, 3, section.Host()));
    section.Add("sub-menu entry hot", Level(menu, root, 7, section.Host()));
    section.Add("sub-menu, disabled entry", Level(menu, root->Items(7), 0, section.Host()));
    section.NewRow();

    for (int i = 0; i < kIcons.size(); ++i)
        section.Add(QString("image note, index %1").arg(i), Shown(Note(section.Host(), i)));
    auto* locked = Note(section.Host(), 0);
    locked->SetLocked(true);
    locked->SetImageIndex(2);
    section.Add("locked at 0, index set to 2", Shown(locked));
    section.Add("index outside the list", Shown(Note(section.Host(), 9)));
}

}  // namespace qpt
