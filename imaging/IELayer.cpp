#include "imaging/IELayer.h"

#include <cmath>

#include "imaging/IEBlend.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerStreamFormat.h"
#include "imaging/IELineLayer.h"

namespace qpt {

bool IEAllocateCanvas(TIEBitmap& dest, int width, int height) {
    // Caches are read row after row at every compose: keep them in memory.
    if (dest.Location() != ieMemory) dest.SetLocation(ieMemory);
    if (!dest.Allocate(width, height, ie32RGB)) return false;
    dest.Fill(0);
    return true;
}

TIELayer::TIELayer(TIELayerKind kind, TIELayerList* owner)
    : Guid(QUuid::createUuid()), kind_(kind), owner_(owner) {}

TIELayer::~TIELayer() = default;

void TIELayer::SetBorderColor(TColor color) {
    BorderColor = color;
    if (auto* line = dynamic_cast<TIELineLayer*>(this)) line->LineColor = color;
    Changed(true);
}

void TIELayer::SetBorderWidth(int32_t width) {
    BorderWidth = width;
    if (auto* line = dynamic_cast<TIELineLayer*>(this)) line->LineWidth = width;
    Changed(true);
}

void TIELayer::SetFillColor(TColor color) {
    FillColor = color;
    if (auto* line = dynamic_cast<TIELineLayer*>(this)) line->LineFillColor = color;
    Changed(true);
}

void TIELayer::Changed(bool dropCache) {
    if (updateLock_ > 0) return;
    Modified = true;
    if (dropCache) {
        CacheValid = false;
        ++generation_;
    }
    if (owner_) owner_->NeedsUpdate = true;
}

void TIELayer::EndUpdate() {
    if (updateLock_ > 0) --updateLock_;
}

void TIELayer::PaintToBitmap(TIEBitmap& dest, int width, int height) {
    IEAllocateCanvas(dest, width, height);
}

bool TIELayer::SupersampledFor(int destWidth, int destHeight) const {
    return AntiAlias && kind_ == ielkShape && int64_t(destWidth) * destHeight < 1000000;
}

const TIEBitmap* TIELayer::CacheFor(int destWidth, int destHeight) {
    if (kind_ == ielkImage || destWidth < 1 || destHeight < 1) return nullptr;
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
    CachedAtFullSize = false;
    return &cache;
}

void TIELayer::SaveToStream(QDataStream& out, bool) const {
    out << IsMask << Rotate << RotateCenterX << RotateCenterY << AntiAlias << PosX << PosY << Width
        << Height << AspectRatioLocked << quint32(BorderColor) << qint32(BorderWidth)
        << quint32(FillColor) << quint32(FillColor2) << quint8(FillGradient) << FillOpacity
        << Visible << VisibleBox << qint32(Transparency) << Opacity << qint32(AlphaEdgeFeathering)
        << Locked << Selectable << Selected << Name << Guid;
    for (const TIEVSoftShadow* s : {&SoftShadow, &InnerGlow})
        out << s->Enabled << s->Radius << qint32(s->OffsetX) << qint32(s->OffsetY) << s->Intensity
            << quint32(s->Color);
    out << qint32(DragStart.x()) << qint32(DragStart.y()) << qint32(DragEnd.x())
        << qint32(DragEnd.y()) << quint8(ArrowSize) << AspectRatio;
}

void TIELayer::LoadFromStream(QDataStream& in) {
    const double M = kMaxCoordinate;
    IsMask = IEReadBool(in);
    Rotate = IEReadDouble(in, -M, M);
    RotateCenterX = IEReadDouble(in, -M, M);
    RotateCenterY = IEReadDouble(in, -M, M);
    AntiAlias = IEReadBool(in);
    PosX = IEReadDouble(in, -M, M);
    PosY = IEReadDouble(in, -M, M);
    Width = IEReadDouble(in, 0, M);
    Height = IEReadDouble(in, 0, M);
    AspectRatioLocked = IEReadBool(in);
    BorderColor = IEReadColor(in);
    BorderWidth = IEReadInt(in, 0, 100000);
    FillColor = IEReadColor(in);
    FillColor2 = IEReadColor(in);
    FillGradient = IEReadByte(in, 255);
    FillOpacity = IEReadDouble(in, 0, 1);
    Visible = IEReadBool(in);
    VisibleBox = IEReadBool(in);
    Transparency = IEReadInt(in, 0, 255);
    Opacity = IEReadDouble(in, 0, 1);
    AlphaEdgeFeathering = IEReadInt(in, 0, 100000);
    Locked = IEReadBool(in);
    Selectable = IEReadBool(in);
    Selected = IEReadBool(in);
    Name = IEReadString(in);
    in >> Guid;
    for (TIEVSoftShadow* s : {&SoftShadow, &InnerGlow}) {
        s->Enabled = IEReadBool(in);
        s->Radius = IEReadDouble(in, -M, M);
        s->OffsetX = IEReadInt(in, INT32_MIN, INT32_MAX);
        s->OffsetY = IEReadInt(in, INT32_MIN, INT32_MAX);
        s->Intensity = IEReadDouble(in, -M, M);
        s->Color = IEReadColor(in);
    }
    int ds[4];
    for (int& v : ds)
        v = IEReadInt(in, INT32_MIN, INT32_MAX);
    DragStart = QPoint(ds[0], ds[1]);
    DragEnd = QPoint(ds[2], ds[3]);
    ArrowSize = IEReadByte(in, 2);
    AspectRatio = IEReadDouble(in, 0, M);
    CacheValid = false;
    ++generation_;
}

}  // namespace qpt
