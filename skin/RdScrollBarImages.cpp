#include "skin/RdScrollBarImages.h"

namespace qpt {

namespace {

// Field by field: the slicing's change hook belongs to its owner.
void CopySlicing(const TDesignRectProperty& from, TDesignRectProperty& to) {
    const TDesignRect& r = from.Rect();
    to.Rect().Set(r.Left(), r.Top(), r.Right(), r.Bottom(), r.StretchMode());
}

// Lives as long as the process, past every static holder's end.
TRdScrollBarImages& Clipboard() {
    static auto* clipboard = new TRdScrollBarImages;
    return *clipboard;
}

}  // namespace

TRdScrollBarImages::TRdScrollBarImages(QObject* owner)
    : QObject(owner),
      scrollBgOption_(new TDesignRectProperty(this)),
      trackOption_(new TDesignRectProperty(this)) {
    for (auto*& picture : pictures_) {
        picture = new TRdPictureProperty(this);
        connect(picture, &TRdPictureProperty::Changed, this, &TRdScrollBarImages::Changed);
    }
    connect(scrollBgOption_, &TDesignRectProperty::Changed, this, &TRdScrollBarImages::Changed);
    connect(trackOption_, &TDesignRectProperty::Changed, this, &TRdScrollBarImages::Changed);
}

TRdPictureProperty* TRdScrollBarImages::Picture(TPicture plain, TPicture hot, bool useHot) const {
    if (useHot && !pictures_[hot]->Empty()) return pictures_[hot];
    return pictures_[plain];
}

void TRdScrollBarImages::Change(bool& field, bool value) {
    if (field == value) return;
    field = value;
    emit Changed();
}

void TRdScrollBarImages::Assign(const TRdScrollBarImages& source) {
    if (&source == this) return;
    const QSignalBlocker quiet(this);
    autoArrow_ = source.autoArrow_;
    allowArrow_ = source.allowArrow_;
    autoSize_ = source.autoSize_;
    autoHide_ = source.autoHide_;
    autoCenter_ = source.autoCenter_;
    for (int i = 0; i < ipCount; ++i)
        pictures_[i]->SetData(source.pictures_[i]->Data());
    CopySlicing(*source.scrollBgOption_, *scrollBgOption_);
    CopySlicing(*source.trackOption_, *trackOption_);
    emit Changed();
}

void TRdScrollBarImages::SetPropertyCopy(bool value) {
    if (value) Clipboard().Assign(*this);
}

void TRdScrollBarImages::SetPropertyPaste(bool value) {
    if (value) Assign(Clipboard());
}

}  // namespace qpt
