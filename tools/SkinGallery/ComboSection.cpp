// The combo box: its closed face by state, and its list in a popup form of
// its own, shown here as it paints.
#include "skin/RdComboBox.h"
#include "skin/RdComboBoxList.h"
#include "tools/SkinGallery/GalleryEvents.h"
#include "tools/SkinGallery/GalleryGround.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"

namespace qpt {

namespace {

const QStringList kFormats = {"PNG picture",  "JPEG picture",
                              "BMP picture",  "GIF picture",
                              "TIFF picture", "A format whose name is too long for the list"};

TRdComboBox* Combo(QWidget* parent) {
    auto* combo = new TRdComboBox(parent);
    combo->resize(Scaled(QSize(150, 30)));
    combo->AllSkin()->SetSkinClass("combobox");
    combo->addItems(kFormats);
    ScaleFonts(combo);
    combo->SetItemHeight(Scaled(combo->ItemHeight()));
    combo->VScrollBar()->SetWidth(Scaled(combo->VScrollBar()->width()));
    return combo;
}

}  // namespace

void AddComboSection(TGalleryPage& page) {
    TGallerySection& section = page.AddSection("Combo box (TRdComboBox)");
    QWidget* host = section.Host();
    section.Add("closed", OnGround(Combo(host), kDarkGround));

    auto* hot = Combo(host);
    HoverAt(hot, hot->rect().center());
    section.Add("under the mouse", OnGround(hot, kDarkGround));

    auto* disabled = Combo(host);
    disabled->setEnabled(false);
    section.Add("disabled", OnGround(disabled, kDarkGround));

    // The list as it drops down: four rows with the skinned bar, the hovered
    // row selected.
    auto* open = Combo(host);
    TRdComboboxListForm* list = open->ListForm();
    list->ListBox()->SetItems(kFormats);
    list->Arrange(open->width(), 4);
    list->ListBox()->SetItemIndex(1);
    section.Add("list, second row under the mouse", Snapshot(*list, host));

    auto* scrolled = Combo(host);
    TRdComboboxListForm* end = scrolled->ListForm();
    end->ListBox()->SetItems(kFormats);
    end->Arrange(scrolled->width(), 4);
    end->ListBox()->SetTopIndex(2);
    end->ListBox()->SetItemIndex(5);
    section.Add("list scrolled to its end", Snapshot(*end, host));
}

}  // namespace qpt
