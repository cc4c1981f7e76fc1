#include "support/TickCount.h"

#include <chrono>

namespace qpt {

namespace {

TickCountSource g_source = nullptr;

uint32_t SteadyMilliseconds() {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

}  // namespace

uint32_t GetTickCount() {
    return g_source ? g_source() : SteadyMilliseconds();
}

void SetTickCountSource(TickCountSource source) {
    g_source = source;
}

}  // namespace qpt
