#include "skin/RdImageNote.h"

namespace qpt {

TRdImageNote::TRdImageNote(QWidget* parent)
    : TRdImage(parent), items_(new TPictureCollection(this)) {
    connect(items_, &TPictureCollection::Changed, this, &TRdImageNote::ShowItem);
}

void TRdImageNote::SetImageIndex(int value) {
    if (imageIndex_ == value) return;
    imageIndex_ = value;
    ShowItem();
}

void TRdImageNote::SetLocked(bool value) {
    if (locked_ == value) return;
    locked_ = value;
    ShowItem();
}

// The shown picture is a copy in the item's own class, so a description
// keeps drawing through the skin and the item stays the list's.
void TRdImageNote::ShowItem() {
    if (locked_) return;
    const TPictureItem* item = items_->Items(imageIndex_);
    if (item)
        Picture()->SetData(item->Picture()->Data());
    else
        Picture()->Clear();
    update();
    if (OnItemChanged) OnItemChanged(*this);
}

}  // namespace qpt
