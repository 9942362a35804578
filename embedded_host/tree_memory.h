// Freeing the blocks of a whole tree: cheaper than one by one, since the room that they leave is
// put in order at the end. Nothing may be allocated between the first block and the end.
#pragma once

namespace egfhost {

// Frees a block as RMM_Free does; null is allowed.
void freeWithTree(void* block) noexcept;

// To be called after the last block.
void endOfTree() noexcept;

}  // namespace egfhost
