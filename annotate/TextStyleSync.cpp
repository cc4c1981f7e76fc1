// The way back from a text layer to the style bar: opening the editor on a
// text shows its style, and makes it the style of the next text.
#include "annotate/ColorSwatch.h"
#include "annotate/FormSmallTools.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "imaging/IETextLayer.h"
#include "imaging/view/IEImageView.h"
#include "skin/RdComboBox.h"

namespace qpt {

// The lists are set without their select handlers, which would write the
// bar's style back over the layer's.
void SyncTextStyleFromLayer(int layerIndex) {
    if (!Image_Front) return;
    const auto* text =
        dynamic_cast<const TIETextLayer*>(Image_Front->Layers().GetLayer(layerIndex));
    if (!text) return;
    const TIEFont& font = text->Font;
    TextFontSize = font.Size;
    TextFontName = font.Name;
    TextColor = font.Color;
    TFormSmallTools* bar = SessionStyleBar();
    if (!bar) return;
    // A size the list lacks leaves it without a selection.
    bar->FontSize_combox->setCurrentIndex(
        bar->FontSize_combox->findText(QString::number(font.Size), Qt::MatchFixedString));
    bar->WaitForFontList();
    bar->Font_ComboBox->setCurrentIndex(bar->Font_ComboBox->findText(font.Name));
    bar->Image_show->Fill(font.Color);
    TextColor = bar->Image_show->Color();
}

}  // namespace qpt
