#include "tools/SkinGallery/GalleryGround.h"

#include "skin/RdPanel.h"

namespace qpt {

QWidget* OnGround(QWidget* control, quint32 color) {
    auto* panel = new TRdPanel(control->parentWidget());
    panel->resize(control->size() + QSize(8, 8));
    panel->SetColor(color);
    control->setParent(panel);
    control->move(4, 4);
    return panel;
}

}  // namespace qpt
