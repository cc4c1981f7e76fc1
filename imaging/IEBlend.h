#pragma once

#include <cstdint>

#include "imaging/IEBitmap.h"

namespace qpt {

// Rounded x / 255 for x in 0..65025, exact.
inline constexpr uint32_t IEDiv255(uint32_t x) {
    return (x + 128 + ((x + 128) >> 8)) >> 8;
}

// Composes n premultiplied B, G, R, A pixels over n B, G, R pixels with an
// extra opacity k of 0..255: alpha' = a k / 255, colour' = c k / 255,
// dst = colour' + dst (255 - alpha') / 255. Dispatches to a vector kernel
// when the processor has one; every kernel gives the same bytes.
void IEBlendPremulRow(uint8_t* dst, const uint8_t* src, int n, int k);
// dst = dst + (src - dst) alpha' / 255 with alpha' = a k / 255 for n B, G, R
// pixels; alpha may be null for an opaque source.
void IEBlendAlphaRow(uint8_t* dst, const uint8_t* src, const uint8_t* alpha, int n, int k);

// Halves a premultiplied ie32RGB bitmap into dst (already allocated at half
// the size): each pixel is the rounded mean of its 2 by 2 block, which is the
// linear filter at exactly one half.
void IEHalveScale32(const TIEBitmap& src, TIEBitmap& dst);

namespace blend_detail {
void BlendPremulRowScalar(uint8_t* dst, const uint8_t* src, int n, int k);
void BlendPremulRowVector(uint8_t* dst, const uint8_t* src, int n, int k);
bool HasVectorKernel();
// Sixteen pixels a step with masked loads and stores, for processors with
// 512-bit byte operations; the same bytes as the others.
void BlendPremulRowWide(uint8_t* dst, const uint8_t* src, int n, int k);
bool HasWideKernel();
}  // namespace blend_detail

}  // namespace qpt
