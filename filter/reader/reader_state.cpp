#include "reader/reader_state.h"

#include "model/rmm_allocator.h"

namespace egfsvg {

SpareBlocks::Block SpareBlocks::take(std::int32_t size) {
  while (count_ > 0) {
    const Block block = blocks_[--count_];
    if (block.size >= size) return block;
    RMM_Free(block.memory);
  }
  char* memory = allocateArray<char>(static_cast<std::size_t>(size), RMM_SITE);
  return {memory, memory == nullptr ? 0 : size};
}

void SpareBlocks::giveBack(Block block) {
  if (block.memory == nullptr) return;
  if (count_ == kMost || block.size > kLargestKept) {
    RMM_Free(block.memory);
  } else {
    blocks_[count_++] = block;
  }
}

void SpareBlocks::clear() {
  while (count_ > 0) RMM_Free(blocks_[--count_].memory);
}

ScratchPair::ScratchPair(ReaderState& lender) : state(lender) {
  const SpareBlocks::Block block = state.values.take(kAttribValueSize);
  pair.value = block.memory;
  pair.valueSize = block.size;
  if (block.memory == nullptr) {
    state.outOfMemory = true;
  } else {
    clear();
  }
}

ScratchPair::~ScratchPair() { state.values.giveBack({pair.value, pair.valueSize}); }

}  // namespace egfsvg
