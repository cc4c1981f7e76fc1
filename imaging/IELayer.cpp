#include "imaging/IELayer.h"

#include "imaging/IELayerList.h"
#include "imaging/IELayerStreamFormat.h"

namespace qpt {

TIELayer::TIELayer(TIELayerKind kind, TIELayerList* owner)
    : Guid(QUuid::createUuid()), kind_(kind), owner_(owner) {}

TIELayer::~TIELayer() = default;

void TIELayer::SetBorderColor(TColor color) {
    BorderColor = color;
    Changed(true);
}

void TIELayer::SetBorderWidth(int32_t width) {
    BorderWidth = width;
    Changed(true);
}

void TIELayer::SetFillColor(TColor color) {
    FillColor = color;
    Changed(true);
}

void TIELayer::Changed(bool dropCache) {
    if (updateLock_ > 0) return;
    Modified = true;
    if (dropCache) {
        DropCache();
        ++generation_;
    }
    if (owner_) owner_->NeedsUpdate = true;
}

void TIELayer::EndUpdate() {
    if (updateLock_ > 0) --updateLock_;
}

bool TIELayer::Hit(QPointF p, double) const {
    const QRectF box = QRectF(PosX, PosY, Width, Height).normalized();
    return p.x() >= box.left() && p.x() < box.right() && p.y() >= box.top() && p.y() < box.bottom();
}

void TIELayer::SaveToStream(QDataStream& out, bool) const {
    out << Rotate << RotateCenterX << RotateCenterY << AntiAlias << PosX << PosY << Width << Height
        << AspectRatioLocked << quint32(BorderColor) << qint32(BorderWidth) << quint32(FillColor)
        << quint32(FillColor2) << quint8(FillGradient) << Visible << VisibleBox
        << qint32(Transparency) << Opacity << Locked << Selectable << Selected << Name << Guid;
}

void TIELayer::LoadFromStream(QDataStream& in) {
    const double M = kMaxCoordinate;
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
    Visible = IEReadBool(in);
    VisibleBox = IEReadBool(in);
    Transparency = IEReadInt(in, 0, 255);
    Opacity = IEReadDouble(in, 0, 1);
    Locked = IEReadBool(in);
    Selectable = IEReadBool(in);
    Selected = IEReadBool(in);
    Name = IEReadString(in);
    in >> Guid;
    IECheckStream(in);
    DropCache();
    ++generation_;
}

}  // namespace qpt
