#pragma once

#include <QDataStream>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QUuid>

#include "imaging/IEBitmap.h"
#include "imaging/IELayerTypes.h"

namespace qpt {

class TIELayerList;

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
// that the cache and the view follow. What only one kind has lives in its
// class: a new kind is one class and one row of the list's factory.
class TIELayer {
public:
    virtual ~TIELayer();
    TIELayer(const TIELayer&) = delete;
    TIELayer& operator=(const TIELayer&) = delete;

    TIELayerKind Kind() const { return kind_; }
    TIELayerList* Owner() const { return owner_; }
    void SetOwner(TIELayerList* owner) { owner_ = owner; }

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
    bool Visible = true;
    bool VisibleBox = true;
    int32_t Transparency = 255;
    double Opacity = 1.0;
    bool Locked = false;
    bool Selectable = true;
    bool Selected = false;
    QString Name;
    QUuid Guid;
    // The layer's last place in view pixels, as the compositor drew it.
    QRect ClientRect;
    bool Modified = false;

    // The style setters the application uses on any layer; a kind with
    // fields of its own for the same look keeps them in step.
    virtual void SetBorderColor(TColor color);
    virtual void SetBorderWidth(int32_t width);
    virtual void SetFillColor(TColor color);

    // Marks the layer modified, optionally drops the cache, and tells the
    // owner that an update is due. Does nothing while the update lock is on.
    void Changed(bool dropCache = true);
    void BeginUpdate() { ++updateLock_; }
    void EndUpdate();
    bool UpdateLocked() const { return updateLock_ > 0; }
    // Changes whenever the layer's look was changed (Changed with a dropped
    // cache, or a load); building the cache does not count.
    uint64_t ContentGeneration() const { return generation_; }

    // The picture that composing reads: an image layer's own bitmap, a drawn
    // layer's cache (null before the first paint).
    virtual TIEBitmap* Bitmap() = 0;
    // Brings derived data (a polyline's box) up to date.
    virtual void ApplyChanges() {}
    // Whether a bitmap point, already turned back by the layer's rotation,
    // lies on the layer; tolerance is the slack in bitmap pixels for a thin
    // outline. The plain box by default.
    virtual bool Hit(QPointF p, double tolerance) const;
    // The least height of a layer placed by a click rather than a drag.
    virtual int MinimumClickHeight() const { return 0; }
    // A resize turned the box over on x or y: a kind that keeps points in
    // the box mirrors them, so that they keep their place.
    virtual void TurnOver(bool x, bool y) { (void)x, (void)y; }

    virtual void SaveToStream(QDataStream& out, bool withPixels) const;
    virtual void LoadFromStream(QDataStream& in);

protected:
    TIELayer(TIELayerKind kind, TIELayerList* owner);
    // Forgets what was drawn from the fields; called by Changed and a load.
    virtual void DropCache() {}

private:
    TIELayerKind kind_;
    TIELayerList* owner_;
    int updateLock_ = 1;  // constructors hold it; the factory releases it
    uint64_t generation_ = 0;
};

}  // namespace qpt
