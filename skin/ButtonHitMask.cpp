#include "skin/ButtonHitMask.h"

#include <QPainter>

#include "skin/DesignRect.h"
#include "skin/RdGraphic.h"
#include "skin/SkinDraw.h"

namespace qpt {

namespace {

bool Opaque(QRgb pixel) {
    return qAlpha(pixel) != 0 && (qRed(pixel) | qGreen(pixel) | qBlue(pixel)) != 0;
}

}  // namespace

void TButtonHitMask::Update(TRdGraphic* range, const TDesignRect& slicing, const QSize& size) {
    range_ = range && !range->Empty() ? range : nullptr;
    mask_ = QImage();
    if (!range_ || slicing.Empty() || size.isEmpty()) return;
    mask_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
    mask_.fill(0);
    QPainter painter(&mask_);
    SkinDraw(painter, mask_.rect(), range_, &slicing);
}

bool TButtonHitMask::Hit(int x, int y) const {
    if (!range_) return true;
    if (mask_.isNull()) {
        if (x < 0 || y < 0 || x >= range_->Width() || y >= range_->Height()) return false;
        return Opaque(range_->GetPixel(x, y));
    }
    if (!mask_.valid(x, y)) return false;
    return Opaque(qUnpremultiply(mask_.pixel(x, y)));
}

QRegion TButtonHitMask::Region(const QSize& size) const {
    QRegion region;
    if (!range_) return region;
    for (int y = 0; y < size.height(); ++y) {
        int x = 0;
        while (x < size.width()) {
            if (!Hit(x, y)) {
                ++x;
                continue;
            }
            const int start = x;
            while (x < size.width() && Hit(x, y))
                ++x;
            region += QRect(start, y, x - start, 1);
        }
    }
    return region;
}

}  // namespace qpt
