#include "imaging/IEBitmap.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <limits>

namespace qpt {

namespace {

std::atomic<int64_t> minFileSizeOverride{-1};
std::atomic<bool> fileFallback{true};
constexpr int64_t kUnreadableMemoryMinFileSize = 0x2000000;
constexpr int64_t kMinSegmentBytes = 0xA00000;

constexpr TIEPixelFormatInfo kFormats[] = {
    {0, 0}, {1, 1}, {8, 1}, {8, 1}, {16, 1}, {24, 3}, {32, 1}, {32, 4}, {48, 3}, {24, 3}, {32, 4},
};

// An alpha plane follows its owner into memory or a file, but a QImage owner
// keeps its plane in memory: the plane is never drawn by the platform.
TIELocation PlaneLocation(TIELocation owner) {
    return owner == ieTBitmap ? ieMemory : owner;
}

const char* ForbiddenInTBitmap(TIEPixelFormat format) {
    switch (format) {
        case ie32f:
            return "ie32f pixel format not allowed when IEBitmap.Location=ieTBitmap";
        case ieCMYK:
            return "ieCMYK pixel format not allowed when IEBitmap.Location=ieTBitmap";
        case ieRGB48:
            return "ieRGB48 pixel format not allowed when IEBitmap.Location=ieTBitmap";
        case ieCIELab:
            return "ieCIELab pixel format not allowed when IEBitmap.Location=ieTBitmap";
        default:
            return nullptr;
    }
}

}  // namespace

TIEPixelFormatInfo IEPixelFormatInfo(TIEPixelFormat format) {
    return format <= ie32RGB ? kFormats[format] : kFormats[ieNull];
}

int64_t IERowLen(int64_t width, int bitCount, int rowAlignBits) {
    if (rowAlignBits == 32) return ((width * bitCount + 31) >> 5) * 4;
    if (rowAlignBits < 8 || rowAlignBits % 8) rowAlignBits = 8;
    return (width * bitCount + rowAlignBits - 1) / rowAlignBits * (rowAlignBits / 8);
}

void IESetMinFileSizeOverride(int64_t bytes) {
    minFileSizeOverride = bytes;
}

int64_t IEDefaultMinFileSize() {
    const int64_t forced = minFileSizeOverride;
    if (forced >= 0) return forced;
    const int64_t available = IEAvailableMemory();
    if (available < 0) return kUnreadableMemoryMinFileSize;
    return int64_t(double(available) / 1.1);
}

void IESetFileFallback(bool on) {
    fileFallback = on;
}

TIEBitmap::TIEBitmap() : minFileSize_(IEDefaultMinFileSize()) {}

TIEBitmap::TIEBitmap(int width, int height, TIEPixelFormat format) : TIEBitmap() {
    Allocate(width, height, format);
}

TIEBitmap::~TIEBitmap() {
    FreeStore();
}

TIEBitmap::TIEBitmap(TIEBitmap&& other) noexcept {
    *this = std::move(other);
}

TIEBitmap& TIEBitmap::operator=(TIEBitmap&& other) noexcept {
    if (this == &other) return *this;
    FreeStore();
    width_ = other.width_;
    height_ = other.height_;
    bitCount_ = other.bitCount_;
    channelCount_ = other.channelCount_;
    rowLen_ = other.rowLen_;
    format_ = other.format_;
    location_ = other.location_;
    minFileSize_ = other.minFileSize_;
    isAlpha_ = other.isAlpha_;
    full_ = other.full_;
    needAlloc_ = other.needAlloc_;
    rowAlign_ = other.rowAlign_;
    origin_ = other.origin_;
    palette_ = std::move(other.palette_);
    alpha_ = std::move(other.alpha_);
    base_ = other.base_;
    block_ = std::exchange(other.block_, {});
    segments_ = std::move(other.segments_);
    rowsPerSegment_ = other.rowsPerSegment_;
    ownedImage_ = std::move(other.ownedImage_);
    borrowedImage_ = std::exchange(other.borrowedImage_, nullptr);
    tempStore_ = std::move(other.tempStore_);
    other.base_ = nullptr;
    other.segments_.clear();
    other.ResetFields();
    other.location_ = ieFile;
    other.isAlpha_ = false;
    other.rowAlign_ = 32;
    other.origin_ = 0;
    return *this;
}

void TIEBitmap::ResetFields() {
    width_ = height_ = 0;
    bitCount_ = channelCount_ = 0;
    rowLen_ = 0;
    format_ = ieNull;
    full_ = false;
    needAlloc_ = true;
    palette_.clear();
    alpha_.reset();
}

void TIEBitmap::SetFormatFields(TIEPixelFormat format) {
    format_ = format;
    bitCount_ = IEPixelFormatInfo(format).BitCount;
    channelCount_ = IEPixelFormatInfo(format).ChannelCount;
    if (format == ie8p)
        palette_.resize(256);
    else
        palette_.clear();
}

void TIEBitmap::SetRowAlign(int bits) {
    if (bits < 8 || bits % 8 || bits == rowAlign_) return;
    rowAlign_ = bits;
    if (location_ != ieTBitmap) needAlloc_ = true;
}

bool TIEBitmap::Allocate(int width, int height, TIEPixelFormat format) {
    if (width < 1 || height < 1 || format == ieNull || format > ie32RGB) return false;
    if (location_ == ieTBitmap && format == ie16g) format = ie8g;
    if (!needAlloc_ && width == width_ && height == height_ && format == format_) return true;
    if (location_ == ieTBitmap)
        if (const char* text = ForbiddenInTBitmap(format)) throw EIEException(text);
    FreeStore();
    SetFormatFields(format);
    width_ = width;
    height_ = height;
    rowLen_ = IERowLen(width, bitCount_, rowAlign_);
    if (rowLen_ > std::numeric_limits<int64_t>::max() / height ||
        !AllocateStore(rowLen_ * height)) {
        auto plane = std::move(alpha_);
        ResetFields();
        alpha_ = std::move(plane);
        return false;
    }
    needAlloc_ = false;
    if (alpha_ && (alpha_->width_ != width || alpha_->height_ != height)) {
        alpha_->Allocate(width, height, ie8g);
        alpha_->Fill(255);
    }
    return true;
}

bool TIEBitmap::AllocateStore(int64_t size) {
    if (location_ == ieFile && minFileSize_ >= size) location_ = ieMemory;
    if (location_ == ieMemory && minFileSize_ < size) location_ = ieFile;
    bool triedFile = false;
    if (location_ == ieFile) {
        if (AllocateFile(size)) return true;
        triedFile = true;
        location_ = ieMemory;
    }
    if (location_ == ieTBitmap) return AllocateTBitmap(size);
    if (AllocateMemory(size) || AllocateSegments()) return true;
    if (!fileFallback || triedFile || !AllocateFile(size)) return false;
    location_ = ieFile;
    return true;
}

bool TIEBitmap::AllocateMemory(int64_t size) {
    if (!IEAllocBlock(size, block_)) return false;
    base_ = block_.Data;
    return true;
}

bool TIEBitmap::AllocateSegments() {
    for (int64_t count = 4;; count *= 2) {
        const int64_t rows = (height_ + count - 1) / count;
        const int64_t bytes = rows * rowLen_;
        if (bytes < kMinSegmentBytes && count > 4) return false;
        const int64_t needed = (height_ + rows - 1) / rows;
        segments_.resize(needed);
        bool ok = true;
        for (auto& segment : segments_)
            ok = ok && IEAllocBlock(bytes, segment);
        if (ok) {
            rowsPerSegment_ = int(rows);
            return true;
        }
        for (auto& segment : segments_)
            IEFreeBlock(segment);
        segments_.clear();
        if (count >= height_) return false;
    }
}

bool TIEBitmap::AllocateFile(int64_t size) {
    return tempStore_.Create(size, "IMG");
}

bool TIEBitmap::AllocateTBitmap(int64_t size) {
    const int64_t available = IEAvailableMemory();
    if (available >= 0 && available < size) return false;
    static constexpr QImage::Format kQtFormat[] = {QImage::Format_Invalid,
                                                   QImage::Format_Mono,
                                                   QImage::Format_Indexed8,
                                                   QImage::Format_Grayscale8,
                                                   QImage::Format_Invalid,
                                                   QImage::Format_BGR888,
                                                   QImage::Format_Invalid,
                                                   QImage::Format_Invalid,
                                                   QImage::Format_Invalid,
                                                   QImage::Format_Invalid,
                                                   QImage::Format_ARGB32_Premultiplied};
    QImage image(width_, height_, kQtFormat[format_]);
    if (image.isNull()) return false;
    if (format_ == ie1g) image.setColorTable({0xFF000000u, 0xFFFFFFFFu});
    if (format_ == ie8p) image.setColorTable(QList<QRgb>(256, 0xFF000000u));
    if (borrowedImage_)
        *borrowedImage_ = std::move(image);
    else
        ownedImage_ = std::make_unique<QImage>(std::move(image));
    base_ = qimage()->bits();
    rowLen_ = qimage()->bytesPerLine();
    origin_ = 0;
    return true;
}

void TIEBitmap::FreeStore() {
    IEFreeBlock(block_);
    for (auto& segment : segments_)
        IEFreeBlock(segment);
    segments_.clear();
    ownedImage_.reset();
    tempStore_.Close();
    base_ = nullptr;
    needAlloc_ = true;
}

void TIEBitmap::Free() {
    FreeStore();
    ResetFields();
}

uint8_t* TIEBitmap::SlowScanline(int row) {
    if (!segments_.empty())
        return segments_[row / rowsPerSegment_].Data + int64_t(row % rowsPerSegment_) * rowLen_;
    if (location_ == ieFile) return tempStore_.Map(int64_t(row) * rowLen_, rowLen_);
    return nullptr;
}

void TIEBitmap::CopyRowsFrom(const TIEBitmap& source, int rows, int64_t bytes) {
    const bool flat = base_ && source.base_ && rowLen_ == source.rowLen_ &&
                      origin_ == source.origin_ && bytes == rowLen_;
    if (flat) {
        std::memcpy(base_, source.base_, size_t(rowLen_ * rows));
        return;
    }
    if (CopyRowsThroughFile(source, rows, bytes)) return;
    for (int y = 0; y < rows; ++y)
        std::memcpy(Scanline(y), source.Scanline(y), size_t(bytes));
}

// Copies between a file store and rows in memory with plain reads and
// writes, and leaves no window mapped: a bitmap in a file is cold storage
// (an undo step), and a hundred of them must not keep their last window
// resident.
bool TIEBitmap::CopyRowsThroughFile(const TIEBitmap& source, int rows, int64_t bytes) {
    const bool toFile = IsFileStore() && !source.IsFileStore();
    const bool fromFile = source.IsFileStore() && !IsFileStore();
    if (!toFile && !fromFile) return false;
    const uint8_t* memory = toFile ? source.base_ : base_;
    if (memory && origin_ == source.origin_ && rowLen_ == source.rowLen_ && bytes == rowLen_ &&
        rows == height_ && rows == source.height_) {
        if (toFile) tempStore_.Write(0, source.base_, rowLen_ * rows);
        if (fromFile) source.tempStore_.Read(0, base_, rowLen_ * rows);
    } else {
        for (int y = 0; y < rows; ++y) {
            if (toFile) tempStore_.Write(FileOffset(y), source.Scanline(y), bytes);
            if (fromFile) source.tempStore_.Read(source.FileOffset(y), Scanline(y), bytes);
        }
    }
    tempStore_.Unmap();
    source.tempStore_.Unmap();
    return true;
}

void TIEBitmap::Assign(const TIEBitmap& source) {
    if (&source == this) return;
    if (!source.IsAllocated()) {
        Free();
        return;
    }
    SetRowAlign(source.rowAlign_);
    if (location_ != ieTBitmap) origin_ = source.origin_;
    if (!Allocate(source.width_, source.height_, source.format_)) return;
    CopyRowsFrom(source, height_, std::min(rowLen_, source.rowLen_));
    palette_ = source.palette_;
    full_ = source.full_;
    if (source.alpha_)
        AlphaChannel()->Assign(*source.alpha_);
    else
        alpha_.reset();
}

void TIEBitmap::Fill(uint32_t value) {
    if (!IsAllocated()) return;
    const int bytes = std::max(1, bitCount_ / 8);
    uint8_t pixel[8] = {};
    if (format_ == ie24RGB || format_ == ie32RGB) {
        pixel[0] = uint8_t(value >> 16);
        pixel[1] = uint8_t(value >> 8);
        pixel[2] = uint8_t(value);
        pixel[3] = uint8_t(value >> 24);
    } else if (format_ == ie1g) {
        pixel[0] = value ? 0xFF : 0;
    } else {
        std::memcpy(pixel, &value, std::min(bytes, 4));
    }
    uint8_t* first = Scanline(0);
    for (int64_t i = 0; i < rowLen_; ++i)
        first[i] = pixel[i % bytes];
    std::vector<uint8_t> row(first, first + rowLen_);
    for (int y = 1; y < height_; ++y)
        std::memcpy(Scanline(y), row.data(), size_t(rowLen_));
    if (isAlpha_) full_ = (value & 0xFF) == 255;
}

TIEBitmap* TIEBitmap::AlphaChannel() {
    if (isAlpha_) return nullptr;
    if (!alpha_) {
        auto plane = std::make_unique<TIEBitmap>();
        plane->isAlpha_ = true;
        plane->location_ = PlaneLocation(location_);
        plane->minFileSize_ = minFileSize_;
        if (plane->Allocate(width_, height_, ie8g)) plane->Fill(255);
        plane->full_ = true;
        alpha_ = std::move(plane);
    }
    return alpha_.get();
}

void TIEBitmap::SyncFull() {
    full_ = true;
    for (int y = 0; y < height_ && full_; ++y) {
        const uint8_t* row = Scanline(y);
        for (int x = 0; x < width_; ++x)
            if (row[x] != 255) {
                full_ = false;
                break;
            }
    }
}

void TIEBitmap::RemoveAlphaChannel(bool merge, uint32_t background) {
    if (merge && alpha_ && format_ == ie24RGB) MergeAlphaIntoPicture(background);
    alpha_.reset();
}

void TIEBitmap::MergeAlphaIntoPicture(uint32_t background) {
    const uint8_t bg[3] = {uint8_t(background >> 16), uint8_t(background >> 8),
                           uint8_t(background)};
    for (int y = 0; y < height_; ++y) {
        // Copy the alpha row first: for file storage both rows may share
        // nothing but the next Scanline call could move either window.
        std::vector<uint8_t> a(alpha_->Scanline(y), alpha_->Scanline(y) + width_);
        uint8_t* p = Scanline(y);
        for (int x = 0; x < width_; ++x)
            for (int c = 0; c < 3; ++c) {
                const int v = p[x * 3 + c] * a[x] + bg[c] * (255 - a[x]);
                p[x * 3 + c] = uint8_t((v + 127) / 255);
            }
    }
}

void TIEBitmap::SetWidth(int width) {
    Resize(width, height_);
}
void TIEBitmap::SetHeight(int height) {
    Resize(width_, height);
}

void TIEBitmap::Resize(int width, int height) {
    width = std::max(width, 0);
    height = std::max(height, 0);
    if (width == width_ && height == height_) return;
    if (alpha_) alpha_->Resize(width, height);
    if (!IsAllocated() || width == 0 || height == 0) {
        if (width == 0 || height == 0) FreeStore();
        width_ = width;
        height_ = height;
        return;
    }
    ReplaceWithResized(width, height);
}

void TIEBitmap::ReplaceWithResized(int width, int height) {
    if (location_ == ieTBitmap) {
        *qimage() = qimage()->copy(0, 0, width, height);
        base_ = qimage()->bits();
        rowLen_ = qimage()->bytesPerLine();
        width_ = width;
        height_ = height;
        full_ = false;
        return;
    }
    TIEBitmap fresh;
    fresh.location_ = location_;
    fresh.minFileSize_ = minFileSize_;
    fresh.rowAlign_ = rowAlign_;
    fresh.origin_ = origin_;
    fresh.isAlpha_ = isAlpha_;
    if (!fresh.Allocate(width, height, format_)) return;
    fresh.Fill(0);
    const int64_t bytes = (int64_t(std::min(width, width_)) * bitCount_ + 7) / 8;
    fresh.CopyRowsFrom(*this, std::min(height, height_), bytes);
    fresh.palette_ = palette_;
    fresh.alpha_ = std::move(alpha_);
    fresh.full_ = false;
    *this = std::move(fresh);
}

void TIEBitmap::SetLocation(TIELocation location) {
    if (location == location_ || location > ieTBitmap) return;
    if (alpha_) alpha_->SetLocation(PlaneLocation(location));
    if (!IsAllocated()) {
        location_ = location;
        return;
    }
    TIEBitmap fresh;
    fresh.location_ = location;
    fresh.minFileSize_ = minFileSize_;
    fresh.rowAlign_ = rowAlign_;
    fresh.origin_ = location == ieTBitmap ? 0 : origin_;
    fresh.isAlpha_ = isAlpha_;
    if (!fresh.Allocate(width_, height_, format_)) return;
    fresh.CopyRowsFrom(*this, height_, std::min(rowLen_, fresh.rowLen_));
    fresh.palette_ = palette_;
    fresh.full_ = full_;
    fresh.alpha_ = std::move(alpha_);
    *this = std::move(fresh);
}

}  // namespace qpt
