#pragma once

#include <cstdint>

namespace qpt {

// Available physical memory in bytes (MemAvailable), or -1 if unreadable.
int64_t IEAvailableMemory();

// Caps a single memory block; larger requests fail as if the heap were
// exhausted, which is what hosts with a tight address space see. 0 = no cap.
void IESetMemoryBlockLimit(int64_t bytes);

// One block of pixel memory with its first byte on a 64-byte boundary.
// Blocks above 2 MiB come straight from the kernel and ask for transparent
// huge pages, which makes faulting in a 4K picture a dozen faults, not
// thousands.
struct TIEMemBlock {
    uint8_t* Data = nullptr;
    void* Raw = nullptr;
    int64_t RawSize = 0;
    bool Mapped = false;
};

// False (and an empty block) when the memory cannot be had.
bool IEAllocBlock(int64_t size, TIEMemBlock& block);
void IEFreeBlock(TIEMemBlock& block);

}  // namespace qpt
