#include "output/FlattenPicture.h"

#include "imaging/view/IEImageView.h"

namespace qpt {

void FlattenPicture(TIEImageView& view) {
    view.LayersCancelEditors(true);
    view.Layers().Flatten();
    view.Update();
}

}  // namespace qpt
