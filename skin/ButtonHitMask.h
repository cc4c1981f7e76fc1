#pragma once

#include <QImage>
#include <QRegion>

namespace qpt {

class TRdGraphic;
class TDesignRect;

// The clickable area of a button from its range picture: a pixel counts when
// it is not fully transparent and not black. A sliced range is drawn at the
// button's size first; an unsliced one is tested as it is, at its own size.
class TButtonHitMask {
public:
    // Takes a new range (none or an empty picture: everything hits). The
    // graphic must stay alive until the next Update.
    void Update(TRdGraphic* range, const TDesignRect& slicing, const QSize& size);

    bool Active() const { return range_ != nullptr; }
    bool Hit(int x, int y) const;
    // The hit pixels inside `size` as a region; empty when not active.
    QRegion Region(const QSize& size) const;
    // The range drawn at the button's size; null when the range is unsliced.
    const QImage& MaskImage() const { return mask_; }

private:
    TRdGraphic* range_ = nullptr;
    QImage mask_;
};

}  // namespace qpt
