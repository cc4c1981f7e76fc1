#include <cstdint>

#include "imaging/IEBlend.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace qpt::blend_detail {

#if defined(__x86_64__)

#define QPT_WIDE __attribute__((target("avx512f,avx512bw,avx512vbmi")))

namespace {

// IEDiv255 as (x + 128) * 257 / 65536, exact below 65536 (see IEBlend.cpp).
QPT_WIDE inline __m512i Div255(__m512i x) {
    return _mm512_mulhi_epu16(_mm512_add_epi16(x, _mm512_set1_epi16(128)), _mm512_set1_epi16(257));
}

// c + div255(d * (255 - alpha)) on four 16-bit channels per pixel.
QPT_WIDE inline __m512i Over16(__m512i c, __m512i d, __m512i k, bool scale) {
    if (scale) c = Div255(_mm512_mullo_epi16(c, k));
    const __m512i alpha = _mm512_shufflehi_epi16(_mm512_shufflelo_epi16(c, 0xFF), 0xFF);
    const __m512i inv = _mm512_sub_epi16(_mm512_set1_epi16(255), alpha);
    return _mm512_add_epi16(c, Div255(_mm512_mullo_epi16(d, inv)));
}

// Byte j of the result takes byte index[j]: B, G, R triples to and from
// four-byte slots.
QPT_WIDE inline __m512i ByteTable(bool widen) {
    alignas(64) uint8_t index[64];
    for (int j = 0; j < 64; ++j)
        index[j] = widen ? uint8_t((j / 4) * 3 + (j % 4 < 3 ? j % 4 : 0))
                         : uint8_t(j < 48 ? (j / 3) * 4 + j % 3 : 0);
    return _mm512_load_si512(index);
}

// Whole steps move exactly their 48 bytes of dst: a masked 64-byte access
// would overlap the next step's and stall it behind the store. GCC 12 warns
// falsely about the undefined upper half of the wider forms; clang has no
// such warning and refuses to silence one it does not know.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
QPT_WIDE inline __m512i Load48(const uint8_t* d) {
    const __m512i low =
        _mm512_castsi256_si512(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(d)));
    return _mm512_inserti32x4(low, _mm_loadu_si128(reinterpret_cast<const __m128i*>(d + 32)), 2);
}

QPT_WIDE inline void Store48(uint8_t* d, __m512i v) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(d), _mm512_castsi512_si256(v));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(d + 32), _mm512_extracti32x4_epi32(v, 2));
}
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

}  // namespace

QPT_WIDE void BlendPremulRowWide(uint8_t* dst, const uint8_t* src, int n, int k) {
    const __m512i widen = ByteTable(true), narrow = ByteTable(false);
    const __m512i zero = _mm512_setzero_si512(), kk = _mm512_set1_epi16(int16_t(k));
    const __m512i alphaBytes = _mm512_set1_epi32(int32_t(0xFF000000u));
    const bool scale = k != 255;
    // Every fourth byte of a widened pixel is empty.
    constexpr __mmask64 kColourBytes = 0x7777777777777777ull;
    for (int i = 0; i < n; i += 16) {
        const int m = n - i < 16 ? n - i : 16;
        const bool whole = m == 16;
        const __mmask16 pixels = __mmask16((1u << m) - 1);
        const __mmask64 bytes = (1ull << (3 * m)) - 1;
        const __m512i s =
            whole ? _mm512_loadu_si512(src + 4 * i) : _mm512_maskz_loadu_epi32(pixels, src + 4 * i);
        if (_mm512_test_epi32_mask(s, s) == 0) continue;
        uint8_t* d = dst + 3 * i;
        __m512i out;
        if (!scale &&
            _mm512_cmpeq_epi32_mask(_mm512_and_si512(s, alphaBytes), alphaBytes) == pixels) {
            // Opaque pixels at full opacity: the formula gives the source itself.
            out = s;
        } else {
            const __m512i dv = whole ? Load48(d) : _mm512_maskz_loadu_epi8(bytes, d);
            const __m512i dw = _mm512_maskz_permutexvar_epi8(kColourBytes, widen, dv);
            const __m512i r0 =
                Over16(_mm512_unpacklo_epi8(s, zero), _mm512_unpacklo_epi8(dw, zero), kk, scale);
            const __m512i r1 =
                Over16(_mm512_unpackhi_epi8(s, zero), _mm512_unpackhi_epi8(dw, zero), kk, scale);
            out = _mm512_packus_epi16(r0, r1);
        }
        const __m512i packed = _mm512_maskz_permutexvar_epi8(~0ull, narrow, out);
        if (whole)
            Store48(d, packed);
        else
            _mm512_mask_storeu_epi8(d, bytes, packed);
    }
}

bool HasWideKernel() {
    static const bool has =
        __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vbmi");
    return has;
}

#else

void BlendPremulRowWide(uint8_t* dst, const uint8_t* src, int n, int k) {
    BlendPremulRowScalar(dst, src, n, k);
}
bool HasWideKernel() {
    return false;
}

#endif

}  // namespace qpt::blend_detail
