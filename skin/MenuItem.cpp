#include "skin/MenuItem.h"

#include <utility>

namespace qpt {

TMenuItem::TMenuItem(QObject* parent) : QObject(parent), bitmap_(new TRdPictureProperty(this)) {
    connect(bitmap_, &TRdPictureProperty::Changed, this, [this] { emit Changed(this); });
}

TMenuItem::TMenuItem(const QString& caption, QObject* parent) : TMenuItem(parent) {
    caption_ = caption;
}

template <typename T>
void TMenuItem::Change(T& field, const T& value) {
    if (field == value) return;
    field = value;
    emit Changed(this);
}

void TMenuItem::SetCaption(const QString& value) {
    Change(caption_, value);
}
void TMenuItem::SetChecked(bool value) {
    Change(checked_, value);
}
void TMenuItem::SetRadioItem(bool value) {
    Change(radioItem_, value);
}
void TMenuItem::SetDefault(bool value) {
    Change(default_, value);
}
void TMenuItem::SetEnabled(bool value) {
    Change(enabled_, value);
}
void TMenuItem::SetVisible(bool value) {
    Change(visible_, value);
}
void TMenuItem::SetImageIndex(int value) {
    Change(imageIndex_, value);
}

TMenuItem* TMenuItem::Items(int index) const {
    return index >= 0 && index < Count() ? items_[index] : nullptr;
}

TMenuItem* TMenuItem::Add(TMenuItem* item) {
    if (!item || items_.contains(item)) return item;
    item->setParent(this);
    connect(item, &TMenuItem::Changed, this, &TMenuItem::Changed);
    connect(item, &QObject::destroyed, this, [this, item] {
        items_.removeOne(item);
        emit Changed(this);
    });
    items_.append(item);
    emit Changed(this);
    return item;
}

TMenuItem* TMenuItem::Add(const QString& caption) {
    return Add(new TMenuItem(caption, nullptr));
}

void TMenuItem::Clear() {
    const QList<TMenuItem*> items = std::exchange(items_, {});
    for (TMenuItem* item : items) {
        disconnect(item, nullptr, this, nullptr);
        delete item;
    }
    if (!items.isEmpty()) emit Changed(this);
}

QChar TMenuItem::Accelerator() const {
    for (qsizetype i = 0; i + 1 < caption_.size(); ++i) {
        if (caption_[i] != u'&') continue;
        if (caption_[i + 1] != u'&') return caption_[i + 1].toLower();
        ++i;
    }
    return {};
}

void TMenuItem::Click() {
    if (OnClick) OnClick(*this);
}

}  // namespace qpt
