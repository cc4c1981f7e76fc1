#pragma once

namespace qpt {

class TGalleryPage;

// One function per family of skinned controls; each adds its section to
// the page, with every control in every state it can show.
void AddFormSkinSection(TGalleryPage& page);
void AddButtonSection(TGalleryPage& page);
void AddLabelSection(TGalleryPage& page);
void AddScrollSection(TGalleryPage& page);
void AddComboSection(TGalleryPage& page);
void AddSliderSection(TGalleryPage& page);
void AddMenuSection(TGalleryPage& page);
void AddHintSection(TGalleryPage& page);

}  // namespace qpt
