#pragma once

#include <cstdint>

namespace qpt {

// Milliseconds on a monotonic clock, wrapping at 2^32 like the tick count
// that repeat and double-click logic was written against: compare ticks by
// subtraction, never by order.
uint32_t GetTickCount();

// Unit tests step time by hand; nullptr puts the real clock back.
using TickCountSource = uint32_t (*)();
void SetTickCountSource(TickCountSource source);

}  // namespace qpt
