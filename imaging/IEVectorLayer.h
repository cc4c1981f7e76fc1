#pragma once

#include <memory>

#include "imaging/IELayer.h"
#include "imaging/IEOpaqueRuns.h"

namespace qpt {

// A layer drawn from its fields: shapes, lines, strokes and text. It keeps a
// premultiplied picture of itself at the size last asked for, so that a
// repaint does no drawing until the look or the size changes.
class TIEVectorLayer : public TIELayer {
public:
    // The rendered picture, premultiplied ie32RGB.
    std::unique_ptr<TIEBitmap> CachedBitmap;
    bool CacheValid = false;

    TIEBitmap* Bitmap() override { return CachedBitmap.get(); }
    // Draws the layer into dest, allocated here as premultiplied ie32RGB of
    // width by height.
    virtual void PaintToBitmap(TIEBitmap& dest, int width, int height) = 0;
    // Whether the cache for this destination size is drawn at twice the size
    // and halved, which is the anti-aliasing of the kinds that want it.
    virtual bool SupersampledFor(int destWidth, int destHeight) const {
        return (void)destWidth, (void)destHeight, false;
    }
    // The cache at the destination size, rebuilt when it is not valid or of
    // another size; a supersampled render is brought down with a 2:1 linear
    // filter. Null for a size under 1.
    const TIEBitmap* CacheFor(int destWidth, int destHeight);
    // The non-transparent runs of the cache, built with it.
    const TIEOpaqueRuns& CacheRuns() const { return cacheRuns_; }
    // 2 when the last cache build was supersampled, else 1.
    int RenderScale() const { return renderScale_; }

protected:
    using TIELayer::TIELayer;
    void DropCache() override { CacheValid = false; }

private:
    int renderScale_ = 1;
    TIEOpaqueRuns cacheRuns_;
};

// Allocates dest as a transparent premultiplied ie32RGB canvas in memory.
bool IEAllocateCanvas(TIEBitmap& dest, int width, int height);

}  // namespace qpt
