#include "skin/RdImageNoteList.h"

#include <QPainter>

#include "skin/RdGraphic.h"

namespace qpt {

namespace {

TRdGraphic* PictureOf(const TPictureCollection* collection, int index) {
    const TPictureItem* item = collection->Items(index);
    TRdGraphic* graphic = item ? item->Picture()->Graphic() : nullptr;
    return graphic && !graphic->Empty() ? graphic : nullptr;
}

}  // namespace

TRdImageNoteList::TRdImageNoteList(QObject* parent)
    : QObject(parent), own_(new TPictureCollection(this)) {
    connect(own_, &TPictureCollection::Changed, this, [this] {
        if (!shared_) Notify();
    });
}

TPictureCollection* TRdImageNoteList::ImgNote() const {
    return shared_ ? shared_.data() : own_;
}

void TRdImageNoteList::SetImgNote(TPictureCollection* collection) {
    if (collection == own_) collection = nullptr;
    if (collection == shared_) return;
    disconnect(sharedLink_);
    shared_ = collection;
    if (collection)
        sharedLink_ =
            connect(collection, &TPictureCollection::Changed, this, &TRdImageNoteList::Notify);
    Notify();
}

void TRdImageNoteList::Notify() {
    if (OnChange) OnChange();
    emit Changed();
}

void TRdImageNoteList::Change(bool& field, bool value) {
    if (field == value) return;
    field = value;
    Notify();
}

void TRdImageNoteList::SetCustomSize(bool value) {
    Change(customSize_, value);
}
void TRdImageNoteList::SetUnifiedSize(bool value) {
    Change(unifiedSize_, value);
}
void TRdImageNoteList::SetStretchDraw(bool value) {
    Change(stretchDraw_, value);
}

void TRdImageNoteList::SetWidth(int value) {
    width_ = qMax(value, 0);
    customSize_ = true;
    Notify();
}

void TRdImageNoteList::SetHeight(int value) {
    height_ = qMax(value, 0);
    customSize_ = true;
    Notify();
}

QSize TRdImageNoteList::LargestPicture() const {
    QSize largest;
    for (int i = 0; i < Count(); ++i)
        if (const TRdGraphic* graphic = PictureOf(ImgNote(), i))
            largest = largest.expandedTo(QSize(graphic->Width(), graphic->Height()));
    return largest.isEmpty() ? QSize(kDefaultSize, kDefaultSize) : largest;
}

int TRdImageNoteList::Width() const {
    return customSize_ ? width_ : LargestPicture().width();
}

int TRdImageNoteList::Height() const {
    return customSize_ ? height_ : LargestPicture().height();
}

bool TRdImageNoteList::HasPicture(int index) const {
    return PictureOf(ImgNote(), index) != nullptr;
}

QSize TRdImageNoteList::ItemSize(int index) const {
    const TRdGraphic* graphic = PictureOf(ImgNote(), index);
    if (!graphic) return {};
    const QSize own(graphic->Width(), graphic->Height());
    const QSize cell = unifiedSize_ ? QSize(Width(), Height()) : own;
    if (stretchDraw_) return cell;
    if (own.width() <= cell.width() && own.height() <= cell.height()) return own;
    return own.scaled(cell, Qt::KeepAspectRatio);
}

QRect TRdImageNoteList::ItemRect(int index, const QRect& cell) const {
    const QSize size = ItemSize(index);
    if (size.isEmpty()) return {};
    return QRect(cell.left() + (cell.width() - size.width()) / 2,
                 cell.top() + (cell.height() - size.height()) / 2, size.width(), size.height());
}

bool TRdImageNoteList::Draw(QPainter& painter, int index, const QRect& cell, bool gray,
                            int alpha) const {
    TRdGraphic* graphic = PictureOf(ImgNote(), index);
    if (!graphic) return false;
    graphic->DrawPart(painter, ItemRect(index, cell),
                      QRect(0, 0, graphic->Width(), graphic->Height()), alpha, gray,
                      TPngSmoothFilter::psfDefault);
    return true;
}

}  // namespace qpt
