#include "reader/reader_state.h"

#include <algorithm>

#include "model/rmm_allocator.h"

namespace egfsvg {

namespace {

/// References nest by recursion, so that no setting goes beyond this.
constexpr std::uint32_t kDeepestReferences = 1024;

}  // namespace

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

void ReaderState::beginRead() {
  limits.maxNesting = maxNesting();
  limits.maxReferenceDepth = std::min(maxReferenceDepth(), kDeepestReferences);
  limits.maxReferencedObjects = maxReferencedObjects();
  settings.compactNumbers = settingOn(Setting::kCompactNumbers);
  settings.useAnywhere = settingOn(Setting::kUseAnywhere);
  settings.plainStyle = settingOn(Setting::kPlainStyle);
  settings.trueCurves = settingOn(Setting::kTrueCurves);
  settings.diagnostics = settingOn(Setting::kDiagnostics);
  nesting = referenceDepth = definitionDepth = switchDepth = 0;
  referencedObjects = 0;
  rereadBytes = 0;
  copiedDeclarations = 0;
  budgetIsSpent = transformsAreCut = outOfMemory = stopped = reporting = false;
  gaugeThreshold = 0;
}

/// The first pass does not fail: what it could not keep is not in the tables.
void ReaderState::beginSecondPass() {
  outOfMemory = false;
  reporting = settings.diagnostics;
  gaugeThreshold = 0;
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
