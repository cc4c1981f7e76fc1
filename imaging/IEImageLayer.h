#pragma once

#include "imaging/IELayer.h"

namespace qpt {

// A layer that carries pixels of its own; layer 0, the picture, is one.
class TIEImageLayer : public TIELayer {
public:
    // Fills a fresh bitmap of the given size with background (0x00BBGGRR);
    // a size of 0 leaves the bitmap empty.
    TIEImageLayer(TIELayerList* owner, int width = 0, int height = 0, TColor background = clWhite);

    TResampleFilter ResampleFilter = rfFastLinear;
    bool UseResampleFilter = false;

    TIEBitmap* Bitmap() override { return &picture_; }
    const TIEBitmap& Picture() const { return picture_; }
    // Makes Width and Height follow the bitmap, as after loading a picture.
    void FitToBitmap();

    void SaveToStream(QDataStream& out, bool withPixels) const override;
    void LoadFromStream(QDataStream& in) override;

private:
    TIEBitmap picture_;
};

}  // namespace qpt
