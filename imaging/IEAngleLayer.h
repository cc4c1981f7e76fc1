#pragma once

#include <array>

#include "imaging/IELayer.h"

namespace qpt {

// Never created by the program; it exists so that a record of this kind
// reads back, and it draws nothing.
class TIEAngleLayer : public TIELayer {
public:
    explicit TIEAngleLayer(TIELayerList* owner);

    std::array<QPointF, 3> AnglePoints{};

    void SaveToStream(QDataStream& out, bool withPixels) const override;
    void LoadFromStream(QDataStream& in) override;
};

}  // namespace qpt
