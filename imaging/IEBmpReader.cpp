#include "imaging/IEBmpReader.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

namespace qpt {

namespace {

enum : uint32_t { kRgb = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3, kAlphaBitFields = 6 };

uint32_t Le16(const uint8_t* p) {
    return uint32_t(p[0]) | uint32_t(p[1]) << 8;
}
uint32_t Le32(const uint8_t* p) {
    return Le16(p) | Le16(p + 2) << 16;
}

// One colour channel of a bit-field pixel, scaled to 8 bits.
struct TChannel {
    uint32_t Mask = 0;
    int Shift = 0;
    int Bits = 0;

    explicit TChannel(uint32_t mask = 0) : Mask(mask) {
        if (!mask) return;
        Shift = std::countr_zero(mask);
        Bits = std::min(32 - std::countl_zero(mask) - Shift, 32);
    }
    uint8_t operator()(uint32_t pixel) const {
        if (!Bits) return 0;
        const uint64_t v = (pixel & Mask) >> Shift;
        if (Bits >= 8) return uint8_t(v >> (Bits - 8));
        const uint64_t top = (uint64_t(1) << Bits) - 1;
        return uint8_t((v * 255 + top / 2) / top);
    }
};

struct TBmpInfo {
    int Width = 0, Height = 0;
    bool TopDown = false;
    int BitCount = 0;
    uint32_t Compression = kRgb;
    uint32_t Masks[4] = {};       // R, G, B, A
    bool AlphaByDefault = false;  // 32-bit without masks: the fourth byte may be alpha
    std::vector<TRGB> Palette = std::vector<TRGB>(256);
    int64_t PixelOffset = 0;
    int64_t Stride() const { return (int64_t(Width) * BitCount + 31) / 32 * 4; }
};

bool ValidShape(const TBmpInfo& b) {
    const bool paletted = b.BitCount == 1 || b.BitCount == 4 || b.BitCount == 8;
    const bool direct = b.BitCount == 16 || b.BitCount == 24 || b.BitCount == 32;
    if (!paletted && !direct) return false;
    if (b.Width < 1 || b.Height < 1 || b.Width > kBmpMaxSide || b.Height > kBmpMaxSide)
        return false;
    if (int64_t(b.Width) * b.Height > kBmpMaxPixels) return false;
    switch (b.Compression) {
        case kRgb:
            return true;
        case kRle8:
            return b.BitCount == 8 && !b.TopDown;
        case kRle4:
            return b.BitCount == 4 && !b.TopDown;
        case kBitFields:
        case kAlphaBitFields:
            return b.BitCount == 16 || b.BitCount == 32;
        default:
            return false;
    }
}

void SetDefaultMasks(TBmpInfo& b) {
    if (b.Compression == kBitFields || b.Compression == kAlphaBitFields) return;
    if (b.BitCount == 16) {
        b.Masks[0] = 0x7C00, b.Masks[1] = 0x03E0, b.Masks[2] = 0x001F, b.Masks[3] = 0;
    } else if (b.BitCount == 32) {
        b.AlphaByDefault = b.Masks[3] == 0;
        b.Masks[0] = 0xFF0000, b.Masks[1] = 0xFF00, b.Masks[2] = 0xFF;
        if (b.AlphaByDefault) b.Masks[3] = 0xFF000000u;
    }
}

// Reads the headers, masks and palette. Everything that sizes an allocation
// is checked here, before the caller allocates anything.
bool ReadInfo(TIEByteSource& s, TBmpInfo& b) {
    uint8_t h[14 + 124] = {};
    if (s.ReadAt(0, h, 18) != 18 || h[0] != 'B' || h[1] != 'M') return false;
    const uint32_t headerSize = Le32(h + 14);
    const bool core = headerSize == 12;
    if (!core && (headerSize < 16 || headerSize > 1024)) return false;
    const int64_t want = std::min<int64_t>(headerSize, 124);
    if (s.ReadAt(14, h + 14, want) != want) return false;
    const uint8_t* ih = h + 14;
    int64_t height;
    if (core) {
        b.Width = int(Le16(ih + 4));
        height = int16_t(Le16(ih + 6));
        b.BitCount = int(Le16(ih + 10));
    } else {
        b.Width = int32_t(Le32(ih + 4));
        height = int32_t(Le32(ih + 8));
        b.BitCount = int(Le16(ih + 14));
        if (headerSize >= 20) b.Compression = Le32(ih + 16);
    }
    b.TopDown = height < 0;
    b.Height = int(std::min<int64_t>(height < 0 ? -height : height, kBmpMaxSide + 1));
    if (!ValidShape(b)) return false;

    int64_t at = 14 + headerSize;
    const bool fieldsAfterHeader =
        (b.Compression == kBitFields || b.Compression == kAlphaBitFields) && headerSize < 52;
    if (fieldsAfterHeader) {
        const int n = b.Compression == kAlphaBitFields ? 4 : 3;
        uint8_t m[16] = {};
        if (s.ReadAt(at, m, n * 4) != n * 4) return false;
        for (int i = 0; i < n; ++i)
            b.Masks[i] = Le32(m + 4 * i);
        at += n * 4;
    } else if (headerSize >= 52) {
        for (int i = 0; i < 3; ++i)
            b.Masks[i] = Le32(ih + 40 + 4 * i);
        if (headerSize >= 56) b.Masks[3] = Le32(ih + 52);
    }
    SetDefaultMasks(b);

    if (b.BitCount <= 8) {
        const uint32_t used = headerSize >= 36 ? Le32(ih + 32) : 0;
        const int count = used && used < 256u ? int(used) : 1 << b.BitCount;
        const int entry = core ? 3 : 4;
        uint8_t p[256 * 4] = {};
        s.ReadAt(at, p, int64_t(count) * entry);  // a short palette leaves black entries
        for (int i = 0; i < count; ++i)
            b.Palette[size_t(i)] = {p[i * entry], p[i * entry + 1], p[i * entry + 2]};
        at += int64_t(count) * entry;
    }
    const int64_t declared = Le32(h + 10);
    b.PixelOffset = declared >= 26 && declared < s.Size() ? declared : at;
    return b.PixelOffset < s.Size();
}

// Writes one file row of any uncompressed layout as B, G, R (and alpha).
void ConvertRow(const TBmpInfo& b, const uint8_t* in, uint8_t* out, uint8_t* alpha) {
    const int w = b.Width;
    if (b.BitCount <= 8) {
        const int perByte = 8 / b.BitCount;
        const int mask = (1 << b.BitCount) - 1;
        for (int x = 0; x < w; ++x) {
            const int shift = (perByte - 1 - x % perByte) * b.BitCount;
            const TRGB& c = b.Palette[size_t((in[x / perByte] >> shift) & mask)];
            out[x * 3] = c.b, out[x * 3 + 1] = c.g, out[x * 3 + 2] = c.r;
        }
        return;
    }
    const TChannel r(b.Masks[0]), g(b.Masks[1]), bl(b.Masks[2]), a(b.Masks[3]);
    const int bytes = b.BitCount / 8;
    for (int x = 0; x < w; ++x) {
        const uint8_t* p = in + x * bytes;
        const uint32_t v = bytes == 2 ? Le16(p) : Le32(p);
        out[x * 3] = bl(v), out[x * 3 + 1] = g(v), out[x * 3 + 2] = r(v);
        if (alpha) alpha[x] = a.Mask ? a(v) : 255;
    }
}

// Rows that the platform may keep, fully or partly transparent, get a
// plane; an all-zero fourth byte is padding of writers that ignore it.
void SettleAlpha(const TBmpInfo& b, TIEBitmap& out, bool anyNonZero) {
    if (!out.HasAlphaChannel()) return;
    if (b.AlphaByDefault && !anyNonZero) {
        out.RemoveAlphaChannel();
        return;
    }
    out.AlphaChannel()->SyncFull();
    if (out.AlphaChannel()->Full()) out.RemoveAlphaChannel();
}

// Row r of the file lands in picture row Target(r); a file cut short keeps
// its rows where they belong, at the bottom of a bottom-up picture.
int Target(const TBmpInfo& b, int fileRow) {
    return b.TopDown ? fileRow : b.Height - 1 - fileRow;
}

// The rows that a file cut short leaves out are black.
void ClearMissingRows(const TBmpInfo& b, TIEBitmap& out, int rows) {
    for (int r = rows; r < b.Height; ++r)
        std::memset(out.Scanline(Target(b, r)), 0, size_t(b.Width) * 3);
}

bool ReadStraight24(TIEByteSource& s, const TBmpInfo& b, TIEBitmap& out, int rows) {
    if (out.Location() != ieFile) {
        std::vector<uint8_t*> dest(static_cast<size_t>(rows));
        for (int r = 0; r < rows; ++r)
            dest[size_t(r)] = out.Scanline(Target(b, r));
        return s.ReadRuns(b.PixelOffset, b.Stride(), dest.data(), rows) == rows;
    }
    for (int r = 0; r < rows; ++r)
        if (s.ReadAt(b.PixelOffset + r * b.Stride(), out.Scanline(Target(b, r)), b.Stride()) !=
            b.Stride())
            return false;
    return true;
}

bool ReadConverted(TIEByteSource& s, const TBmpInfo& b, TIEBitmap& out, int rows) {
    const int64_t stride = b.Stride();
    const bool withAlpha = b.Masks[3] != 0 && b.BitCount >= 16;
    TIEBitmap* plane = withAlpha ? out.AlphaChannel() : nullptr;
    const int chunk = int(std::max<int64_t>(1, (1 << 20) / stride));
    std::vector<uint8_t> in(size_t(stride * std::min(chunk, rows)));
    std::vector<uint8_t> alpha(size_t(b.Width));
    bool anyNonZero = false;
    for (int r0 = 0; r0 < rows; r0 += chunk) {
        const int n = std::min(chunk, rows - r0);
        if (s.ReadAt(b.PixelOffset + r0 * stride, in.data(), n * stride) != n * stride)
            return false;
        for (int i = 0; i < n; ++i) {
            const int row = Target(b, r0 + i);
            ConvertRow(b, in.data() + i * stride, out.Scanline(row),
                       plane ? alpha.data() : nullptr);
            if (!plane) continue;
            anyNonZero =
                anyNonZero || std::any_of(alpha.begin(), alpha.end(), [](uint8_t v) { return v; });
            std::memcpy(plane->Scanline(row), alpha.data(), alpha.size());
        }
    }
    SettleAlpha(b, out, anyNonZero);
    return true;
}

// The compressed bytes, read in small pieces and never beyond `end`, so that
// memory follows the picture and not the file.
class TRleInput {
public:
    TRleInput(TIEByteSource& s, int64_t begin, int64_t end) : s_(s), next_(begin), end_(end) {}
    // False at the end of the data.
    bool Next(uint8_t& byte) {
        if (at_ == buffer_.size() && !Refill()) return false;
        byte = buffer_[at_++];
        return true;
    }
    void Skip(int64_t count) {
        for (uint8_t ignored = 0; count > 0 && Next(ignored); --count) {
        }
    }

private:
    bool Refill() {
        const int64_t n = std::min<int64_t>(end_ - next_, 65536);
        buffer_.resize(size_t(std::max<int64_t>(n, 0)));
        const int64_t got = n > 0 ? s_.ReadAt(next_, buffer_.data(), n) : 0;
        buffer_.resize(size_t(got));
        next_ += got;
        at_ = 0;
        return got > 0;
    }

    TIEByteSource& s_;
    int64_t next_, end_;
    std::vector<uint8_t> buffer_;
    size_t at_ = 0;
};

// What a picture can use of RLE data: no pixel costs more than four bytes
// (a move of one pixel), the end of each row two and the end of the picture
// two. Bytes beyond that are padding or hostile, and are not read.
int64_t RleBytesUsable(const TBmpInfo& b) {
    return 4 * int64_t(b.Width) * b.Height + 2 * int64_t(b.Height) + 2;
}

// Decodes RLE4 and RLE8 data; whatever the data leaves out stays black.
void DecodeRle(const TBmpInfo& b, TRleInput& in, TIEBitmap& out) {
    const bool four = b.Compression == kRle4;
    int x = 0, y = 0;
    auto put = [&](int index) {
        if (x < b.Width && y < b.Height) {
            const TRGB& c = b.Palette[size_t(index)];
            uint8_t* p = out.Scanline(b.Height - 1 - y) + x * 3;
            p[0] = c.b, p[1] = c.g, p[2] = c.r;
        }
        ++x;
    };
    uint8_t count = 0, value = 0;
    while (y < b.Height && in.Next(count) && in.Next(value)) {
        if (count > 0) {
            for (int k = 0; k < count && x < b.Width; ++k)
                put(four ? (k & 1 ? value & 15 : value >> 4) : value);
        } else if (value == 0) {
            x = 0, ++y;
        } else if (value == 1) {
            return;
        } else if (value == 2) {
            uint8_t dx = 0, dy = 0;
            if (!in.Next(dx) || !in.Next(dy)) return;
            x += dx, y += dy;
        } else {
            const int bytes = four ? (value + 1) / 2 : value;
            uint8_t byte = 0;
            for (int k = 0; k < bytes && in.Next(byte); ++k) {
                put(four ? byte >> 4 : byte);
                if (four && 2 * k + 1 < value) put(byte & 15);
            }
            in.Skip(bytes & 1);  // runs are padded to whole words
        }
    }
}

bool ReadRle(TIEByteSource& s, const TBmpInfo& b, TIEBitmap& out) {
    const int64_t end = b.PixelOffset + std::min(s.Size() - b.PixelOffset, RleBytesUsable(b));
    TRleInput in(s, b.PixelOffset, end);
    out.Fill(0);
    DecodeRle(b, in, out);
    return true;
}

}  // namespace

bool IEReadBmp(TIEByteSource& source, TIEBitmap& bitmap) {
    TBmpInfo b;
    if (!ReadInfo(source, b)) return false;
    const bool rle = b.Compression == kRle4 || b.Compression == kRle8;
    const int64_t available = source.Size() - b.PixelOffset;
    // RLE expands at most about 128 times, and a file cut short keeps its
    // size: a claim far beyond the data is hostile.
    if (int64_t(b.Width) * b.Height > available * 256 + 65536) return false;
    const int rows = rle ? b.Height : int(std::min<int64_t>(b.Height, available / b.Stride()));
    if (rows < 1) return false;

    TIEBitmap out;
    out.SetMinFileSize(bitmap.MinFileSize());
    out.SetLocation(bitmap.Location() == ieTBitmap ? ieMemory : bitmap.Location());
    if (!out.Allocate(b.Width, b.Height, ie24RGB)) return false;
    ClearMissingRows(b, out, rows);
    bool ok;
    if (rle)
        ok = ReadRle(source, b, out);
    else if (b.BitCount == 24)
        ok = ReadStraight24(source, b, out, rows);
    else
        ok = ReadConverted(source, b, out, rows);
    if (!ok) return false;
    if (bitmap.Location() == ieTBitmap) out.SetLocation(ieTBitmap);
    bitmap = std::move(out);
    return true;
}

}  // namespace qpt
