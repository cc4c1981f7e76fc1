// The skinned hint window, with and without a title and a background picture.
#include "skin/ColorTable.h"
#include "skin/RdSkinHint.h"
#include "skin/RdSkinHintWindow.h"
#include "tools/SkinGallery/GalleryEvents.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"

namespace qpt {

namespace {

QWidget* HintPicture(TRdSkinHint& hint, const QString& text, QWidget* host) {
    ScaleFonts(&hint);
    TRdSkinHintWindow& window = *hint.Window();
    window.SetHintText(text);
    window.resize(window.CalcHintSize());
    return Snapshot(window, host);
}

}  // namespace

void AddHintSection(TGalleryPage& page) {
    TGallerySection& section = page.AddSection("Skin hint (TRdSkinHint)");
    auto* plain = new TRdSkinHint(section.Host());
    section.Add("plain box", HintPicture(*plain, "Rectangle", section.Host()));
    section.Add("title##text", HintPicture(*plain, "Rectangle##Drag on the picture to draw a frame",
                                           section.Host()));
    section.Add("wrapped at MaxWidth",
                HintPicture(*plain,
                            "Copy##Puts the picture with everything drawn on it on the "
                            "clipboard, and closes the window once another program has it",
                            section.Host()));

    auto* pictured = new TRdSkinHint(section.Host());
    pictured->BackgroundImage()->SetText("imgname=[bg_window]");
    // The window picture is dark: the text takes the skin's strong text colour.
    quint32 strong = 0;
    IdentToColor("text_color.cl_text_a", strong);
    pictured->Font()->SetColor(strong);
    pictured->FontTitle()->SetColor(strong);
    section.Add("on the skin's window picture",
                HintPicture(*pictured, "Share##Upload and copy the link", section.Host()));
}

}  // namespace qpt
