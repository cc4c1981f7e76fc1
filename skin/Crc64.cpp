#include "skin/Crc64.h"

#include <array>

namespace qpt {

namespace {

constexpr uint64_t kPolynomial = 0xC96C5795D7870F42ull;

constexpr std::array<uint64_t, 256> MakeTable() {
    std::array<uint64_t, 256> table{};
    for (uint64_t i = 0; i < 256; ++i) {
        uint64_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value >> 1) ^ ((value & 1) ? kPolynomial : 0);
        table[i] = value;
    }
    return table;
}

constexpr std::array<uint64_t, 256> kTable = MakeTable();

}  // namespace

uint64_t Crc64(const void* data, size_t size, uint64_t crc) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    crc = ~crc;
    for (size_t i = 0; i < size; ++i)
        crc = kTable[(crc ^ bytes[i]) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

}  // namespace qpt
