// The slider, on the skin class every form gives it.
#include "skin/RdSlider.h"
#include "tools/SkinGallery/GalleryEvents.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"

namespace qpt {

namespace {

TRdSlider* Slider(QWidget* parent, int value) {
    auto* slider = new TRdSlider(parent);
    slider->resize(Scaled(QSize(150, 24)));
    slider->AllSkin()->SetSkinClass("Slider");
    slider->SetMinValue(0);
    slider->SetMaxValue(100);
    slider->SetValue(value);
    return slider;
}

}  // namespace

void AddSliderSection(TGalleryPage& page) {
    TGallerySection& section = page.AddSection("Slider (TRdSlider)");
    section.Add("value 40", Slider(section.Host(), 40));
    section.Add("at the minimum", Slider(section.Host(), 0));
    section.Add("at the maximum", Slider(section.Host(), 100));

    auto* hot = Slider(section.Host(), 40);
    HoverAt(hot, hot->ThumbRect().center());
    section.Add("thumb under the mouse", hot);

    auto* held = Slider(section.Host(), 40);
    PressAt(held, held->ThumbRect().center());
    section.Add("thumb held", held);

    auto* disabled = Slider(section.Host(), 40);
    disabled->setEnabled(false);
    section.Add("disabled", disabled);

    auto* points = Slider(section.Host(), 60);
    points->SetIncrement(10);
    points->SetOptions(TRdCustomSlider::soShowPoints);
    section.Add("with points, step 10", points);
}

}  // namespace qpt
