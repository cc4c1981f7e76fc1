#include "imaging/IEVectorLayer.h"

#include "imaging/IEBlend.h"

namespace qpt {

bool IEAllocateCanvas(TIEBitmap& dest, int width, int height) {
    // Caches are read row after row at every compose: keep them in memory.
    if (dest.Location() != ieMemory) dest.SetLocation(ieMemory);
    if (!dest.Allocate(width, height, ie32RGB)) return false;
    dest.Fill(0);
    return true;
}

const TIEBitmap* TIEVectorLayer::CacheFor(int destWidth, int destHeight) {
    if (destWidth < 1 || destHeight < 1) return nullptr;
    if (!CachedBitmap) CachedBitmap = std::make_unique<TIEBitmap>();
    TIEBitmap& cache = *CachedBitmap;
    if (CacheValid && cache.Width() == destWidth && cache.Height() == destHeight) return &cache;
    if (SupersampledFor(destWidth, destHeight)) {
        // The double-size render is a passing step; only its reduction stays.
        thread_local TIEBitmap big;
        PaintToBitmap(big, destWidth * 2, destHeight * 2);
        if (!IEAllocateCanvas(cache, destWidth, destHeight)) return nullptr;
        IEHalveScale32(big, cache);
        renderScale_ = 2;
    } else {
        PaintToBitmap(cache, destWidth, destHeight);
        renderScale_ = 1;
    }
    if (cache.Width() != destWidth || cache.Height() != destHeight) return nullptr;
    cacheRuns_.Build(cache);
    CacheValid = true;
    return &cache;
}

}  // namespace qpt
