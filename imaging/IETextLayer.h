#pragma once

#include <QFont>

#include "imaging/IEVectorLayer.h"

namespace qpt {

class TIETextLayer : public TIEVectorLayer {
public:
    explicit TIETextLayer(TIELayerList* owner);

    TIEFont Font{"Arial", 14, clBlack};
    QString Text;
    QByteArray RichText;
    bool EnableFormatting = false;
    bool WordWrap = true;
    int32_t HorzMargin = 0;
    int32_t VertMargin = 0;
    uint8_t TextAlignment = 0;  // 0 left, 1 right, 2 centre, 3 justified
    uint8_t TextLayout = 0;     // 0 top, 1 centre, 2 bottom

    bool AutoSize() const { return autoSize_; }
    // Text, font and AutoSize setters measure the text again when AutoSize is on.
    void SetAutoSize(bool on);
    void SetText(const QString& text);
    void SetFont(const TIEFont& font);

    // One line of the font and a little room, so that a click gives a box
    // that the first line fits in.
    int MinimumClickHeight() const override;

    void PaintToBitmap(TIEBitmap& dest, int width, int height) override;
    void SaveToStream(QDataStream& out, bool withPixels) const override;
    void LoadFromStream(QDataStream& in) override;

private:
    void MeasureIfAutoSized();
    bool autoSize_ = false;
};

// The font a text layer draws with, at scale times its own size. Its points
// are taken at 96 dots per inch whatever the screen, as a picture pixel is
// a screen pixel; whatever shows the text as it will be drawn uses this.
QFont IETextQFont(const TIEFont& font, double scale);

}  // namespace qpt
