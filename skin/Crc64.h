#pragma once

#include <cstddef>
#include <cstdint>

namespace qpt {

// CRC-64 with the reflected ECMA-182 polynomial: start all ones, result
// inverted. Pass a previous result as `crc` to continue over more bytes.
uint64_t Crc64(const void* data, size_t size, uint64_t crc = 0);

}  // namespace qpt
