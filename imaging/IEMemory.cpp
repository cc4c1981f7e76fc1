#include "imaging/IEMemory.h"

#include <sys/mman.h>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <vector>

namespace qpt {

namespace {
std::atomic<int64_t> blockLimit{0};
constexpr int64_t kHugePageThreshold = 2 << 20;

// Freed large blocks wait here for the next request of about their size:
// faulting in a fresh 4K picture costs far more than copying it, and the
// engine frees and allocates pictures of one size over and over (loads,
// undo restores, layer caches).
class TBlockCache {
public:
    bool Take(int64_t size, TIEMemBlock& block) {
        std::lock_guard lock(mutex_);
        for (size_t i = 0; i < blocks_.size(); ++i)
            if (blocks_[i].RawSize >= size && blocks_[i].RawSize <= size + size / 4) {
                block = blocks_[i];
                bytes_ -= block.RawSize;
                blocks_.erase(blocks_.begin() + long(i));
                return true;
            }
        return false;
    }
    bool Keep(const TIEMemBlock& block) {
        std::lock_guard lock(mutex_);
        if (block.RawSize > kMaxBytes) return false;
        while (!blocks_.empty() &&
               (blocks_.size() >= kMaxBlocks || bytes_ + block.RawSize > kMaxBytes)) {
            ::munmap(blocks_.front().Raw, blocks_.front().RawSize);
            bytes_ -= blocks_.front().RawSize;
            blocks_.erase(blocks_.begin());
        }
        blocks_.push_back(block);
        bytes_ += block.RawSize;
        return true;
    }

private:
    static constexpr size_t kMaxBlocks = 2;
    static constexpr int64_t kMaxBytes = 96 << 20;
    std::mutex mutex_;
    std::vector<TIEMemBlock> blocks_;
    int64_t bytes_ = 0;
};

TBlockCache& BlockCache() {
    static TBlockCache* cache = new TBlockCache;  // outlives every static bitmap
    return *cache;
}
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
        if (BlockCache().Take(size, block)) return true;
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
    if (block.Mapped) {
        if (!BlockCache().Keep(block)) ::munmap(block.Raw, block.RawSize);
    } else
        std::free(block.Raw);
    block = {};
}

}  // namespace qpt
