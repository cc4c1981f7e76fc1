#include "imaging/IEAngleLayer.h"

#include "imaging/IELayerStreamFormat.h"

namespace qpt {

TIEAngleLayer::TIEAngleLayer(TIELayerList* owner) : TIELayer(ielkAngle, owner) {}

void TIEAngleLayer::SaveToStream(QDataStream& out, bool withPixels) const {
    TIELayer::SaveToStream(out, withPixels);
    for (const QPointF& p : AnglePoints)
        out << p.x() << p.y();
}

void TIEAngleLayer::LoadFromStream(QDataStream& in) {
    TIELayer::LoadFromStream(in);
    for (QPointF& p : AnglePoints) {
        const double x = IEReadDouble(in, -kMaxCoordinate, kMaxCoordinate);
        p = QPointF(x, IEReadDouble(in, -kMaxCoordinate, kMaxCoordinate));
    }
}

}  // namespace qpt
