#include "imaging/IEMemory.h"

#include <sys/mman.h>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace qpt {

namespace {
std::atomic<int64_t> blockLimit{0};
constexpr int64_t kHugePageThreshold = 2 << 20;
}  // namespace

int64_t IEAvailableMemory() {
    FILE* f = std::fopen("/proc/meminfo", "re");
    if (!f) return -1;
    char line[256];
    long long kb = -1;
    while (std::fgets(line, sizeof line, f)) {
        if (std::sscanf(line, "MemAvailable: %lld kB", &kb) == 1) break;
        kb = -1;
    }
    std::fclose(f);
    return kb < 0 ? -1 : int64_t(kb) * 1024;
}

void IESetMemoryBlockLimit(int64_t bytes) {
    blockLimit = bytes < 0 ? 0 : bytes;
}

bool IEAllocBlock(int64_t size, TIEMemBlock& block) {
    block = {};
    const int64_t limit = blockLimit;
    if (size <= 0 || (limit > 0 && size > limit)) return false;
    if (size > kHugePageThreshold) {
        void* p = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (p == MAP_FAILED) return false;
        ::madvise(p, size, MADV_HUGEPAGE);
        block = {static_cast<uint8_t*>(p), p, size, true};
        return true;
    }
    // 128 spare bytes: 64 to reach the boundary, 64 so that block operations
    // may read a vector past the last pixel.
    void* p = std::malloc(size + 128);
    if (!p) return false;
    auto aligned = (reinterpret_cast<uintptr_t>(p) + 63) & ~uintptr_t(63);
    block = {reinterpret_cast<uint8_t*>(aligned), p, size + 128, false};
    return true;
}

void IEFreeBlock(TIEMemBlock& block) {
    if (block.Mapped)
        ::munmap(block.Raw, block.RawSize);
    else
        std::free(block.Raw);
    block = {};
}

}  // namespace qpt
