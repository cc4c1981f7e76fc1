#pragma once

#include "imaging/IELayer.h"

namespace qpt {

// A layer that carries pixels of its own; layer 0, the picture, is one.
class TIEImageLayer : public TIELayer {
public:
    explicit TIEImageLayer(TIELayerList* owner);

    TResampleFilter ResampleFilter = rfFastLinear;
    bool UseResampleFilter = false;

    TIEBitmap* Bitmap() override { return &picture_; }
    const TIEBitmap& Picture() const { return picture_; }
    // Makes Width and Height follow the bitmap, as after loading a picture.
    void FitToBitmap();
    // A blank sheet of the given size in colour (0x00BBGGRR), fitted to it.
    void Blank(int width, int height, TColor color);

    void SaveToStream(QDataStream& out, bool withPixels) const override;
    void LoadFromStream(QDataStream& in) override;

private:
    TIEBitmap picture_;
};

}  // namespace qpt
