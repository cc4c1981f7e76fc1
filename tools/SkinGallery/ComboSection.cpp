// The combo box: its closed face by state, and its list in a popup form of
// its own, shown here as it paints.
#include <memory>

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

// The list as it drops down, four rows with the skinned bar. The combo box
// that owns it only lends the list: left in the page, its face would lie
// over the first cell of the section.
QWidget* ListSnapshot(QWidget* host, int topIndex, int itemIndex) {
    const std::unique_ptr<TRdComboBox> combo(Combo(nullptr));
    TRdComboboxListForm* list = combo->ListForm();
    list->ListBox()->SetItems(kFormats);
    list->Arrange(combo->width(), 4);
    list->ListBox()->SetTopIndex(topIndex);
    list->ListBox()->SetItemIndex(itemIndex);
    return Snapshot(*list, host);
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

    section.Add("list, second row under the mouse", ListSnapshot(host, 0, 1));
    section.Add("list scrolled to its end", ListSnapshot(host, 2, 5));
}

}  // namespace qpt
