#include "skin/RdHtmLabelLinks.h"

namespace qpt {

TRdHtmLabelLinks::TRdHtmLabelLinks(QObject* parent) : QObject(parent) {}

TRdHtmLabelLink* TRdHtmLabelLinks::Item(int index) const {
    return index >= 0 && index < Count() ? items_[size_t(index)] : nullptr;
}

TRdHtmLabelLink* TRdHtmLabelLinks::Find(const QString& name) const {
    for (TRdHtmLabelLink* item : items_)
        if (item->Name() == name) return item;
    return nullptr;
}

TRdHtmLabelLink* TRdHtmLabelLinks::Add(const QString& name) {
    auto* item = new TRdHtmLabelLink(this);
    item->SetName(name);
    connect(item, &TRdHtmLabelLink::Changed, this, &TRdHtmLabelLinks::Changed);
    items_.push_back(item);
    emit Changed();
    return item;
}

void TRdHtmLabelLinks::Clear() {
    if (items_.empty()) return;
    for (TRdHtmLabelLink* item : items_)
        delete item;
    items_.clear();
    emit Changed();
}

}  // namespace qpt
