#include "skin/PictureCollection.h"

namespace qpt {

TPictureCollection::TPictureCollection(QObject* parent) : QObject(parent) {}

TPictureItem* TPictureCollection::Items(int index) const {
    return index >= 0 && index < Count() ? items_[index] : nullptr;
}

TPictureItem* TPictureCollection::Add(const QString& name, const QString& pictureText) {
    auto* item = new TPictureItem(this);
    item->SetName(name);
    if (!pictureText.isEmpty()) item->Picture()->SetText(pictureText);
    connect(item, &TPictureItem::Changed, this, &TPictureCollection::Changed);
    items_.append(item);
    emit Changed();
    return item;
}

void TPictureCollection::Delete(int index) {
    if (!Items(index)) return;
    delete items_.takeAt(index);
    emit Changed();
}

void TPictureCollection::Clear() {
    if (items_.isEmpty()) return;
    qDeleteAll(items_);
    items_.clear();
    emit Changed();
}

}  // namespace qpt
