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

// IEDiv255 in two operations: with r = x + 128 below 65536, r * 257 / 65536
// rounds down to the same integer as (r + r / 256) / 256.
__attribute__((target("avx2"))) inline __m256i Div255(__m256i x) {
    return _mm256_mulhi_epu16(_mm256_add_epi16(x, _mm256_set1_epi16(128)), _mm256_set1_epi16(257));
}

}  // namespace

struct VectorConstants {
    __m256i widen, narrow, gather, lowBytes, k, alphaBytes;
    bool plain;  // opacity 255
};

// The blend of eight B, G, R, A pixels over eight B, G, R, 0 pixels, in the
// same byte layout. The even and odd bytes of each 16-bit lane are worked on
// apart, through masks and shifts, so the arithmetic needs no byte shuffles,
// which share one execution port on many processors.
__attribute__((target("avx2"))) inline __m256i Over8(__m256i s, __m256i dw,
                                                     const VectorConstants& v) {
    __m256i sEven = _mm256_and_si256(s, v.lowBytes);
    __m256i sOdd = _mm256_srli_epi16(s, 8);
    if (!v.plain) {
        sEven = Div255(_mm256_mullo_epi16(sEven, v.k));
        sOdd = Div255(_mm256_mullo_epi16(sOdd, v.k));
    }
    // Alpha is the upper half of each pixel's odd lanes; both halves get 255 - alpha.
    const __m256i alpha = _mm256_srli_epi32(sOdd, 16);
    const __m256i inv =
        _mm256_sub_epi16(v.lowBytes, _mm256_or_si256(alpha, _mm256_slli_epi32(alpha, 16)));
    const __m256i dEven = _mm256_and_si256(dw, v.lowBytes);
    const __m256i dOdd = _mm256_srli_epi16(dw, 8);
    const __m256i rEven = _mm256_min_epu16(
        _mm256_add_epi16(sEven, Div255(_mm256_mullo_epi16(dEven, inv))), v.lowBytes);
    const __m256i rOdd =
        _mm256_min_epu16(_mm256_add_epi16(sOdd, Div255(_mm256_mullo_epi16(dOdd, inv))), v.lowBytes);
    return _mm256_or_si256(rEven, _mm256_slli_epi16(rOdd, 8));
}

// Eight pixels. Reads and writes exactly the 24 bytes of dst, so the next
// step's load never overlaps this step's store: the lower lane is read from
// byte 0 and the upper from byte 8, and written back the same way, the
// overlapping eight bytes holding the same values in both.
__attribute__((target("avx2"))) inline void Step8(uint8_t* d, const uint8_t* src,
                                                  const VectorConstants& v) {
    const __m256i s = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src));
    if (_mm256_testz_si256(s, s)) return;
    __m256i result;
    if (v.plain && _mm256_testc_si256(s, v.alphaBytes)) {
        // Opaque pixels at full opacity: the formula gives the source itself.
        result = s;
    } else {
        const __m256i halves = _mm256_inserti128_si256(
            _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(d))),
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(d + 8)), 1);
        result = Over8(s, _mm256_shuffle_epi8(halves, v.widen), v);
    }
    // Each lane packs its twelve bytes first; the lanes then take bytes 0-15
    // and 8-23 of the eight pixels.
    const __m256i packed =
        _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(result, v.narrow), v.gather);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(d), _mm256_castsi256_si128(packed));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(d + 8), _mm256_extracti128_si256(packed, 1));
}

__attribute__((target("avx2"))) void BlendPremulRowVector(uint8_t* dst, const uint8_t* src, int n,
                                                          int k) {
    VectorConstants v;
    // The upper lane holds dst bytes 8-23, so its pixels start at byte 4.
    v.widen = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1, 4, 5, 6, -1, 7,
                               8, 9, -1, 10, 11, 12, -1, 13, 14, 15, -1);
    v.narrow = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1, 0, 1, 2, 4,
                                5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    v.gather = _mm256_setr_epi32(0, 1, 2, 4, 2, 4, 5, 6);
    v.lowBytes = _mm256_set1_epi16(0x00FF);
    v.k = _mm256_set1_epi16(int16_t(k));
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
