#include "imaging/IEBlend.h"

#include <algorithm>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace qpt {

namespace blend_detail {

void BlendPremulRowScalar(uint8_t* dst, const uint8_t* src, int n, int k) {
    for (int i = 0; i < n; ++i, dst += 3, src += 4) {
        uint32_t pixel;
        std::memcpy(&pixel, src, 4);
        if (pixel == 0) continue;
        uint32_t c[4] = {src[0], src[1], src[2], src[3]};
        if (k != 255)
            for (uint32_t& v : c)
                v = IEDiv255(v * uint32_t(k));
        const uint32_t inv = 255 - c[3];
        for (int ch = 0; ch < 3; ++ch) {
            uint32_t v = c[ch] + IEDiv255(dst[ch] * inv);
            dst[ch] = uint8_t(v > 255 ? 255 : v);
        }
    }
}

#if defined(__x86_64__)

namespace {

__attribute__((target("avx2"))) inline __m256i Div255(__m256i x) {
    const __m256i r = _mm256_add_epi16(x, _mm256_set1_epi16(128));
    return _mm256_srli_epi16(_mm256_add_epi16(r, _mm256_srli_epi16(r, 8)), 8);
}

// c + div255(d * (255 - alpha)) for two pixels of four 16-bit channels per lane.
__attribute__((target("avx2"))) inline __m256i Over16(__m256i c, __m256i d, __m256i k) {
    if (!_mm256_testz_si256(k, k)) c = Div255(_mm256_mullo_epi16(c, k));
    __m256i alpha = _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(c, 0xFF), 0xFF);
    __m256i inv = _mm256_sub_epi16(_mm256_set1_epi16(255), alpha);
    return _mm256_add_epi16(c, Div255(_mm256_mullo_epi16(d, inv)));
}

}  // namespace

struct VectorConstants {
    __m256i widen, narrow, zero, k, alphaBytes;
    bool plain;  // opacity 255
};

// Eight pixels: each 128-bit lane holds four B, G, R triples that a byte
// shuffle widens to B, G, R, 0 and narrows back. Reads and writes exactly the
// 24 bytes of dst, so the next step's load never overlaps this step's store.
__attribute__((target("avx2"))) inline void Step8(uint8_t* d, const uint8_t* src,
                                                  const VectorConstants& v) {
    const __m256i s = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src));
    if (_mm256_testz_si256(s, s)) return;
    __m256i packed;
    if (v.plain && _mm256_testc_si256(s, v.alphaBytes)) {
        // Opaque pixels at full opacity: the formula gives the source itself.
        packed = _mm256_shuffle_epi8(s, v.narrow);
    } else {
        const __m128i lo = _mm_loadu_si128(reinterpret_cast<const __m128i*>(d));
        const __m128i tail = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(d + 16));
        const __m128i hi = _mm_alignr_epi8(tail, lo, 12);
        const __m256i dw = _mm256_shuffle_epi8(_mm256_set_m128i(hi, lo), v.widen);
        const __m256i r0 =
            Over16(_mm256_unpacklo_epi8(s, v.zero), _mm256_unpacklo_epi8(dw, v.zero), v.k);
        const __m256i r1 =
            Over16(_mm256_unpackhi_epi8(s, v.zero), _mm256_unpackhi_epi8(dw, v.zero), v.k);
        packed = _mm256_shuffle_epi8(_mm256_packus_epi16(r0, r1), v.narrow);
    }
    // Each lane holds 12 bytes; the narrowing left its last four empty.
    const __m128i first = _mm256_castsi256_si128(packed);
    const __m128i second = _mm256_extracti128_si256(packed, 1);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(d),
                     _mm_or_si128(first, _mm_slli_si128(second, 12)));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(d + 16), _mm_srli_si128(second, 4));
}

__attribute__((target("avx2"))) void BlendPremulRowVector(uint8_t* dst, const uint8_t* src, int n,
                                                          int k) {
    VectorConstants v;
    v.widen = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1, 0, 1, 2, -1, 3,
                               4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    v.narrow = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1, 0, 1, 2, 4,
                                5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    v.zero = _mm256_setzero_si256();
    // A zero factor means "no scaling" to Over16, which tests it once per step.
    v.k = k == 255 ? v.zero : _mm256_set1_epi16(int16_t(k));
    v.alphaBytes = _mm256_set1_epi32(int32_t(0xFF000000u));
    v.plain = k == 255;
    int i = 0;
    for (; i + 8 <= n; i += 8)
        Step8(dst + 3 * i, src + 4 * i, v);
    // The rest goes through the same step on padded copies: a transparent
    // source pixel leaves its destination pixel as it was.
    if (i < n) {
        const int m = n - i;
        alignas(32) uint8_t d[24] = {}, s[32] = {};
        std::memcpy(d, dst + 3 * i, size_t(m) * 3);
        std::memcpy(s, src + 4 * i, size_t(m) * 4);
        Step8(d, s, v);
        std::memcpy(dst + 3 * i, d, size_t(m) * 3);
    }
}

bool HasVectorKernel() {
    static const bool has = __builtin_cpu_supports("avx2");
    return has;
}

#else

void BlendPremulRowVector(uint8_t* dst, const uint8_t* src, int n, int k) {
    BlendPremulRowScalar(dst, src, n, k);
}
bool HasVectorKernel() {
    return false;
}

#endif

}  // namespace blend_detail

void IEBlendPremulRow(uint8_t* dst, const uint8_t* src, int n, int k) {
    if (k <= 0 || n <= 0) return;
    if (k > 255) k = 255;
    if (blend_detail::HasWideKernel())
        blend_detail::BlendPremulRowWide(dst, src, n, k);
    else if (blend_detail::HasVectorKernel())
        blend_detail::BlendPremulRowVector(dst, src, n, k);
    else
        blend_detail::BlendPremulRowScalar(dst, src, n, k);
}

void IEBlendAlphaRow(uint8_t* dst, const uint8_t* src, const uint8_t* alpha, int n, int k) {
    if (k <= 0 || n <= 0) return;
    if (k > 255) k = 255;
    if (!alpha && k == 255) {
        std::memcpy(dst, src, size_t(n) * 3);
        return;
    }
    for (int i = 0; i < n; ++i, dst += 3, src += 3) {
        const uint32_t a = alpha ? IEDiv255(uint32_t(alpha[i]) * uint32_t(k)) : uint32_t(k);
        for (int ch = 0; ch < 3; ++ch)
            dst[ch] = uint8_t(IEDiv255(src[ch] * a + dst[ch] * (255 - a)));
    }
}

void IEHalveScale32(const TIEBitmap& src, TIEBitmap& dst) {
    const int w = std::min(dst.Width(), src.Width() / 2);
    const int h = std::min(dst.Height(), src.Height() / 2);
    for (int y = 0; y < h; ++y) {
        const uint8_t* a = src.Scanline(2 * y);
        const uint8_t* b = src.Scanline(2 * y + 1);
        uint8_t* d = dst.Scanline(y);
        for (int x = 0; x < w * 4; ++x) {
            const int col = (x >> 2) * 8 + (x & 3);
            d[x] = uint8_t((a[col] + a[col + 4] + b[col] + b[col + 4] + 2) >> 2);
        }
    }
}

}  // namespace qpt
