#pragma once

#include <QImage>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "imaging/IEFileBuffer.h"
#include "imaging/IEMemory.h"

namespace qpt {

// Raised only for misuse of a pixel format or an unknown source; running out
// of storage is reported by return values instead.
class EIEException : public std::runtime_error {
public:
    explicit EIEException(const std::string& message) : std::runtime_error(message) {}
};

enum TIEPixelFormat : uint8_t {
    ieNull = 0,
    ie1g = 1,
    ie8p = 2,
    ie8g = 3,
    ie16g = 4,
    ie24RGB = 5,  // bytes B, G, R: the working format of every picture
    ie32f = 6,
    ieCMYK = 7,
    ieRGB48 = 8,
    ieCIELab = 9,
    ie32RGB = 10,  // bytes B, G, R, A: canvas targets of vector layers
};

enum TIELocation : uint8_t {
    ieMemory = 0,   // one 64-byte aligned block, or segments when that fails
    ieFile = 1,     // an unlinked temporary file reached through a mapped window
    ieTBitmap = 2,  // rows owned by a QImage held (or borrowed) by the bitmap
};

struct TIEPixelFormatInfo {
    int BitCount;
    int ChannelCount;
};

// Fixed table of bits and channels per format; unknown values read as ieNull.
TIEPixelFormatInfo IEPixelFormatInfo(TIEPixelFormat format);

// Bytes per row for a row alignment given in bits (32 in the usual case).
int64_t IERowLen(int64_t width, int bitCount, int rowAlignBits = 32);

// Palette entry of ie8p, in the byte order of the pixels.
struct TRGB {
    uint8_t b = 0, g = 0, r = 0;
    bool operator==(const TRGB&) const = default;
};

// Process-wide storage policy. A negative override means "not set": every
// new bitmap then takes the machine's available memory divided by 1.1.
void IESetMinFileSizeOverride(int64_t bytes);
int64_t IEDefaultMinFileSize();
// When memory and segments both fail, try a temporary file once more.
void IESetFileFallback(bool on);

class TIEBitmap {
public:
    TIEBitmap();
    TIEBitmap(int width, int height, TIEPixelFormat format);
    ~TIEBitmap();
    TIEBitmap(const TIEBitmap&) = delete;
    TIEBitmap& operator=(const TIEBitmap&) = delete;
    // Moves take every pointer and count; the source is left empty.
    TIEBitmap(TIEBitmap&& other) noexcept;
    TIEBitmap& operator=(TIEBitmap&& other) noexcept;

    // True on success. Unchanged size and format on an allocated bitmap keep
    // the storage (and contents). On failure Width and Height are 0.
    bool Allocate(int width, int height, TIEPixelFormat format);
    void Free();

    // First byte of a row. For ieFile storage the pointer lasts until a
    // Scanline call outside the current mapped window; the other locations
    // give pointers that last until the next reallocation.
    uint8_t* Scanline(int row) {
        if (origin_ == 1) row = height_ - 1 - row;
        if (base_) return base_ + int64_t(row) * rowLen_;
        return SlowScanline(row);
    }
    const uint8_t* Scanline(int row) const { return const_cast<TIEBitmap*>(this)->Scanline(row); }

    int Width() const { return width_; }
    int Height() const { return height_; }
    // Keep the overlapping contents; new area is zero.
    void SetWidth(int width);
    void SetHeight(int height);
    void Resize(int width, int height);

    int BitCount() const { return bitCount_; }
    int ChannelCount() const { return channelCount_; }
    int64_t RowLen() const { return rowLen_; }
    TIEPixelFormat PixelFormat() const { return format_; }
    bool IsAllocated() const { return width_ > 0 && height_ > 0 && !needAlloc_; }

    TIELocation Location() const { return location_; }
    // Moves the contents row by row into a new store of the given kind.
    void SetLocation(TIELocation location);
    int64_t MinFileSize() const { return minFileSize_; }
    // The alpha plane follows its owner's policy.
    void SetMinFileSize(int64_t bytes) {
        minFileSize_ = bytes;
        if (alpha_) alpha_->minFileSize_ = bytes;
    }
    bool IsSegmented() const { return !segments_.empty(); }

    int RowAlign() const { return rowAlign_; }
    void SetRowAlign(int bits);
    // 0: row 0 is the first row of the buffer; 1: buffer rows run bottom-up.
    uint8_t Origin() const { return origin_; }
    void SetOrigin(uint8_t origin) { origin_ = origin ? 1 : 0; }

    std::vector<TRGB>& Palette() { return palette_; }
    const std::vector<TRGB>& Palette() const { return palette_; }

    // ie24RGB/ie32RGB take value as 0xAABBGGRR (a TColor, alpha in the top
    // byte for ie32RGB); grey and paletted formats take the low byte; ie1g
    // is white for any non-zero value.
    void Fill(uint32_t value);

    // The alpha plane: created on demand (ie8g, owner's size, all 255, Full).
    // An alpha plane has no plane of its own and returns nullptr.
    TIEBitmap* AlphaChannel();
    const TIEBitmap* AlphaChannelIfAny() const { return alpha_.get(); }
    bool HasAlphaChannel() const { return alpha_ != nullptr; }
    // With merge, first blends the picture over background (0x00BBGGRR).
    void RemoveAlphaChannel(bool merge = false, uint32_t background = 0x00FFFFFF);
    bool IsAlpha() const { return isAlpha_; }
    // Every byte of this alpha plane is 255; writers that lower a byte clear it.
    bool Full() const { return full_; }
    void SetFull(bool full) { full_ = full; }
    void SyncFull();

    // Copies size, format, Full, alignment, origin, rows, palette and plane.
    void Assign(const TIEBitmap& source);
    // A QImage source: mono, grey, indexed and RGB formats keep their kind;
    // formats with alpha become ie24RGB plus an alpha plane.
    void Assign(const QImage& source);

    // The QImage of ieTBitmap storage, or nullptr for other locations.
    QImage* VclBitmap() { return location_ == ieTBitmap ? qimage() : nullptr; }
    // Hands in a QImage to hold without freeing it; the bitmap takes its size
    // and format (which must be one of the table's QImage formats).
    void EncapsulateTBitmap(QImage* image);

    // A QImage over this bitmap's own rows, without a copy: painting on it
    // paints on the bitmap. Null for segmented memory, bottom-up origin or a
    // format QImage cannot express. For ieFile storage the whole file is
    // mapped as the current window. The default formats: ie1g Mono, ie8p
    // Indexed8, ie8g Grayscale8, ie24RGB BGR888, ie32RGB
    // ARGB32_Premultiplied; another format of the same depth may be asked.
    QImage WrapQImage(QImage::Format format = QImage::Format_Invalid);

    // Copies a rectangle of pixels (same format) and, when both carry one,
    // the alpha plane. Clipped to both bitmaps.
    static void CopyRect(const TIEBitmap& source, int sx, int sy, int width, int height,
                         TIEBitmap& dest, int dx, int dy);
    // Blends the source rectangle (ie24RGB) scaled to the destination
    // rectangle (ie24RGB, nearest sample) using the source alpha plane if it
    // has one and an opacity of 0..255. Clipped to the destination.
    static void MergeAlpha(const TIEBitmap& source, int sx, int sy, int sw, int sh, TIEBitmap& dest,
                           int dx, int dy, int dw, int dh, int opacity = 255);

private:
    uint8_t* SlowScanline(int row);
    QImage* qimage() { return ownedImage_ ? ownedImage_.get() : borrowedImage_; }
    bool AllocateStore(int64_t size);
    bool AllocateMemory(int64_t size);
    bool AllocateSegments();
    bool AllocateFile(int64_t size);
    bool AllocateTBitmap(int64_t size);
    void FreeStore();
    void ResetFields();
    void SetFormatFields(TIEPixelFormat format);
    void CopyRowsFrom(const TIEBitmap& source, int rows, int64_t bytes);
    bool CopyRowsThroughFile(const TIEBitmap& source, int rows, int64_t bytes);
    bool IsFileStore() const { return location_ == ieFile && !base_ && segments_.empty(); }
    int64_t FileOffset(int row) const {
        return int64_t(origin_ == 1 ? height_ - 1 - row : row) * rowLen_;
    }
    void ReplaceWithResized(int width, int height);
    void MergeAlphaIntoPicture(uint32_t background);

    int width_ = 0, height_ = 0;
    int bitCount_ = 0, channelCount_ = 0;
    int64_t rowLen_ = 0;
    TIEPixelFormat format_ = ieNull;
    TIELocation location_ = ieFile;
    int64_t minFileSize_ = 0;
    bool isAlpha_ = false;
    bool full_ = false;
    bool needAlloc_ = true;
    int rowAlign_ = 32;
    uint8_t origin_ = 0;
    std::vector<TRGB> palette_;
    std::unique_ptr<TIEBitmap> alpha_;

    uint8_t* base_ = nullptr;  // contiguous rows: ieMemory block or QImage bits
    TIEMemBlock block_;
    std::vector<TIEMemBlock> segments_;
    int rowsPerSegment_ = 0;
    std::unique_ptr<QImage> ownedImage_;
    QImage* borrowedImage_ = nullptr;
    // Mutable: reading rows of a const bitmap still moves the window.
    mutable TIEFileBuffer tempStore_;
};

}  // namespace qpt
