#include "imaging/IEOpaqueRuns.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace qpt {

namespace {

// First pixel in [x, end) that is (wantSet) or is not (!wantSet) zero, or
// end. Four pixels at a time: a large empty inside is skipped at memory speed.
int Find(const uint32_t* row, int x, int end, bool wantSet) {
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const int stop = wantSet ? 0xFFFF : 0;
    for (; x + 4 <= end; x += 4) {
        const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + x));
        const int zeros = _mm_movemask_epi8(_mm_cmpeq_epi32(v, zero));
        if (zeros != stop) {
            const int hits = wantSet ? ~zeros & 0xFFFF : zeros;
            return x + (__builtin_ctz(unsigned(hits)) >> 2);
        }
    }
#endif
    while (x < end && (row[x] != 0) != wantSet)
        ++x;
    return x;
}

}  // namespace

void TIEOpaqueRuns::Build(const TIEBitmap& premul) {
    constexpr int kBridge = 8;
    rowStart_.assign(1, 0);
    runs_.clear();
    width_ = premul.Width();
    const int w = width_;
    for (int y = 0; y < premul.Height(); ++y) {
        const uint32_t* row = reinterpret_cast<const uint32_t*>(premul.Scanline(y));
        int x = Find(row, 0, w, true);
        while (x < w) {
            const int begin = x;
            int lastSet = x;
            for (;;) {
                const int gap = Find(row, lastSet + 1, w, false);
                lastSet = gap - 1;
                const int limit = std::min(w, gap + kBridge);
                const int next = Find(row, gap, limit, true);
                if (next >= limit) break;
                lastSet = next;
            }
            runs_.push_back({begin, lastSet + 1});
            x = Find(row, lastSet + 1, w, true);
        }
        rowStart_.push_back(uint32_t(runs_.size()));
    }
}

QRegion TIEOpaqueRuns::Coverage(QPoint origin, int tile) const {
    const int rows = int(rowStart_.size()) - 1;
    if (rows < 1 || tile < 1) return {};
    const int columns = (width_ + tile - 1) / tile;
    std::vector<char> used(static_cast<size_t>(columns));
    std::vector<QRect> rects;
    for (int top = 0; top < rows; top += tile) {
        const int bottom = std::min(rows, top + tile);
        std::fill(used.begin(), used.end(), 0);
        for (int y = top; y < bottom; ++y)
            for (auto [run, end] = Row(y); run != end; ++run)
                std::fill(used.begin() + run->begin / tile,
                          used.begin() + (run->end - 1) / tile + 1, 1);
        // Neighbouring tiles of a band become one rectangle, so the region
        // is already in the banded order it keeps internally.
        for (int c = 0; c < columns;) {
            if (!used[size_t(c)]) {
                ++c;
                continue;
            }
            const int first = c;
            while (c < columns && used[size_t(c)])
                ++c;
            const int left = first * tile, right = std::min(width_, c * tile);
            rects.emplace_back(origin.x() + left, origin.y() + top, right - left, bottom - top);
        }
    }
    QRegion region;
    region.setRects(rects.data(), int(rects.size()));
    return region;
}

}  // namespace qpt
