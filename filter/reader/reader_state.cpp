#include "reader/reader_state.h"

#include <algorithm>

#include "model/rmm_allocator.h"

namespace egfsvg {

namespace {

/// References nest by recursion, so that no setting goes beyond this.
constexpr std::uint32_t kDeepestReferences = 1024;

}  // namespace

/// Blocks that are too small go.
SpareBlocks::Block SpareBlocks::takeAnother(std::int32_t size) {
  while (count_ > 0) {
    const Block block = blocks_[--count_];
    if (block.size >= size) return block;
    RMM_Free(block.memory);
  }
  char* memory = allocateArray<char>(static_cast<std::size_t>(size), RMM_SITE);
  return {memory, memory == nullptr ? 0 : size};
}

void SpareBlocks::release(Block block) { freeAll(block.memory); }

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

}  // namespace egfsvg
