#pragma once

#include <QImage>
#include <atomic>
#include <vector>

#include "skin/PngCodec.h"
#include "skin/RdGraphic.h"

namespace qpt {

struct TPngImageData;

// A decoded PNG picture with the three attributes a skin may give it (a
// constant alpha, a smoothing level, grey drawing), which travel inside the
// file in a "RDPNG" text chunk. Copies share their pixels until one of them
// writes.
class TPngImage : public TRdGraphic {
public:
    TPngImage() = default;
    ~TPngImage() override;

    int Width() const override { return Pixels().width(); }
    int Height() const override { return Pixels().height(); }

    bool LoadFromBytes(const QByteArray& bytes) override;
    // A text cannot describe pixels: the picture becomes empty.
    bool LoadFromText(const QStringList& lines) override;
    QByteArray SaveToBytes() const;
    // Why the last LoadFromBytes gave an empty picture.
    const QString& LastError() const { return lastError_; }

    void Assign(const TRdGraphic* source) override;
    // Takes any QImage as the new pixels.
    void SetPixels(const QImage& image);

    QRgb GetPixel(int x, int y) const override;
    void SetPixel(int x, int y, QRgb color) override;
    void DrawPart(QPainter& painter, const QRect& dest, const QRect& source, int alpha, bool gray,
                  TPngSmoothFilter smooth) override;
    int DrawAlpha() const override { return alphaBlendValue_; }

    uint8_t AlphaBlendValue() const { return alphaBlendValue_; }
    void SetAlphaBlendValue(uint8_t value);
    TPngSmoothFilter SmoothFilter() const { return smoothFilter_; }
    void SetSmoothFilter(TPngSmoothFilter value);
    bool GrayMode() const { return grayMode_; }
    void SetGrayMode(bool value);

    // Premultiplied ARGB32, read-only; may be shared with other pictures.
    const QImage& Pixels() const;
    // For drawing into the picture: leaves sharing first, so that copies keep
    // what they had.
    QImage& MutablePixels();
    bool SharesPixelsWith(const TPngImage& other) const;

    // Explicit lifetime count for holders outside the cache. Only plain
    // TPngImage objects may be counted; the owner may free the object only
    // while the count is not above 0.
    int32_t AddRef();
    int32_t Release();
    int32_t RefCount() const { return refCount_.load(); }

private:
    void EnterSharing() const;
    void DropPixels();
    void ReadAttributes(const QByteArray& text);
    QByteArray AttributesText() const;

    mutable QImage own_;
    mutable TPngImageData* shared_ = nullptr;
    std::vector<TPngText> texts_;  // chunks of other keywords, kept as they came
    uint8_t alphaBlendValue_ = 255;
    TPngSmoothFilter smoothFilter_ = TPngSmoothFilter::psfDefault;
    bool grayMode_ = false;
    std::atomic<int32_t> refCount_{0};
    QString lastError_;
};

}  // namespace qpt
