#include "skin/DesignRectProperty.h"

namespace qpt {

TDesignRectProperty::TDesignRectProperty(QObject* parent) : QObject(parent) {
    rect_.OnChange = [this] { emit Changed(); };
}

void TDesignRectProperty::SetStretchMode(TStretchMode value) {
    if (value < sdmDefault || value > sdmFrame) return;
    rect_.SetStretchMode(static_cast<TSuperStretchMode>(value));
}

}  // namespace qpt
