#pragma once

namespace qpt {

class TIEImageView;

// Burns every annotation into the picture, as every way out of the session
// begins: a text being typed is kept, then the layers go into the picture
// from the topmost down, so that where marks overlap the older one ends on
// top. No undo step is recorded for it.
void FlattenPicture(TIEImageView& view);

}  // namespace qpt
