#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QUuid>
#include <memory>
#include <vector>

#include "imaging/IEBitmap.h"
#include "imaging/IELayerTypes.h"
#include "imaging/IEOpaqueRuns.h"

namespace qpt {

class TIELayerList;

// Soft shadow and inner glow are kept so that a layer record reads back
// whole; nothing here draws them.
struct TIEVSoftShadow {
    bool Enabled = false;
    double Radius = 3.0;
    int32_t OffsetX = 0;
    int32_t OffsetY = 0;
    double Intensity = 100;
    TColor Color = clBlack;
};

struct TIEFont {
    QString Name = "Arial";
    int32_t Size = 12;  // points
    TColor Color = clBlack;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
};

// One annotation above the picture, or the picture itself (layer 0). Fields
// are public as plain data; whoever changes one that shows calls Changed so
// that the cache and the view follow.
class TIELayer {
public:
    virtual ~TIELayer();
    TIELayer(const TIELayer&) = delete;
    TIELayer& operator=(const TIELayer&) = delete;

    TIELayerKind Kind() const { return kind_; }
    TIELayerList* Owner() const { return owner_; }
    void SetOwner(TIELayerList* owner) { owner_ = owner; }

    bool IsMask = false;
    double Rotate = 0;  // degrees, counter-clockwise
    double RotateCenterX = 0.5;
    double RotateCenterY = 0.5;
    bool AntiAlias = true;
    double PosX = 0;
    double PosY = 0;
    double Width = 100;
    double Height = 100;
    bool AspectRatioLocked = false;
    TColor BorderColor = clBlack;
    int32_t BorderWidth = 1;
    TColor FillColor = clWhite;
    TColor FillColor2 = clNone;
    uint8_t FillGradient = 1;
    double FillOpacity = 1.0;
    bool Visible = true;
    bool VisibleBox = true;
    int32_t Transparency = 255;
    double Opacity = 1.0;
    int32_t AlphaEdgeFeathering = 0;
    bool Locked = false;
    bool Selectable = true;
    bool Selected = false;
    QString Name;
    QUuid Guid;
    TIEVSoftShadow SoftShadow;
    TIEVSoftShadow InnerGlow{false, 3.0, 0, 0, 0, clWhite};

    // The rendered picture of a vector layer, premultiplied ie32RGB.
    std::unique_ptr<TIEBitmap> CachedBitmap;
    bool CacheValid = false;
    bool CachedAtFullSize = false;
    std::vector<QPointF> PolygonCache;
    QPoint DragStart;
    QPoint DragEnd;
    uint8_t ArrowSize = 0;
    double AspectRatio = 0;
    QRect ClientRect;
    bool Modified = false;

    // Style setters that also reach a line layer's own fields, so that the
    // caller need not ask the kind.
    void SetBorderColor(TColor color);
    void SetBorderWidth(int32_t width);
    void SetFillColor(TColor color);

    // Marks the layer modified, optionally drops the cache, and tells the
    // owner that an update is due. Does nothing while the update lock is on.
    void Changed(bool dropCache = true);
    void BeginUpdate() { ++updateLock_; }
    void EndUpdate();
    bool UpdateLocked() const { return updateLock_ > 0; }

    // The picture that composing reads: an image layer's own bitmap, a vector
    // layer's cache (may be null before the first paint).
    virtual TIEBitmap* Bitmap() { return CachedBitmap.get(); }
    // Draws a vector layer into dest (allocated here as premultiplied ie32RGB,
    // width by height). An image layer has nothing to draw.
    virtual void PaintToBitmap(TIEBitmap& dest, int width, int height);
    // Brings derived data (a polyline's box) up to date.
    virtual void ApplyChanges() {}
    // Supersampling doubles the render of an anti-aliased shape below one
    // million destination pixels; above that it would cost too much.
    bool SupersampledFor(int destWidth, int destHeight) const;
    // The cache at the destination size, rebuilt when it is not valid or of
    // another size; a supersampled render is brought down with a 2:1 linear
    // filter. Null for an image layer or a size under 1.
    const TIEBitmap* CacheFor(int destWidth, int destHeight);
    // The non-transparent runs of the cache, built with it.
    const TIEOpaqueRuns& CacheRuns() const { return cacheRuns_; }
    // 2 when the last cache build was supersampled, else 1.
    int RenderScale() const { return renderScale_; }
    // Changes whenever the layer's look was changed (Changed with a dropped
    // cache, or a load); building the cache does not count.
    uint64_t ContentGeneration() const { return generation_; }

    virtual void SaveToStream(QDataStream& out, bool withPixels) const;
    virtual void LoadFromStream(QDataStream& in);

protected:
    TIELayer(TIELayerKind kind, TIELayerList* owner);

private:
    TIELayerKind kind_;
    TIELayerList* owner_;
    int updateLock_ = 1;  // constructors hold it; the factory releases it
    int renderScale_ = 1;
    TIEOpaqueRuns cacheRuns_;
    uint64_t generation_ = 0;
};

// Allocates dest as a transparent premultiplied ie32RGB canvas in memory.
bool IEAllocateCanvas(TIEBitmap& dest, int width, int height);

}  // namespace qpt
