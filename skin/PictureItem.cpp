#include "skin/PictureItem.h"

namespace qpt {

TPictureItem::TPictureItem(QObject* parent)
    : QObject(parent), picture_(new TRdPictureProperty(this)) {
    connect(picture_, &TRdPictureProperty::Changed, this, &TPictureItem::Changed);
}

void TPictureItem::SetName(const QString& value) {
    if (name_ == value) return;
    name_ = value;
    emit Changed();
}

}  // namespace qpt
