// One blend of a whole 4K premultiplied layer over a 24-bit picture, with each
// kernel the processor offers: the scalar fallback, the eight-pixel and the
// sixteen-pixel vector forms. The plain copy of the same 24-bit buffer is the
// yardstick the other figures are read against. Layers are at full opacity,
// as annotations nearly always are.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "imaging/IEBlend.h"

namespace {

constexpr int kW = 3840, kH = 2160;

using TRowKernel = void (*)(uint8_t*, const uint8_t*, int, int);

struct TBuffers {
    std::vector<uint8_t> dst = std::vector<uint8_t>(size_t(kW) * kH * 3);
    std::vector<uint8_t> src = std::vector<uint8_t>(size_t(kW) * kH * 4);
    TBuffers() {
        // Every alpha from clear to opaque, so no kernel takes a shortcut the
        // picture of a real layer would not allow.
        for (size_t i = 0; i < src.size(); i += 4) {
            const uint8_t a = uint8_t(i / 4 * 7);
            src[i] = src[i + 1] = src[i + 2] = uint8_t(a / 2);
            src[i + 3] = a;
        }
        std::memset(dst.data(), 0x80, dst.size());
    }
};

TBuffers& Buffers() {
    static TBuffers buffers;
    return buffers;
}

void BlendWith(benchmark::State& state, TRowKernel kernel, bool available) {
    if (!available) {
        state.SkipWithError("this processor has no such kernel");
        return;
    }
    TBuffers& b = Buffers();
    for (auto _ : state) {
        for (int y = 0; y < kH; ++y)
            kernel(b.dst.data() + size_t(y) * kW * 3, b.src.data() + size_t(y) * kW * 4, kW, 255);
        benchmark::ClobberMemory();
    }
}

void BM_Blend4K_Scalar(benchmark::State& state) {
    BlendWith(state, qpt::blend_detail::BlendPremulRowScalar, true);
}
BENCHMARK(BM_Blend4K_Scalar)->Unit(benchmark::kMillisecond);

void BM_Blend4K_Vector8(benchmark::State& state) {
    BlendWith(state, qpt::blend_detail::BlendPremulRowVector, qpt::blend_detail::HasVectorKernel());
}
BENCHMARK(BM_Blend4K_Vector8)->Unit(benchmark::kMillisecond);

void BM_Blend4K_Vector16(benchmark::State& state) {
    BlendWith(state, qpt::blend_detail::BlendPremulRowWide, qpt::blend_detail::HasWideKernel());
}
BENCHMARK(BM_Blend4K_Vector16)->Unit(benchmark::kMillisecond);

void BM_PlainCopy4K(benchmark::State& state) {
    TBuffers& b = Buffers();
    std::vector<uint8_t> copy(b.dst.size());
    for (auto _ : state) {
        std::memcpy(copy.data(), b.dst.data(), copy.size());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_PlainCopy4K)->Unit(benchmark::kMillisecond);

}  // namespace
