#pragma once

#include <QStringList>
#include <QWidget>
#include <array>

#include "support/color/ColorNames.h"

class QThread;

namespace qpt {

class TColorSwatch;
class TRdComboBox;
class TRdImageButton;
class TRdLabel;
class TRdPanel;
class TRdSlider;

// The narrow bar under the toolbar that shows and changes the current style:
// pen width and colour for the drawing tools, font, size and colour for
// text, brush and cell size for the pixelation. Its controls change the
// session's style; a text layer being edited follows at once, a mark already
// drawn keeps its look.
class TFormSmallTools : public QWidget {
    Q_OBJECT
public:
    explicit TFormSmallTools(QWidget* parent = nullptr);
    ~TFormSmallTools() override;

    // Starts gathering the font list and has the controls made, once the
    // picture has painted (at once when no first paint is awaited).
    void FormCreate();
    // Makes the controls, sets their texts, selects the middle pen and
    // scales the bar, once; whatever shows, arranges or fills the bar
    // before the picture has painted does it first. Until then the
    // controls below are null.
    void SetUp();
    void setVisible(bool visible) override;

    // The three arrangements; each sets every place and size it shows.
    void ShowShapeStyle();
    void ShowTextStyle();
    void ShowMosaicStyle();
    void ShowPalette(bool visible);
    // Button state 3 on the pen button that shows this line width, 0 on
    // the others; a width no button has changes nothing.
    void SyncPenButtons(int width);

    void Btn_Color_Click(int cell);
    void Btn_Color_1MouseEnter(int cell);
    void Btn_Color_1MouseLeave();
    void Btn_PenClick(int index);
    void FontSize_comboxSelect();
    void Font_ComboBoxSelect();
    void imgWebcamSizeChange();

    // The font list, once gathered; waits for it when still on its way.
    void WaitForFontList();
    bool FontListReady() const { return fontsReady_; }
    // Fills the font list from families, selecting "Tahoma" when present.
    void FillFontList(const QStringList& families);

    TRdPanel* Panel_Tool_Small = nullptr;
    TRdImageButton* RdBtn_SBarBg = nullptr;
    QWidget* Image_div = nullptr;
    TColorSwatch* Image_show = nullptr;
    std::array<TRdImageButton*, 3> Btn_Pen{};
    TRdImageButton* Btn_Color_bg = nullptr;
    TRdImageButton* Btn_Color_Bigbg = nullptr;
    TRdLabel* lbl_PixelSize = nullptr;
    TRdComboBox* FontSize_combox = nullptr;
    TRdComboBox* Font_ComboBox = nullptr;
    TRdSlider* imgWebcamSize = nullptr;
    // The palette cells in the order of the layout: the top row, then the
    // bottom row.
    std::array<TRdImageButton*, 20> PaletteCells{};

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateComponents();
    void CreatePenButtons();
    void CreatePalette();
    void CreateCombos();
    void CreatePixelSize();
    void StartFontList();
    void SelectPen(int index);
    void PlacePalette();
    void SetBarSize(int width, int height);
    // A design number at the interface's scale.
    static int Scaled(int designPixels);

    QThread* fontThread_ = nullptr;
    QStringList gatheredFonts_;
    bool fontsReady_ = false;
};

// The session's style bar with its controls made, null when there is none.
TFormSmallTools* SessionStyleBar();

// Brings the text layer under edit, or the current one, to the session's
// text style, and reloads the editor open on it.
void ApplyTextStyle();
// The text layer at layerIndex, as its editor opens: the bar's lists and
// colour show its style, and the session's text style becomes its own.
void SyncTextStyleFromLayer(int layerIndex);

}  // namespace qpt
