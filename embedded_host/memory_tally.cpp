#include "embedded_host/memory_tally.h"

#include "embedded_host/host_memory.h"

namespace egfhost {

constinit MemoryTally memoryTally{};

MemoryCounters memoryCounters() {
  return {.liveBytes = memoryTally.bytes.live,
          .liveBlocks = memoryTally.blocks.live,
          .peakBytes = memoryTally.bytes.peak(),
          .peakBlocks = memoryTally.blocks.peak(),
          .allocations = memoryTally.allocations,
          .refusals = memoryTally.refusals,
          .badFrees = memoryTally.badFrees};
}

void resetMemoryPeak() {
  memoryTally.bytes.restart();
  memoryTally.blocks.restart();
}

void clearBadFrees() { memoryTally.badFrees = 0; }

}  // namespace egfhost
