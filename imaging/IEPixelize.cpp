#include "imaging/IEPixelize.h"

#include <algorithm>
#include <cstring>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace qpt {

namespace {

bool MaskMatches(const TIEBitmap& bitmap, const TIEBitmap& mask) {
    return mask.Width() == bitmap.Width() && mask.Height() == bitmap.Height() &&
           (mask.PixelFormat() == ie8g || mask.PixelFormat() == ie1g);
}

bool MaskSet(const uint8_t* maskRow, TIEPixelFormat format, int x) {
    if (format == ie8g) return maskRow[x] != 0;
    return (maskRow[x >> 3] & (0x80 >> (x & 7))) != 0;
}

// Truncating division by a block's pixel count. An integer divide per block
// and channel would cost more than all the rest for small blocks, so counts
// up to kTableCounts use a table of quotients, larger ones a multiply by the
// reciprocal put right by one step where its rounding missed.
class TDivider {
public:
    static constexpr uint64_t kTableCounts = 1024;

    // Divides by d from now on; the table is made again only for a new d.
    void SetCount(uint64_t d) {
        if (d == d_) return;
        d_ = d;
        inv_ = 1.0 / double(d);
        table_.clear();
        if (d > kTableCounts) return;
        table_.resize(size_t(255 * d + 1));
        for (size_t n = 0; n < table_.size(); ++n)
            table_[n] = uint8_t(n / d);
    }
    uint8_t operator()(uint64_t n) const {
        if (!table_.empty()) return table_[size_t(n)];
        uint64_t q = uint64_t(double(n) * inv_);
        if (q * d_ > n)
            --q;
        else if ((q + 1) * d_ <= n)
            ++q;
        return uint8_t(q);
    }

private:
    uint64_t d_ = 0;
    double inv_ = 0;
    std::vector<uint8_t> table_;
};

// Sums of one band of block rows: per byte column first (a contiguous add
// over whole rows), then per block.
class TBlockBand {
public:
    TBlockBand(int width, int blockSize)
        : width_(width),
          block_(blockSize),
          columns_(size_t(width) * 3),
          colours_(size_t(width) * 3) {}

    void Clear() { std::fill(columns_.begin(), columns_.end(), 0u); }
    void AddRow(const uint8_t* row) {
        uint32_t* c = columns_.data();
        const size_t n = columns_.size();
        size_t i = 0;
#if defined(__SSE2__)
        // The plain loop is not vectorised at -O2, and this add is most of
        // the work for small blocks.
        const __m128i zero = _mm_setzero_si128();
        for (; i + 16 <= n; i += 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + i));
            const __m128i lo = _mm_unpacklo_epi8(bytes, zero), hi = _mm_unpackhi_epi8(bytes, zero);
            const __m128i parts[4] = {_mm_unpacklo_epi16(lo, zero), _mm_unpackhi_epi16(lo, zero),
                                      _mm_unpacklo_epi16(hi, zero), _mm_unpackhi_epi16(hi, zero)};
            for (int k = 0; k < 4; ++k) {
                __m128i* d = reinterpret_cast<__m128i*>(c + i + 4 * size_t(k));
                _mm_storeu_si128(d, _mm_add_epi32(_mm_loadu_si128(d), parts[k]));
            }
        }
#endif
        for (; i < n; ++i)
            c[i] += row[i];
    }
    // Makes the row of block colours for a band of rows rows: each block's
    // sum divided by its own pixel count, truncating. The usual small block
    // sides get loops the compiler can unroll: the per-block work dominates.
    void Average(int rows) {
        const uint64_t fullCount = uint64_t(block_) * uint64_t(rows);
        full_.SetCount(fullCount);
        const int fullBlocks = width_ / block_;
        switch (block_) {
            case 2:
                AverageRun<2>(0, fullBlocks, full_);
                break;
            case 3:
                AverageRun<3>(0, fullBlocks, full_);
                break;
            case 4:
                AverageRun<4>(0, fullBlocks, full_);
                break;
            case 5:
                AverageRun<5>(0, fullBlocks, full_);
                break;
            case 6:
                AverageRun<6>(0, fullBlocks, full_);
                break;
            default:
                AverageRun<0>(0, fullBlocks, full_);
        }
        const int rest = width_ - fullBlocks * block_;
        if (rest == 0) return;
        edge_.SetCount(uint64_t(rest) * uint64_t(rows));
        AverageRun<0>(fullBlocks * block_, 1, edge_, rest);
    }

    const uint8_t* Colours() const {
        return colours_.data();
    }

private:
    // Blocks of side B (or side when B is 0) from column first on.
    template <int B>
    void AverageRun(int first, int blocks, const TDivider& divide, int side = 0) {
        const int n = B ? B : (side ? side : block_);
        const uint32_t* col = columns_.data() + size_t(first) * 3;
        uint8_t* out = colours_.data() + size_t(first) * 3;
        for (int b = 0; b < blocks; ++b, col += 3 * n, out += 3 * n) {
            uint64_t s0 = 0, s1 = 0, s2 = 0;
            for (int x = 0; x < n; ++x) {
                s0 += col[3 * x];
                s1 += col[3 * x + 1];
                s2 += col[3 * x + 2];
            }
            const uint8_t c0 = divide(s0), c1 = divide(s1), c2 = divide(s2);
            for (int x = 0; x < n; ++x) {
                out[3 * x] = c0;
                out[3 * x + 1] = c1;
                out[3 * x + 2] = c2;
            }
        }
    }

    int width_, block_;
    std::vector<uint32_t> columns_;
    std::vector<uint8_t> colours_;
    TDivider full_, edge_;
};

void WriteRow(uint8_t* row, const uint8_t* colours, int width, const uint8_t* maskRow,
              TIEPixelFormat maskFormat, int maskLeft) {
    if (!maskRow) {
        std::memcpy(row, colours, size_t(width) * 3);
        return;
    }
    for (int x = 0; x < width; ++x)
        if (MaskSet(maskRow, maskFormat, maskLeft + x))
            std::memcpy(row + x * 3, colours + x * 3, 3);
}

}  // namespace

void Pixelize(TIEBitmap& bitmap, const TIEBitmap* mask, int blockSize, int left, int top, int right,
              int bottom) {
    if (bitmap.PixelFormat() != ie24RGB || !bitmap.IsAllocated() || blockSize < 1) return;
    // A mask that cannot say which pixels to write lets none be written.
    if (mask && !MaskMatches(bitmap, *mask)) return;
    left = std::max(left, 0);
    top = std::max(top, 0);
    right = std::min(right, bitmap.Width() - 1);
    bottom = std::min(bottom, bitmap.Height() - 1);
    if (left > right || top > bottom) return;
    const int width = right - left + 1;
    TBlockBand band(width, blockSize);
    std::vector<uint8_t> maskRow;
    for (int y0 = top; y0 <= bottom; y0 += blockSize) {
        const int y1 = std::min(bottom + 1, y0 + blockSize);
        band.Clear();
        for (int y = y0; y < y1; ++y)
            band.AddRow(bitmap.Scanline(y) + int64_t(left) * 3);
        band.Average(y1 - y0);
        for (int y = y0; y < y1; ++y) {
            const uint8_t* m = nullptr;
            if (mask) {
                // A copy keeps a file-backed mask window from moving under us.
                const uint8_t* src = mask->Scanline(y);
                maskRow.assign(src, src + mask->RowLen());
                m = maskRow.data();
            }
            WriteRow(bitmap.Scanline(y) + int64_t(left) * 3, band.Colours(), width, m,
                     mask ? mask->PixelFormat() : ieNull, left);
        }
    }
}

namespace {

// One box blur along a line of n values, ends extended: the outputs from
// first to first + count - 1, each the rounded mean of before + 1 + after
// samples.
void BlurSpan(const uint8_t* in, int n, int before, int after, int first, int count, uint8_t* out) {
    const int taps = before + after + 1;
    auto at = [&](int i) { return uint32_t(in[std::clamp(i, 0, n - 1)]); };
    uint32_t sum = 0;
    for (int i = first - before; i <= first + after; ++i)
        sum += at(i);
    for (int i = first; i < first + count; ++i) {
        out[i - first] = uint8_t((sum + uint32_t(taps) / 2) / uint32_t(taps));
        sum += at(i + after + 1);
        sum -= at(i - before);
    }
}

}  // namespace

void IEFeatherAlphaArea(const TIEBitmap& alpha, TIEBitmap& out, int radius, int left, int top,
                        int right, int bottom) {
    if (alpha.PixelFormat() != ie8g || !alpha.IsAllocated() || out.PixelFormat() != ie8g ||
        out.Width() != alpha.Width() || out.Height() != alpha.Height())
        return;
    const int w = alpha.Width(), h = alpha.Height();
    left = std::max(left, 0);
    top = std::max(top, 0);
    right = std::min(right, w - 1);
    bottom = std::min(bottom, h - 1);
    if (left > right || top > bottom) return;
    // radius + 1 taps make a ramp radius pixels long across an edge.
    const int before = std::max(radius, 0) / 2, after = std::max(radius, 0) - before;
    const int width = right - left + 1;
    // The rows the vertical pass reads, blurred across first.
    const int first = std::max(0, top - before), last = std::min(h - 1, bottom + after + 1);
    std::vector<uint8_t> rows(size_t(last - first + 1) * size_t(width));
    for (int y = first; y <= last; ++y)
        BlurSpan(alpha.Scanline(y), w, before, after, left, width,
                 &rows[size_t(y - first) * size_t(width)]);
    std::vector<uint8_t> column(static_cast<size_t>(h));
    std::vector<uint8_t> line(static_cast<size_t>(bottom - top + 1));
    for (int x = 0; x < width; ++x) {
        for (int y = first; y <= last; ++y)
            column[size_t(y)] = rows[size_t(y - first) * size_t(width) + size_t(x)];
        // The running sum reads one row past the last output, and the
        // clamp at the plane's ends keeps every read inside [first, last].
        BlurSpan(column.data(), h, before, after, top, bottom - top + 1, line.data());
        for (int y = top; y <= bottom; ++y)
            out.Scanline(y)[left + x] = line[size_t(y - top)];
    }
    out.SetFull(false);
}

void IEFeatherAlpha(TIEBitmap& alpha, int radius) {
    if (radius <= 0 || alpha.PixelFormat() != ie8g || !alpha.IsAllocated()) return;
    TIEBitmap source;
    source.Assign(alpha);
    IEFeatherAlphaArea(source, alpha, radius, 0, 0, alpha.Width() - 1, alpha.Height() - 1);
    bool full = true;
    for (int y = 0; y < alpha.Height() && full; ++y) {
        const uint8_t* row = alpha.Scanline(y);
        full = std::all_of(row, row + alpha.Width(), [](uint8_t v) { return v == 255; });
    }
    alpha.SetFull(full);
}

}  // namespace qpt
