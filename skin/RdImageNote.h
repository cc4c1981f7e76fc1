#pragma once

#include <functional>

#include "skin/PictureCollection.h"
#include "skin/RdImage.h"

namespace qpt {

// Shows one picture out of its own list of pictures (Items), the one at
// ImageIndex; an image note list can share the same pictures for a menu.
// Locked holds the picture on show: changes of the index or the items are
// kept and shown once it is unlocked.
class TRdImageNote : public TRdImage {
    Q_OBJECT
    Q_PROPERTY(qpt::TPictureCollection* Items READ Items)
    Q_PROPERTY(int ImageIndex READ ImageIndex WRITE SetImageIndex)
    Q_PROPERTY(bool Locked READ Locked WRITE SetLocked)

public:
    explicit TRdImageNote(QWidget* parent = nullptr);

    TPictureCollection* Items() const { return items_; }
    int ImageIndex() const { return imageIndex_; }
    // Any index is kept; one outside the list shows nothing.
    void SetImageIndex(int value);
    bool Locked() const { return locked_; }
    void SetLocked(bool value);

    // The picture on show changed (index, item or unlock).
    std::function<void(TRdImageNote& sender)> OnItemChanged;

private:
    void ShowItem();

    TPictureCollection* items_;
    int imageIndex_ = 0;
    bool locked_ = false;
};

}  // namespace qpt
