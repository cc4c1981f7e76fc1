#include "imaging/IEImageLayer.h"

#include <QIODevice>

#include "imaging/IELayerStreamFormat.h"

namespace qpt {

TIEImageLayer::TIEImageLayer(TIELayerList* owner) : TIELayer(ielkImage, owner) {
    BorderColor = clNone;
    BorderWidth = 1;
    FitToBitmap();
}

void TIEImageLayer::Blank(int width, int height, TColor color) {
    if (picture_.Allocate(width, height, ie24RGB)) picture_.Fill(color);
    FitToBitmap();
}

void TIEImageLayer::FitToBitmap() {
    Width = picture_.Width();
    Height = picture_.Height();
}

namespace {

constexpr int64_t kMaxStreamPixels = int64_t(1) << 28;

void WriteRows(QDataStream& out, const TIEBitmap& bitmap, int bytesPerRow) {
    for (int y = 0; y < bitmap.Height(); ++y)
        out.writeRawData(reinterpret_cast<const char*>(bitmap.Scanline(y)), bytesPerRow);
}

void ReadRows(QDataStream& in, TIEBitmap& bitmap, int bytesPerRow) {
    for (int y = 0; y < bitmap.Height(); ++y)
        if (in.readRawData(reinterpret_cast<char*>(bitmap.Scanline(y)), bytesPerRow) != bytesPerRow)
            throw EIEException(kLayerStreamCorrupted);
}

// Refuses a size that the rest of the stream cannot hold before allocating it.
void CheckRoom(QDataStream& in, int64_t bytes) {
    const QIODevice* dev = in.device();
    if (dev && !dev->isSequential() && dev->size() - dev->pos() < bytes)
        throw EIEException(kLayerStreamCorrupted);
}

}  // namespace

void TIEImageLayer::SaveToStream(QDataStream& out, bool withPixels) const {
    TIELayer::SaveToStream(out, withPixels);
    out << quint8(ResampleFilter) << UseResampleFilter;
    const bool pixels = withPixels && picture_.PixelFormat() == ie24RGB;
    out << pixels;
    if (!pixels) return;
    const TIEBitmap* alpha = picture_.AlphaChannelIfAny();
    out << qint32(picture_.Width()) << qint32(picture_.Height()) << bool(alpha);
    WriteRows(out, picture_, picture_.Width() * 3);
    if (alpha) WriteRows(out, *alpha, alpha->Width());
}

void TIEImageLayer::LoadFromStream(QDataStream& in) {
    TIELayer::LoadFromStream(in);
    ResampleFilter = TResampleFilter(IEReadByte(in, rfWICFant));
    UseResampleFilter = IEReadBool(in);
    if (!IEReadBool(in)) return;
    const int w = IEReadInt(in, 1, 1 << 20), h = IEReadInt(in, 1, 1 << 20);
    const bool hasAlpha = IEReadBool(in);
    if (int64_t(w) * h > kMaxStreamPixels) throw EIEException(kLayerStreamCorrupted);
    CheckRoom(in, int64_t(w) * h * (hasAlpha ? 4 : 3));
    TIEBitmap loaded;
    if (!loaded.Allocate(w, h, ie24RGB)) throw EIEException(kLayerStreamCorrupted);
    ReadRows(in, loaded, w * 3);
    if (hasAlpha) {
        TIEBitmap& alpha = *loaded.AlphaChannel();
        ReadRows(in, alpha, w);
        alpha.SyncFull();
    }
    picture_ = std::move(loaded);
}

}  // namespace qpt
