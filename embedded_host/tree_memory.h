// The memory of objects and trees, by shorter ways than the RMM_ calls.
#pragma once

#include <cstddef>

namespace egfhost {

// A block as RMM_CallocName gives it.
void* zeroedBlock(std::size_t bytes, const char* file, int line) noexcept;

// Freeing the blocks of a whole tree is cheaper than freeing them one by one, since the room that
// they leave is put in order at the end. Nothing may be allocated between the first and the end.

// Frees a block as RMM_Free does; null is allowed.
void freeWithTree(void* block) noexcept;

// To be called after the last block.
void endOfTree() noexcept;

}  // namespace egfhost
