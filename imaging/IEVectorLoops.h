#pragma once

// Marks a plain loop function to be compiled twice, for 256-bit vector
// operations and for plain x86-64, and picked at load time. GCC vectorises
// at -O2 only when asked; clang does it anyway and rejects the request as
// an unknown attribute.
#if defined(__clang__)
#define QPT_CLONED_LOOP __attribute__((target_clones("avx2", "default")))
#else
#define QPT_CLONED_LOOP \
    __attribute__((target_clones("avx2", "default"), optimize("tree-vectorize")))
#endif
