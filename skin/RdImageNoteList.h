#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <functional>

#include "skin/PictureCollection.h"

class QPainter;

namespace qpt {

// A non-visual list of pictures that menus and image notes draw from by
// index. It keeps its own collection, or shares that of an image note
// (SetImgNote), so a form fills the pictures in one place.
//
// Width and Height are the cell size: as set with CustomSize, otherwise the
// largest picture of the list (16 by 16 when it has none). UnifiedSize draws
// every picture in the cell size; otherwise each keeps its own size.
// StretchDraw fills that size exactly; otherwise a picture keeps its
// proportions and is only ever made smaller, never blown up.
class TRdImageNoteList : public QObject {
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)
    Q_PROPERTY(qpt::TPictureCollection* ImgNote READ ImgNote WRITE SetImgNote)
    Q_PROPERTY(bool CustomSize READ CustomSize WRITE SetCustomSize)
    Q_PROPERTY(int Width READ Width WRITE SetWidth)
    Q_PROPERTY(int Height READ Height WRITE SetHeight)
    Q_PROPERTY(bool UnifiedSize READ UnifiedSize WRITE SetUnifiedSize)
    Q_PROPERTY(bool StretchDraw READ StretchDraw WRITE SetStretchDraw)

public:
    static constexpr int kDefaultSize = 16;

    explicit TRdImageNoteList(QObject* parent = nullptr);

    int Count() const { return ImgNote()->Count(); }
    TPictureCollection* ImgNote() const;
    // Shares another collection; none goes back to the list's own.
    void SetImgNote(TPictureCollection* collection);

    bool CustomSize() const { return customSize_; }
    void SetCustomSize(bool value);
    int Width() const;
    int Height() const;
    // Setting a size switches CustomSize on, as a form expects.
    void SetWidth(int value);
    void SetHeight(int value);
    bool UnifiedSize() const { return unifiedSize_; }
    void SetUnifiedSize(bool value);
    bool StretchDraw() const { return stretchDraw_; }
    void SetStretchDraw(bool value);

    // Whether item `index` holds a picture.
    bool HasPicture(int index) const;
    // The size item `index` is drawn in; empty without a picture.
    QSize ItemSize(int index) const;
    // Where item `index` lands when centred in `cell`.
    QRect ItemRect(int index, const QRect& cell) const;
    // Draws item `index` centred in `cell`; false when there is nothing.
    bool Draw(QPainter& painter, int index, const QRect& cell, bool gray = false,
              int alpha = 255) const;

    std::function<void()> OnChange;

signals:
    void Changed();

private:
    void Change(bool& field, bool value);
    void Notify();
    QSize LargestPicture() const;

    TPictureCollection* own_;
    QPointer<TPictureCollection> shared_;
    QMetaObject::Connection sharedLink_;
    bool customSize_ = false;
    int width_ = kDefaultSize;
    int height_ = kDefaultSize;
    bool unifiedSize_ = false;
    bool stretchDraw_ = false;
};

}  // namespace qpt
