// The host's named allocator. Blocks are native pointers inside the cage, aligned to 16 bytes.
// Each call carries the source file name (a literal, kept by address) and line of its caller.
// The caller reports failures; the allocator only returns null.
#pragma once

#include <cstddef>

#include "host/wire.h"

// The two arguments that name an allocation site.
#define RMM_SITE __FILE_NAME__, __LINE__

extern "C" {

// Uninitialised block of count * size bytes; null on failure or when the product overflows.
// A product of 0 gives a block of its own that may be freed.
EGFHOST_API void* RMM_AllocName(std::size_t count, std::size_t size, const char* file, int line);

// The same, zeroed.
EGFHOST_API void* RMM_CallocName(std::size_t count, std::size_t size, const char* file, int line);

// Resized block; null on failure, the old block then stays valid. A null block is allocated anew.
// Growth keeps slack, so that growing by one element at a time costs amortised constant time.
EGFHOST_API void* RMM_ReAllocName(void* block, std::size_t count, std::size_t size,
                                  const char* file, int line);

// The same block, from now on owned by the document rather than by the filter.
EGFHOST_API void* RMM_ChownName(void* block);

// Frees a block of any of the calls above; null is allowed. Never throws.
EGFHOST_API void RMM_Free(void* block);

}  // extern "C"
